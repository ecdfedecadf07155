#pragma once

#include "diskutil/RawDisk.h"

#include <optional>
#include <string>

namespace orvana::diskutil
{

/// Finds out whether a disk holds what it says. Writes some 64 marked blocks of 4 KiB all over it, reads them
/// back, writes 64 MiB elsewhere, and reads them once more, because a disk's own memory may have answered
/// first. What the disk held at these places is lost.
///
/// Returns nullopt for a disk that keeps everything, or what it does wrong: "what was written at 512.00 MB is
/// not there". Takes less than a second, and the time for 64 MiB.
///
/// A fake is found that loses what is written beyond its end, gives errors there, or wraps around at a power
/// of two or at a half, a quarter and so on of its size, if its own memory is smaller than 64 MiB.
std::optional<std::string> capacityLieOf(RawDisk &disk);

} // namespace orvana::diskutil
