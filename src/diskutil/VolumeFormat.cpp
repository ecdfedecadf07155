#include "diskutil/VolumeFormat.h"

#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana::diskutil
{

namespace
{

constexpr const char *LinuxData = "0fc63daf-8483-4772-8e79-3d69d8477de4";
constexpr const char *BasicData = "ebd0a0a2-b9e5-4433-87c0-68b6b72699c7";

constexpr VolumeFormat Formats[] = {{"ext4", LinuxData, EraseFormat::Ext4},
                                    {"xfs", LinuxData, EraseFormat::Xfs},
                                    {"exfat", BasicData, EraseFormat::ExFat}};

} // namespace

Outcome<VolumeFormat> formatOf(const std::string &word, const std::optional<std::string> &setting)
{
    const auto wanted = word != "JHFS+" ? word : setting && !setting->empty() ? *setting : "ext4";
    const auto found = std::find_if(std::begin(Formats), std::end(Formats),
                                    [&](const VolumeFormat &format) { return wanted == format.type; });
    if (found == std::end(Formats))
        return trouble(Refused, displayPath(wanted) + " is no format: ext4, xfs and exfat are");
    return *found;
}

Outcome<void> checkName(const VolumeFormat &format, const std::string &name)
{
    const auto reason = refusalOfName(name, format.rules);
    if (!reason)
        return {};
    return trouble(Refused, "\"" + displayPath(name) + "\": " + reasonText(*reason, format.rules));
}

} // namespace orvana::diskutil
