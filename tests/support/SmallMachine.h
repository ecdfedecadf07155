#pragma once

namespace orvana::test
{

/// A simulated machine that is quick to make: an enclosure with "Master" in bay A, "COPY1" and "COPY2" in B
/// and C, a blank disk in D; the start-up disk with anna's home, and the USB disk "STICK".
inline constexpr const char *SmallMachine = R"({
  "login": "anna",
  "internalDisks": [ { "model": "SSD", "serial": "I1", "size": 9000000, "volumes": [
    { "name": "System", "startup": true, "capacity": 8000000,
      "content": [ { "path": "Letters/Offer.txt", "bytes": 300 } ] } ] } ],
  "usbDisks": [ { "vendor": "V", "product": "P", "size": 900000, "volumes": [
    { "name": "STICK", "capacity": 800000, "content": [ { "path": "song.mp3", "bytes": 700 } ] } ] } ],
  "enclosures": [ { "uid": 7, "bays": [
    { "bay": "A", "model": "MA", "serial": "SA", "size": 1000000, "volumes": [
      { "name": "Master", "capacity": 900000, "content": [ { "path": "Footage", "bytes": 6000, "files": 3 },
                                                           { "path": "Read me.txt", "bytes": 120 } ] } ] },
    { "bay": "B", "model": "MB", "serial": "SB", "size": 1000000, "volumes": [
      { "name": "COPY1", "capacity": 900000, "content": [ { "path": "old1", "bytes": 10 } ] } ] },
    { "bay": "C", "model": "MC", "serial": "SC", "size": 1000000, "volumes": [
      { "name": "COPY2", "capacity": 900000, "content": [ { "path": "old2", "bytes": 10 } ] } ] },
    { "bay": "D", "model": "MD", "serial": "SD", "size": 1000000, "formatted": false } ] } ]
})";

} // namespace orvana::test
