#include "platform/simulator/DemoMachine.h"

#include "foundation/DisplayPath.h"
#include "platform/posix/PrivateFolder.h"

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace orvana::platform::simulator
{

namespace
{

constexpr const char *Demo = R"({
  "login": "demo",
  "internalDisks": [
    { "model": "Internal SSD 512", "serial": "INT0001", "size": 512110190592,
      "volumes": [
        { "name": "System", "startup": true, "capacity": 511000000000,
          "content": [ { "path": "Pictures", "bytes": 12000000, "files": 24 },
                       { "path": "Letters/Offer.txt", "bytes": 4100 } ] } ] }
  ],
  "usbDisks": [
    { "vendor": "  Traveller ", "product": "Stick 64 ", "size": 64023257088,
      "volumes": [ { "name": "STICK", "capacity": 64000000000,
                     "content": [ { "path": "Music", "bytes": 9000000, "files": 12 } ] } ] }
  ],
  "fireWireDisks": [
    { "vendor": "Studio", "product": "Archive 2", "size": 2000398934016,
      "volumes": [ { "name": "Archive", "capacity": 2000000000000,
                     "content": [ { "path": "2019", "bytes": 6000000, "files": 8 } ] } ] }
  ],
  "enclosures": [
    { "name": "Orvana Four Bay", "vendorName": "Orvana", "vendor": 65, "model": 567, "uid": 4660,
      "controller": "612",
      "bays": [
        { "bay": "A", "model": "Master HD 2000", "serial": "A-1001", "size": 2000398934016,
          "volumes": [
            { "name": "Master", "capacity": 2000000000000,
              "content": [ { "path": "Footage", "bytes": 150000000, "files": 120 },
                           { "path": "Sound", "bytes": 40000000, "files": 160 },
                           { "path": "Scripts", "bytes": 2000000, "files": 80 },
                           { "path": "Read me.txt", "bytes": 1200 },
                           { "path": "Poster.png", "bytes": 8000000 } ] } ] },
        { "bay": "B", "model": "Copy HD 2000", "serial": "B-2002", "size": 2000398934016,
          "volumes": [ { "name": "COPY1", "capacity": 2000000000000 } ] },
        { "bay": "C", "model": "Copy HD 1000", "serial": "C-3003", "size": 1000204886016,
          "volumes": [ { "name": "COPY2", "capacity": 1000000000000 } ] },
        { "bay": "D", "model": "Blank HD 1000", "serial": "D-4004", "size": 1000204886016,
          "formatted": false }
      ] }
  ]
}
)";

} // namespace

tl::expected<std::string, std::string> writeDemo(const std::string &folder)
{
    if (const auto made = makePrivateFolder(folder); !made)
        return tl::unexpected(made.error());
    std::error_code error;
    auto file = folder + "/machine.json";
    if (!fs::exists(file, error))
        std::ofstream(file, std::ios::binary) << Demo;
    if (!fs::exists(file, error))
        return tl::unexpected(displayPath(file) + ": cannot be written");
    return file;
}

} // namespace orvana::platform::simulator
