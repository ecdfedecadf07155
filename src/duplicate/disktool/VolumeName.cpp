#include "duplicate/disktool/VolumeName.h"

#include "foundation/DisplayPath.h"

#include <cstdlib>

namespace orvana
{

namespace
{

struct FormatLimit
{
    const char *name;
    std::size_t length;
    const char *unit;
};

FormatLimit limitOf(EraseFormat format)
{
    switch (format) {
    case EraseFormat::Xfs:
        return {"xfs", 12, "bytes"};
    case EraseFormat::ExFat:
        return {"exFAT", 11, "characters"};
    case EraseFormat::Ext4:
        return {"ext4", 16, "bytes"};
    }
    return {};
}

// exFAT counts characters in UTF-16: a character of four UTF-8 bytes counts as two.
std::size_t lengthIn(EraseFormat format, const std::string &name)
{
    if (format != EraseFormat::ExFat)
        return name.size();
    std::size_t length = 0;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) != 0x80)
            length += byte >= 0xF0 ? 2 : 1;
    }
    return length;
}

} // namespace

EraseFormat eraseFormatOf(std::string_view setting)
{
    if (setting == "xfs")
        return EraseFormat::Xfs;
    return setting == "exfat" ? EraseFormat::ExFat : EraseFormat::Ext4;
}

std::optional<std::string> eraseFormatSetting()
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the program never changes its environment.
    const char *setting = std::getenv("ORVANA_FILE_SYSTEM");
    return setting ? std::optional<std::string>(setting) : std::nullopt;
}

EraseFormat eraseFormat()
{
    return eraseFormatOf(eraseFormatSetting().value_or(std::string()));
}

std::optional<NameRefusalReason> refusalOfName(const std::string &name, EraseFormat format)
{
    if (name.empty())
        return NameRefusalReason::Empty;
    if (name.find('/') != std::string::npos || name.find('\0') != std::string::npos)
        return NameRefusalReason::Separator;
    if (name == "." || name == ".." || name == NoVolume || name == UnformattedDisk)
        return NameRefusalReason::Reserved;
    if (!isUtf8(name) || displayPath(name) != name)
        return NameRefusalReason::NotText;
    if (lengthIn(format, name) > limitOf(format).length)
        return NameRefusalReason::TooLong;
    if (name.front() == ' ' || name.back() == ' ' || name.find("  ") != std::string::npos)
        return NameRefusalReason::LostBlanks;
    // The program that makes this file system accepts no blanks in a name.
    if (format == EraseFormat::Xfs && name.find(' ') != std::string::npos)
        return NameRefusalReason::Blanks;
    return std::nullopt;
}

std::string reasonText(NameRefusalReason reason, EraseFormat format)
{
    const auto limit = limitOf(format);
    switch (reason) {
    case NameRefusalReason::Empty:
        return "a disk needs a name";
    case NameRefusalReason::Reserved:
        return "this cannot be the name of a disk";
    case NameRefusalReason::Separator:
        return "a name cannot hold \"/\"";
    case NameRefusalReason::NotText:
        return "a name is text on one line";
    case NameRefusalReason::OfSource:
        return "this is the name of the source";
    case NameRefusalReason::LostBlanks:
        return "a name cannot begin or end with a blank, nor hold two in a row";
    case NameRefusalReason::Blanks:
        return std::string("a name on ") + limit.name + " cannot hold blanks";
    case NameRefusalReason::TooLong:
        return "longer than " + std::to_string(limit.length) + " " + limit.unit + ", which is the limit of " +
               limit.name;
    }
    return {};
}

} // namespace orvana
