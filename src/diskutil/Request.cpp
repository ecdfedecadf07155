#include "diskutil/Request.h"

#include <charconv>
#include <string_view>
#include <utility>

namespace orvana::diskutil
{

namespace
{

std::optional<std::uint64_t> numberIn(std::string_view text)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

// Stores the value. Returns false if there was a value before, or if this value is not valid.
bool take(std::optional<std::string> &known, std::string_view value)
{
    return !std::exchange(known, value);
}

bool take(std::optional<std::uint64_t> &known, std::string_view value)
{
    return !std::exchange(known, numberIn(value)) && known;
}

bool take(std::optional<std::int64_t> &known, std::string_view value)
{
    const auto number = numberIn(value);
    if (known || !number || *number > std::uint64_t{INT64_MAX})
        return false;
    known = static_cast<std::int64_t>(*number);
    return true;
}

bool readMark(std::string_view key, std::string_view value, platform::DiskFingerprint &disk)
{
    if (key == "device" && disk.device.empty()) {
        disk.device = value;
        return !value.empty();
    }
    if (key == "arrival")
        return take(disk.arrival, value);
    if (key == "size")
        return take(disk.size, value);
    return key == "wwn" && take(disk.wwn, value);
}

// Reads "device=/dev/sdb,arrival=12,size=1000,wwn=0x5,serial=S1". All text after "serial=" is the serial
// number.
bool readSpared(std::string_view text, Expectation &expected)
{
    constexpr std::string_view Serial = "serial=";
    platform::DiskFingerprint disk;
    while (!text.starts_with(Serial)) {
        const auto equals = text.find('=');
        const auto comma = text.find(',');
        if (comma == std::string_view::npos || equals > comma ||
            !readMark(text.substr(0, equals), text.substr(equals + 1, comma - equals - 1), disk))
            return false;
        text.remove_prefix(comma + 1);
    }
    if (text.size() > Serial.size())
        disk.serial = text.substr(Serial.size());
    expected.spared.push_back(std::move(disk));
    return true;
}

// Returns false if the word is no expectation, or if its value is not valid.
bool readExpectation(std::string_view word, Expectation &expected)
{
    const auto equals = word.find('=');
    if (equals == std::string_view::npos)
        return false;
    const auto key = word.substr(0, equals);
    const auto value = word.substr(equals + 1);
    if (key == "--spare")
        return readSpared(value, expected);
    if (key == "--expect-serial")
        return take(expected.serial, value);
    if (key == "--expect-bay")
        return take(expected.bay, value);
    if (key == "--expect-sequence")
        return take(expected.sequence, value);
    return key == "--expect-size" && take(expected.size, value);
}

} // namespace

Outcome<Request> readRequest(const std::vector<std::string> &words)
{
    Request request;
    std::vector<std::string> plain;
    // A volume may be named like an option, so the name is found by its position.
    const bool isErase = !words.empty() && words[0] == "eraseDisk";
    for (const auto &word : words) {
        const bool isName = isErase && plain.size() == 2;
        if (isName || !word.starts_with("--"))
            plain.push_back(word);
        else if (!readExpectation(word, request.expected))
            return trouble(WrongUsage, Usage);
    }
    if (isErase && plain.size() == 4) {
        request.format = plain[1];
        request.name = plain[2];
    } else if (plain.size() == 2 && plain[0] == "eject") {
        request.verb = Verb::Eject;
    } else if (plain.size() == 2 && plain[0] == "mountDisk") {
        request.verb = Verb::MountDisk;
    } else if (words.size() == 2 && plain.size() == 2 && plain[0] == "isInBay") {
        request.verb = Verb::IsInBay;
    } else {
        return trouble(WrongUsage, Usage);
    }
    request.node = plain.back();
    return request;
}

} // namespace orvana::diskutil
