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

/// The result of the disk utility for one disk.
struct DiskResult
{
    DiskUtilInfo disk;
    bool succeeded = false;
    std::string reason; ///< why it failed, or a remark on a success; valid UTF-8
};

/// Erases, ejects and mounts disks one after the other, with one run of the system's disk utility for each
/// disk.
///
/// Used on the main thread, which waits meanwhile. Posts "DiskMessage" before each disk. If a command fails,
/// the next command is run all the same.
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

    /// Sets the disks that no command may change, such as those of the source. The utility itself looks for
    /// these disks again right before it changes anything.
    void setSparedDisks(std::vector<platform::DiskFingerprint> disks) { m_sparedDisks = std::move(disks); }

    /// Sets a function that is called before each disk. Once it returns false, the rest of the list is left
    /// alone. Without it nothing stops the tool.
    void setGoesOn(std::function<bool()> goesOn) { m_goesOn = std::move(goesOn); }

    /// Work through the list. Return false only when stopped before the end of the list.
    bool EraseDisks();
    bool EjectDisks();
    bool MountDisks();

    /// Erases, and posts "EraseDiskFinish" when the list is done.
    void startEraseDisks();

    /// Calls `startEraseDisks` on the calling thread and waits for it.
    void startEraseDiskThread() { startEraseDisks(); }

    /// Returns the output of a program as text, or nullopt when the output is not UTF-8.
    std::optional<std::string> runCommandWithCommand(const std::string &path,
                                                     const std::vector<std::string> &arguments);

    void dumpDiskArray() const {}

    /// Returns the results of the last operation, in the order of the list. There are fewer results than
    /// disks when the tool was stopped.
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
