#include "platform/linux/LinuxEnclosureSetup.h"

#include "foundation/DisplayPath.h"
#include "platform/linux/DiskPorts.h"
#include "platform/linux/SystemClaims.h"
#include "platform/linux/ThunderboltRouters.h"
#include "platform/posix/PosixCommandLauncher.h"

#include <algorithm>
#include <unistd.h>

namespace orvana::platform::linux_host
{

namespace
{

// The answers of pkexec that are not the program's own.
constexpr int Dismissed = 126;
constexpr int NotAuthorized = 127;

std::string refusalOf(const SystemState &system, const Disk &disk, const SystemClaims &tables)
{
    if (std::any_of(disk.partitions.begin(), disk.partitions.end(),
                    [](const Partition &partition) { return partition.holdsRoot; }))
        return "holds the running system";
    if (disk.router && isFourBayEnclosure(*disk.router))
        return "is in an enclosure that needs no setup";
    return tables.reasonFor(system, *disk.device);
}

} // namespace

enclosures::PortSnapshot LinuxEnclosureSetup::look()
{
    const auto snapshot = m_machine.snapshot();
    const auto &devices = snapshot->system.devices;
    const SystemClaims tables(m_machine.files().tables);
    enclosures::PortSnapshot ports{{}, anchorDevicesOf(devices)};
    for (const auto &disk : snapshot->disks) {
        // Before udev has looked at a disk, its model and serial number are not known.
        if (disk.blocks == 0 || !hasUdevLooked(*disk.device))
            continue;
        enclosures::PlacedDisk placed;
        placed.place = placeOfDisk(devices, *disk.device);
        placed.arrival = disk.device->path + " " + std::to_string(disk.sequence.value_or(0)) + " " +
                         std::to_string(disk.blocks);
        placed.model = withoutBlanks(disk.model.value_or(""));
        placed.serial = withoutBlanks(disk.serial.value_or(""));
        placed.bytes = identityOf(disk).bytes();
        if (disk.definedBay)
            placed.bay = enclosures::slotOf(disk.definedBay->bay) + " of " +
                         displayPath(disk.definedBay->definition->name);
        placed.refusal = refusalOf(snapshot->system, disk, tables);
        ports.disks.push_back(std::move(placed));
    }
    return ports;
}

// udev marks the disks in bays, so it must look at them again.
void LinuxEnclosureSetup::tellUdev() const
{
    if (m_machine.files().trust == enclosures::Trust::Root)
        posix::PosixCommandLauncher().run("/usr/bin/udevadm",
                                          {"trigger", "--action=change", "--subsystem-match=block"});
}

bool LinuxEnclosureSetup::mayWrite() const
{
    return ::geteuid() == 0 || m_machine.files().trust == enclosures::Trust::RootOrUser;
}

tl::expected<void, std::string> LinuxEnclosureSetup::add(const enclosures::Definition &definition)
{
    if (mayWrite())
        return enclosures::addDefinition(m_machine.files().definitionFolder, definition).map([&] {
            tellUdev();
        });
    return askForRoot({"add", definition.id, enclosures::textOf(definition)});
}

tl::expected<void, std::string> LinuxEnclosureSetup::remove(const std::string &id)
{
    if (mayWrite())
        return enclosures::removeDefinition(m_machine.files().definitionFolder, id).map([&] { tellUdev(); });
    return askForRoot({"remove", id});
}

tl::expected<void, std::string> LinuxEnclosureSetup::askForRoot(const std::vector<std::string> &words) const
{
    auto arguments = words;
    arguments.insert(arguments.begin(), m_programs.helper);
    posix::PosixCommandLauncher launcher(posix::Complaints::IntoTheOutput);
    const auto result = launcher.run(m_programs.pkexec, arguments);
    if (result.status == 0)
        return {};
    if (!result.status)
        return tl::unexpected(m_programs.pkexec + " cannot be started; run the terminal program with sudo");
    if (*result.status == Dismissed)
        return tl::unexpected(
            std::string("the question for the password was dismissed; nothing was written"));
    auto said = displayPath(result.output.substr(0, result.output.find('\n')));
    if (*result.status == NotAuthorized)
        return tl::unexpected("the right to write it was not given: " + said);
    return tl::unexpected(said.empty() ? "it could not be written" : said);
}

} // namespace orvana::platform::linux_host
