#pragma once

#include "diskutil/Outcome.h"

#include <cstdint>
#include <memory>

namespace orvana::diskutil
{

/// Holds the disk of this arrival number against every other erase and eject of this program on the machine,
/// until the result is destroyed or the process ends. Refused while another one holds it.
Outcome<std::shared_ptr<void>> holdDisk(std::uint64_t sequence);

} // namespace orvana::diskutil
