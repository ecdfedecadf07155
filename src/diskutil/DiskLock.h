#pragma once

#include "diskutil/Outcome.h"

#include <cstdint>
#include <memory>

namespace orvana::diskutil
{

/// Locks the disk with this arrival number against every other erase and eject of this program on the
/// machine. The lock ends when the result is destroyed or the process ends. Refused while another erase or
/// eject holds the lock.
Outcome<std::shared_ptr<void>> holdDisk(std::uint64_t sequence);

} // namespace orvana::diskutil
