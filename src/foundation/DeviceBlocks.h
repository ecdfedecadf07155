#pragma once

#include <cstdint>

namespace orvana
{

/// The size in bytes of the blocks in which the kernel and the list of mounted volumes count. A device's own
/// blocks may have another size. Source: `block/stat` and `size` in the kernel's description of sysfs.
inline constexpr std::int64_t DeviceBlockBytes = 512;

} // namespace orvana
