#include "platform/linux/LinuxRegistry.h"

#include <algorithm>
#include <utility>

namespace orvana::platform::linux_host
{

namespace
{

constexpr const char *PciClass = "IOPCIDevice";

// A dock or a second one like it comes or goes, a definition is written, or a bridge gets another disk and
// says no more than that something changed.
bool mayChangeBays(const MachineEvent &event)
{
    if (event.subsystem == "usb")
        return event.type == "usb_device" && event.action != "change";
    return event.subsystem == DefinitionsChanged || (event.type == "disk" && event.action == "change");
}

/// The arrival of the disk in each bay of a definition, by `keyOf`.
std::map<std::string, std::string> disksOfBays(const MachineSnapshot &snapshot)
{
    std::map<std::string, std::string> disks;
    for (const auto &disk : snapshot.disks) {
        if (disk.definedBay)
            disks[keyOf(*disk.definedBay)] = disk.device->path + " " +
                                             std::to_string(disk.sequence.value_or(0)) + " " +
                                             std::to_string(disk.blocks);
    }
    return disks;
}

} // namespace

LinuxRegistry::LinuxRegistry(LinuxMachine &machine) : m_machine(machine)
{
    const auto snapshot = m_machine.snapshot();
    m_known = snapshot->tree.pci;
    m_bayDisks = disksOfBays(*snapshot);
    rememberControllers(*snapshot);
}

HardwareRegistry::Answer LinuxRegistry::match(const std::optional<RegistryMatching> &matching)
{
    if (!matching)
        return {RegistryBadArgument, {}};
    Answer answer;
    m_machine.snapshot()->tree.root->collect(*matching, answer.entries);
    return answer;
}

HardwareRegistry::Answer LinuxRegistry::watch(const std::string &className, RegistryEvent event,
                                              EventHandler handler)
{
    m_watches.push_back({className, event, std::move(handler)});
    return event == RegistryEvent::Published ? match(RegistryMatching{className, {}}) : Answer{};
}

std::vector<std::string> LinuxRegistry::remarks()
{
    return {m_machine.remarks().begin(), m_machine.remarks().end()};
}

void LinuxRegistry::take(const MachineEvent &event)
{
    const bool isDisk = event.subsystem == "block" && event.type == "disk";
    if (event.subsystem == "pci")
        takePci(event);
    else if (isDisk && event.action == "add")
        takeDisk(event);
    else if (isDisk && event.action == "remove")
        takeLostDisk(event);
    else if (mayChangeBays(event))
        lookAtBays();
}

void LinuxRegistry::takePci(const MachineEvent &event)
{
    if (event.action == "remove") {
        if (const auto gone = m_known.extract(event.path))
            tell(RegistryEvent::Terminated, gone.mapped());
        lookAtBays();
        return;
    }
    // "add" and "bind" report the same arrival.
    if ((event.action != "add" && event.action != "bind") || m_known.contains(event.path))
        return;
    // Devices that came together with this device are in the same snapshot. Their own events then need no
    // other snapshot.
    tellDifferences(*m_machine.snapshot());
}

void LinuxRegistry::takeDisk(const MachineEvent &event)
{
    const auto snapshot = m_machine.snapshot();
    tellDifferences(*snapshot);
    for (const auto &disk : snapshot->disks) {
        const auto controller = disk.device->path == event.path ? controllerOf(disk) : std::nullopt;
        if (controller && !isBayKey(*controller))
            tell(RegistryEvent::Published, snapshot->tree.pci.at(*controller));
    }
}

// The dock of a definition may have come or gone, or a second one like it, or a disk in a bay, or the
// definitions have changed. Without definitions there is nothing to look at.
void LinuxRegistry::lookAtBays()
{
    const bool hasBays =
        std::any_of(m_known.begin(), m_known.end(), [](const auto &known) { return isBayKey(known.first); });
    if (hasBays || m_machine.hasDefinitions())
        tellDifferences(*m_machine.snapshot());
}

void LinuxRegistry::tellDifferences(const MachineSnapshot &snapshot)
{
    tellLostBays(snapshot);
    tellNew(snapshot);
    tellChangedBays(snapshot);
}

// A bay may lose its disk, or get one, because of another disk: two at one bay are in none.
void LinuxRegistry::tellChangedBays(const MachineSnapshot &snapshot)
{
    const auto before = std::exchange(m_bayDisks, disksOfBays(snapshot));
    const auto diskAt = [](const auto &disks, const std::string &key) {
        const auto found = disks.find(key);
        return found == disks.end() ? std::string() : found->second;
    };
    for (const auto &[key, entry] : snapshot.tree.pci) {
        const auto disk = diskAt(m_bayDisks, key);
        if (disk != diskAt(before, key))
            tell(disk.empty() ? RegistryEvent::Terminated : RegistryEvent::Published, entry);
    }
}

void LinuxRegistry::tellNew(const MachineSnapshot &snapshot)
{
    rememberControllers(snapshot);
    const auto disks = disksOfBays(snapshot);
    for (const auto &device : snapshot.tree.pci) {
        if (!m_known.insert(device).second)
            continue;
        // A disk that is there from the start is told with its bay.
        if (const auto disk = disks.find(device.first); disk != disks.end())
            m_bayDisks.insert(*disk);
        tell(RegistryEvent::Published, device.second);
    }
}

void LinuxRegistry::tellLostBays(const MachineSnapshot &snapshot)
{
    std::vector<RegistryEntryPtr> lost;
    std::erase_if(m_known, [&](const auto &known) {
        const bool isLost = isBayKey(known.first) && !snapshot.tree.pci.contains(known.first);
        if (isLost)
            lost.push_back(known.second);
        return isLost;
    });
    for (const auto &entry : lost)
        tell(RegistryEvent::Terminated, entry);
}

// A disk can be taken out of its bay while the controller stays. When the controller goes as well, its disks
// go first, and each is reported.
void LinuxRegistry::takeLostDisk(const MachineEvent &event)
{
    const auto disk = m_controllers.extract(event.path);
    lookAtBays();
    if (!disk || isBayKey(disk.mapped()))
        return;
    if (const auto controller = m_known.find(disk.mapped()); controller != m_known.end())
        tell(RegistryEvent::Terminated, RegistryEntryPtr(controller->second));
}

// The kernel forgets where a disk was as soon as the disk is gone.
void LinuxRegistry::rememberControllers(const MachineSnapshot &snapshot)
{
    for (const auto &disk : snapshot.disks) {
        if (auto controller = controllerOf(disk))
            m_controllers[disk.device->path] = std::move(*controller);
    }
}

void LinuxRegistry::tell(RegistryEvent event, const RegistryEntryPtr &entry)
{
    const auto watches = m_watches; // a copy, because a handler may add a watch
    for (const auto &watch : watches) {
        if (watch.event == event && watch.className == PciClass)
            watch.handler({entry});
    }
}

} // namespace orvana::platform::linux_host
