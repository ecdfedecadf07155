#pragma once

#include "platform/VolumeFiles.h"

namespace orvana::platform::posix
{

/// Returns the abilities of the file system of an open folder.
VolumeTraits traitsOf(int number);

} // namespace orvana::platform::posix
