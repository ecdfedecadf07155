#include "platform/linux/LinuxLauncher.h"

#include "foundation/DisplayPath.h"
#include "foundation/ExitStatus.h"

namespace orvana::platform::linux_host
{

CommandLauncher::Result LinuxLauncher::run(const std::string &path, const std::vector<std::string> &arguments)
{
    if (path == "/bin/df")
        return {diskFreeText(m_machine.snapshot()->volumes), 0};
    if (path == "/usr/sbin/diskutil")
        return runDiskUtility(arguments);
    return m_programs.run(path, arguments);
}

// "--spare=device=/dev/sdb,arrival=12,size=1000,wwn=0x5,serial=S1". The serial number comes last, because it
// may contain commas. A disk that is gone has no node any more.
std::string LinuxLauncher::sparingWord(const DiskFingerprint &disk, const MachineSnapshot &snapshot) const
{
    std::string word = "--spare=";
    if (const auto *there = diskCalled(snapshot, m_machine.names(), disk.device))
        word.append("device=/dev/").append(there->device->name).append(",");
    if (disk.arrival)
        word.append("arrival=").append(std::to_string(*disk.arrival)).append(",");
    if (disk.size)
        word.append("size=").append(std::to_string(*disk.size)).append(",");
    if (disk.wwn)
        word.append("wwn=").append(*disk.wwn).append(",");
    return word.append("serial=").append(disk.serial.value_or(std::string()));
}

// Replaces the program's name for the disk with the kernel's name, and adds what is known about the disk.
// Unknown values are left out. The utility changes nothing without them.
CommandLauncher::Result LinuxLauncher::runDiskUtility(std::vector<std::string> arguments)
{
    if (arguments.empty())
        return m_utilities.run(m_diskUtility, arguments);
    auto &node = arguments.back();
    const auto snapshot = m_machine.snapshot();
    const auto *disk = diskCalled(*snapshot, m_machine.names(), node);
    if (!disk)
        return {displayPath(node) + ": this disk is not there any more\n", NotThere};
    const auto identity = identityOf(*disk);
    node = "/dev/" + disk->device->name;
    if (identity.sequence)
        arguments.push_back("--expect-sequence=" + std::to_string(*identity.sequence));
    if (identity.serial)
        arguments.push_back("--expect-serial=" + *identity.serial);
    arguments.push_back("--expect-size=" + std::to_string(identity.bytes()));
    arguments.push_back("--expect-bay=" + identity.place);
    for (const auto &spared : m_sparedDisks)
        arguments.push_back(sparingWord(spared, *snapshot));
    return m_utilities.run(m_diskUtility, arguments);
}

} // namespace orvana::platform::linux_host
