#pragma once

#include "platform/CommandLauncher.h"
#include "platform/linux/LinuxMachine.h"
#include "platform/posix/PosixCommandLauncher.h"

namespace orvana::platform::linux_host
{

/// Answers "/bin/df" from the mount table, runs the program `diskUtility` for "/usr/sbin/diskutil", and runs
/// every other program as it is.
class LinuxLauncher final : public CommandLauncher
{
public:
    LinuxLauncher(LinuxMachine &machine, std::string diskUtility)
        : m_machine(machine), m_diskUtility(std::move(diskUtility))
    {
    }

    Result run(const std::string &path, const std::vector<std::string> &arguments) override;
    void setSparedDisks(std::vector<DiskFingerprint> disks) override { m_sparedDisks = std::move(disks); }

private:
    Result runDiskUtility(std::vector<std::string> arguments);
    std::string sparingWord(const DiskFingerprint &disk, const MachineSnapshot &snapshot) const;

    LinuxMachine &m_machine;
    std::string m_diskUtility;
    std::vector<DiskFingerprint> m_sparedDisks;
    posix::PosixCommandLauncher m_programs;
    // The caller must show why a disk was refused, so the error text of the utility goes into the output.
    posix::PosixCommandLauncher m_utilities{posix::Complaints::IntoTheOutput};
};

} // namespace orvana::platform::linux_host
