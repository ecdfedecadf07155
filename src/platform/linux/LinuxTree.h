#pragma once

#include "platform/RegistryTree.h"
#include "platform/linux/DiskNames.h"

namespace orvana::platform::linux_host
{

/// The hardware registry of a machine.
struct LinuxTree
{
    std::shared_ptr<RegistryNode> root;
    std::map<std::string, RegistryEntryPtr> pci; ///< entries of PCI devices, by the kernel's path
};

/// Builds the registry: routers, PCI devices, disks and what is on them, in the order of the kernel's paths.
/// All disks must be bound in `names`.
LinuxTree makeTree(const SystemState &system, const std::vector<Disk> &disks, const DiskNames &names);

/// The registry's name of a PCI device that is no bridge: "pci1b21,612".
std::string pciNameOf(const Device &pci);

/// The piece of a disk beneath the start-up volume that stands for it where the piece itself is a member of a
/// set or group: "disk0s2s1".
std::string nameOfRootAbove(int number, const Partition &partition);

} // namespace orvana::platform::linux_host
