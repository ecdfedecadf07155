#pragma once

#include "platform/linux/DeviceList.h"

namespace orvana::test
{

/// The devices of the virtual machine, with what its emulator cannot make: a Thunderbolt host with a four-bay
/// enclosure on it, of which the switch below the root port is the PCI side. The emulated controllers behind
/// that switch go by the number of the enclosure's own; disks, kernel names and events are the kernel's.
platform::linux_host::DeviceList readEmulatedEnclosure();

} // namespace orvana::test
