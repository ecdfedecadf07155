#pragma once

#include "platform/HardwareRegistry.h"
#include "platform/linux/LinuxMachine.h"
#include "platform/linux/MachineWatch.h"

namespace orvana::platform::linux_host
{

/// The machine's devices. A PCI device is reported as published when it comes. Disks come some time after
/// their storage controller, so the controller is reported as published again with each disk that comes. In
/// the same way a controller is reported as terminated with each disk that leaves it. Each bay of an
/// enclosure definition has a controller that comes and goes with the enclosure.
class LinuxRegistry final : public HardwareRegistry
{
public:
    explicit LinuxRegistry(LinuxMachine &machine);

    Answer match(const std::optional<RegistryMatching> &matching) override;
    Answer watch(const std::string &className, RegistryEvent event, EventHandler handler) override;
    std::vector<std::string> remarks() override;

    /// Reports an event of the machine to the watches.
    void take(const MachineEvent &event);

private:
    struct Watch
    {
        std::string className;
        RegistryEvent event;
        EventHandler handler;
    };

    void takePci(const MachineEvent &event);
    void takeDisk(const MachineEvent &event);
    void takeLostDisk(const MachineEvent &event);
    void lookAtBays();
    void tellDifferences(const MachineSnapshot &snapshot);
    void tellNew(const MachineSnapshot &snapshot);
    void tellLostBays(const MachineSnapshot &snapshot);
    void tellChangedBays(const MachineSnapshot &snapshot);
    void rememberControllers(const MachineSnapshot &snapshot);
    void tell(RegistryEvent event, const RegistryEntryPtr &entry);

    LinuxMachine &m_machine;
    std::map<std::string, RegistryEntryPtr> m_known;  // see LinuxTree::pci; the kernel forgets lost devices
    std::map<std::string, std::string> m_controllers; // controller's path by the disk's path
    std::map<std::string, std::string> m_bayDisks;    // arrival of the disk in each bay of a definition
    std::vector<Watch> m_watches;
};

} // namespace orvana::platform::linux_host
