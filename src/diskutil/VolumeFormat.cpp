#include "diskutil/VolumeFormat.h"

#include "foundation/DisplayPath.h"

#include <algorithm>
#include <string_view>

namespace orvana::diskutil
{

namespace
{

constexpr const char *LinuxData = "0fc63daf-8483-4772-8e79-3d69d8477de4";
constexpr const char *BasicData = "ebd0a0a2-b9e5-4433-87c0-68b6b72699c7";

constexpr VolumeFormat Formats[] = {{"ext4", LinuxData}, {"xfs", LinuxData}, {"exfat", BasicData}};

// Characters as exFAT counts them: those beyond the basic plane are two.
std::size_t charactersOf(std::string_view name)
{
    std::size_t count = 0;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isContinuation = (byte & 0xC0U) == 0x80U;
        count += isContinuation ? 0 : (byte >= 0xF0U ? 2 : 1);
    }
    return count;
}

Outcome<void> checkLength(const VolumeFormat &format, const std::string &name)
{
    const std::string_view type = format.type;
    const bool countsCharacters = type == "exfat";
    const std::size_t limit = type == "ext4" ? 16 : (countsCharacters ? 11 : 12);
    const auto length = countsCharacters ? charactersOf(name) : name.size();
    if (length <= limit)
        return {};
    return trouble(Refused, "\"" + displayPath(name) + "\" is too long a name: " + format.type +
                                " takes at most " + std::to_string(limit) +
                                (countsCharacters ? " characters" : " bytes") + ", this has " +
                                std::to_string(length));
}

} // namespace

Outcome<VolumeFormat> formatOf(const std::string &word, const std::optional<std::string> &setting)
{
    const auto wanted = word == "JHFS+" ? setting.value_or("ext4") : word;
    const auto found = std::find_if(std::begin(Formats), std::end(Formats),
                                    [&](const VolumeFormat &format) { return wanted == format.type; });
    if (found == std::end(Formats))
        return trouble(Refused, displayPath(wanted) + " is no format: ext4, xfs and exfat are");
    return *found;
}

Outcome<void> checkName(const VolumeFormat &format, const std::string &name)
{
    const bool isReserved =
        name.empty() || name == "." || name == ".." || name == "None" || name == "Unformatted";
    const bool hasBadBytes =
        name.find('/') != std::string::npos || !isUtf8(name) || displayPath(name) != name;
    // The maker of this file system takes no blanks.
    const bool hasBlank = std::string_view(format.type) == "xfs" && name.find(' ') != std::string::npos;
    if (isReserved || hasBadBytes || hasBlank)
        return trouble(Refused,
                       "\"" + displayPath(name) + "\" cannot be the name of a volume of " + format.type);
    return checkLength(format, name);
}

} // namespace orvana::diskutil
