#pragma once

#include "platform/HardwareRegistry.h"
#include "platform/linux/LinuxMachine.h"
#include "platform/linux/MachineWatch.h"

namespace orvana::platform::linux_host
{

/// The machine's devices. A PCI device is published when it comes, and a storage controller once more with
/// each disk that comes to it: the disks follow their controller at some distance. In the same way a
/// controller is reported as terminated with each disk that leaves it.
class LinuxRegistry final : public HardwareRegistry
{
public:
    explicit LinuxRegistry(LinuxMachine &machine);

    Answer match(const std::optional<RegistryMatching> &matching) override;
    Answer watch(const std::string &className, RegistryEvent event, EventHandler handler) override;
    std::vector<std::string> remarks() override;

    /// Tells the watches what an event means for them.
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
    void rememberControllers(const MachineSnapshot &snapshot);
    void tell(RegistryEvent event, const RegistryEntryPtr &entry);

    LinuxMachine &m_machine;
    std::map<std::string, RegistryEntryPtr> m_known;  // PCI devices by path; the kernel forgets what has gone
    std::map<std::string, std::string> m_controllers; // of each disk, both by path
    std::vector<Watch> m_watches;
};

} // namespace orvana::platform::linux_host
