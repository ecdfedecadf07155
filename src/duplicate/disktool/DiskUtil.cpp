#include "duplicate/disktool/DiskUtil.h"

#include "foundation/DisplayPath.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "platform/CommandLauncher.h"

namespace orvana
{

namespace
{

constexpr const char *Utility = "/usr/sbin/diskutil";
constexpr const char *Format = "JHFS+";

std::string firstLineOf(const std::string &output)
{
    const auto start = output.find_first_not_of("\r\n");
    if (start == std::string::npos)
        return {};
    return displayPath(output.substr(start, output.find_first_of("\r\n", start) - start));
}

DiskResult resultOf(const DiskUtilInfo &disk, const platform::CommandLauncher::Result &result)
{
    if (!result.status)
        return {disk, false, "the disk utility could not be started"};
    if (*result.status == 0) {
        // The message of a success ends with what was left out: "its size was not probed".
        const auto remark = result.output.find("; ");
        return {disk, true,
                remark == std::string::npos ? std::string() : firstLineOf(result.output.substr(remark + 2))};
    }
    const auto line = firstLineOf(result.output);
    return {disk, false,
            line.empty() ? "the disk utility ended with status " + std::to_string(*result.status) : line};
}

} // namespace

bool DiskUtil::workThrough(const Message &message, const Command &command)
{
    m_results.clear();
    // A copy, because the owner may set another list while a message is handled.
    const auto disks = m_diskArray;
    m_launcher.setSparedDisks(m_sparedDisks);
    for (const auto &disk : disks) {
        if (m_goesOn && !m_goesOn())
            return false;
        m_center.post(notification::DiskMessage, notification::key::DiskMsgInfo, message(disk));
        m_results.push_back(resultOf(disk, m_launcher.run(Utility, command(disk))));
    }
    return true;
}

bool DiskUtil::EraseDisks()
{
    return workThrough(
        [](const DiskUtilInfo &disk) {
            return "Erasing " + displayPath(disk.diskPath) + " & Mount to /Volumes/" +
                   displayPath(disk.diskVolume);
        },
        [](const DiskUtilInfo &disk) {
            return std::vector<std::string>{"eraseDisk", Format, disk.diskVolume, disk.diskPath};
        });
}

bool DiskUtil::EjectDisks()
{
    return workThrough(
        [](const DiskUtilInfo &disk) { return "Eject /Volumes/" + displayPath(disk.diskVolume); },
        [](const DiskUtilInfo &disk) { return std::vector<std::string>{"eject", disk.diskPath}; });
}

bool DiskUtil::MountDisks()
{
    return workThrough(
        [](const DiskUtilInfo &disk) { return "Mount " + displayPath(disk.diskPath); },
        [](const DiskUtilInfo &disk) { return std::vector<std::string>{"mountDisk", disk.diskPath}; });
}

void DiskUtil::startEraseDisks()
{
    if (EraseDisks())
        m_center.post(notification::EraseDiskFinish);
}

std::optional<std::string> DiskUtil::runCommandWithCommand(const std::string &path,
                                                           const std::vector<std::string> &arguments)
{
    auto result = m_launcher.run(path, arguments);
    if (!isUtf8(result.output))
        return std::nullopt;
    return std::move(result.output);
}

} // namespace orvana
