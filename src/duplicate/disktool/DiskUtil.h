#pragma once

#include "duplicate/disktool/DiskUtilInfo.h"
#include "platform/DiskFingerprint.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

class NotificationCenter;

namespace platform
{
class CommandLauncher;
}

/// How the disk utility left one disk.
struct DiskResult
{
    DiskUtilInfo disk;
    bool succeeded = false;
    std::string reason; ///< why not: the first line that it said, valid UTF-8; empty on success
};

/// Erases and ejects disks, each by one run of the system's disk utility, one after the other.
///
/// Used on the main thread, which waits meanwhile. Before each disk it posts "DiskMessage", after an erase
/// "EraseDiskFinish". A command that fails does not keep the next one from being run.
class DiskUtil
{
public:
    /// Both must outlive the tool.
    DiskUtil(platform::CommandLauncher &launcher, NotificationCenter &center)
        : m_launcher(launcher), m_center(center)
    {
    }
    DiskUtil(const DiskUtil &) = delete;
    DiskUtil &operator=(const DiskUtil &) = delete;

    /// The disks to act on. Their owner replaces the list before each operation.
    const std::vector<DiskUtilInfo> &diskArray() const { return m_diskArray; }
    void setDiskArray(std::vector<DiskUtilInfo> disks) { m_diskArray = std::move(disks); }

    /// Disks that no command may change, such as those of the source. The utility itself looks for them again
    /// right before it changes anything.
    void setSparedDisks(std::vector<platform::DiskFingerprint> disks) { m_sparedDisks = std::move(disks); }

    /// Asked before each disk; once it says no, the rest of the list is left alone. Without one nothing stops
    /// the tool.
    void setGoesOn(std::function<bool()> goesOn) { m_goesOn = std::move(goesOn); }

    /// Work through the list; false only when it was stopped before its end.
    bool EraseDisks();
    bool EjectDisks();

    /// Erases, and posts "EraseDiskFinish" when the list is done.
    void startEraseDisks();

    /// The same: on the calling thread, and it waits.
    void startEraseDiskThread() { startEraseDisks(); }

    /// The output of a program as text; nothing when it is not UTF-8.
    std::optional<std::string> runCommandWithCommand(const std::string &path,
                                                     const std::vector<std::string> &arguments);

    void dumpDiskArray() const {}

    /// What became of the disks of the last operation, in the order of the list; shorter than it when the
    /// tool was stopped.
    const std::vector<DiskResult> &results() const { return m_results; }

private:
    using Command = std::function<std::vector<std::string>(const DiskUtilInfo &)>;
    using Message = std::function<std::string(const DiskUtilInfo &)>;

    bool workThrough(const Message &message, const Command &command);

    platform::CommandLauncher &m_launcher;
    NotificationCenter &m_center;
    std::vector<DiskUtilInfo> m_diskArray;
    std::vector<platform::DiskFingerprint> m_sparedDisks;
    std::vector<DiskResult> m_results;
    std::function<bool()> m_goesOn;
};

} // namespace orvana
