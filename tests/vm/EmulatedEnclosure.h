#pragma once

#include "platform/linux/DeviceList.h"

namespace orvana::test
{

/// The devices of the virtual machine, and the devices that its emulator cannot make: a Thunderbolt host with
/// a four-bay enclosure. The switch below the root port is the PCI side of that enclosure. The emulated
/// controllers behind the switch get the number of the enclosure's controller. Disks, kernel names and events
/// come from the kernel.
platform::linux_host::DeviceList readEmulatedEnclosure();

} // namespace orvana::test
