#pragma once

#include "enclosures/BayClaims.h"
#include "platform/linux/DeviceList.h"

namespace orvana::platform::linux_host
{

/// Returns the place of a disk in the form of udev's ID_PATH, worked out from the kernel's own tree:
/// "pci-0000:00:17.0-ata-3.0". udev's property is not used, because rules ask before udev sets it. Empty when
/// the disk is connected in a way that no bay can have (Fibre Channel, iSCSI), or not by way of PCI.
std::string idPathOf(const DeviceList &devices, const Device &disk);

/// Returns every name of the place of a disk. Its `disk` is the kernel's path.
enclosures::DiskPlace placeOfDisk(const DeviceList &devices, const Device &disk);

/// Returns the devices from which definitions may count ports: USB devices and PCI devices, with the kernel's
/// paths as keys. The lower sides of a PCI switch count as one device with its upper side. USB devices that
/// are built into the machine are there, but not allowed.
std::vector<enclosures::AnchorDevice> anchorDevicesOf(const DeviceList &devices);

} // namespace orvana::platform::linux_host
