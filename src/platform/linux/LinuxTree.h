#pragma once

#include "platform/RegistryTree.h"
#include "platform/linux/DiskNames.h"

namespace orvana::platform::linux_host
{

/// The hardware registry of a machine.
struct LinuxTree
{
    std::shared_ptr<RegistryNode> root;
    /// Entries of PCI devices by the kernel's path, and of the controllers of defined bays by `keyOf`.
    std::map<std::string, RegistryEntryPtr> pci;
};

/// Returns the key in `LinuxTree::pci` of the controller that the disk is on, or nullopt when it is on none.
std::optional<std::string> controllerOf(const Disk &disk);

/// Builds the registry: routers, PCI devices, disks and their content, in the order of the kernel's paths.
/// All disks must be bound in `names`.
LinuxTree makeTree(const SystemState &system, const std::vector<Disk> &disks, const DiskNames &names);

/// The registry's name of a PCI device that is not a bridge: "pci1b21,612".
std::string pciNameOf(const Device &pci);

/// The name of the entry that stands for the start-up volume when the partition beneath it is itself a member
/// of a set or group: "disk0s2s1".
std::string nameOfRootAbove(int number, const Partition &partition);

} // namespace orvana::platform::linux_host
