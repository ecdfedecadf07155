#pragma once

#include "platform/linux/DiskFreeText.h"
#include "platform/linux/LinuxTree.h"

namespace orvana::platform::linux_host
{

/// A snapshot of the machine, with the names that its disks had at that time.
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

/// Returns the disk that has this node in the program, "/dev/disk3", or null.
const Disk *diskCalled(const MachineSnapshot &snapshot, const DiskNames &names, const std::string &node);

/// The machine as it is now. Each snapshot is read again; only the names of the disks and the remarks are
/// kept. Main thread only.
class LinuxMachine
{
public:
    explicit LinuxMachine(SystemFiles files = {}) : m_files(std::move(files)) {}

    std::shared_ptr<const MachineSnapshot> snapshot();

    /// Reads only the devices and mounts, and opens no disk.
    SystemState systemState() const { return readSystemState(m_files); }

    /// True when there is any enclosure definition.
    bool hasDefinitions() const { return !m_files.definitions().definitions.empty(); }

    const SystemFiles &files() const { return m_files; }

    const DiskNames &names() const { return m_names; }

    /// One sentence for each device that could not be used at the last snapshot, with the reason.
    const std::set<std::string> &remarks() const { return m_remarks; }

private:
    void report(const MachineSnapshot &snapshot);
    void rememberSerials(const SystemState &system);

    /// The disk that has shown a serial number.
    struct SerialOwner
    {
        std::string size;
        std::string wwn;

        bool operator==(const SerialOwner &) const = default;
    };

    SystemFiles m_files;
    std::map<std::string, SerialOwner> m_serials;
    std::set<std::string> m_sharedSerials;
    DiskNames m_names;
    std::set<std::string> m_remarks; // a new remark is also written to the system log
};

} // namespace orvana::platform::linux_host
