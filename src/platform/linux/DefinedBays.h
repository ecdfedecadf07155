#pragma once

#include "platform/linux/SystemState.h"

namespace orvana::platform::linux_host
{

/// Reads the enclosure definitions and finds the bay of each disk. This is the one rule for the scan, for
/// udev and for the disk utility. A disk that the system lays claim to is in no bay, and neither is a disk of
/// the maker's own enclosures. `system.defined` is not looked at.
DefinedBays findDefinedBays(const SystemState &system, const SystemFiles &files);

} // namespace orvana::platform::linux_host
