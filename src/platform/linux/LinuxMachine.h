#pragma once

#include "platform/linux/DiskFreeText.h"
#include "platform/linux/LinuxTree.h"

namespace orvana::platform::linux_host
{

/// One look at the machine, with the names that its disks had then.
struct MachineSnapshot
{
    MachineSnapshot() = default;
    MachineSnapshot(const MachineSnapshot &) = delete;
    MachineSnapshot &operator=(const MachineSnapshot &) = delete;

    SystemState system;
    std::vector<Disk> disks; ///< point into `system`
    LinuxTree tree;
    std::vector<ListedVolume> volumes;
};

/// The machine as it is now. Every question is a new look; only the disks' names are kept. Main thread only.
class LinuxMachine
{
public:
    explicit LinuxMachine(SystemFiles files = {}) : m_files(std::move(files)) {}

    std::shared_ptr<const MachineSnapshot> snapshot();

    /// Devices and mounts alone: no disk is opened for it.
    SystemState systemState() const { return readSystemState(m_files); }

    const DiskNames &names() const { return m_names; }

    /// One sentence for each device that could not be used at the last look, with the reason.
    const std::set<std::string> &remarks() const { return m_remarks; }

private:
    void report(const MachineSnapshot &snapshot);

    SystemFiles m_files;
    DiskNames m_names;
    std::set<std::string> m_remarks; // the system log is told each once
};

} // namespace orvana::platform::linux_host
