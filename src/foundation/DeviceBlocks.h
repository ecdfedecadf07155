#pragma once

#include <cstdint>

namespace orvana
{

/// Bytes of the blocks in which the kernel and the list of mounted volumes count sizes, whatever a device's
/// own blocks are. See `block/stat` and `size` in the kernel's description of sysfs.
inline constexpr std::int64_t DeviceBlockBytes = 512;

} // namespace orvana
