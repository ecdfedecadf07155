#pragma once

#include "platform/VolumeFiles.h"

#include <sys/stat.h>

namespace orvana::platform::posix
{

/// Converts the system's attributes to the program's, without the hidden-extension flag.
Attributes attributesOf(const struct stat &status);

} // namespace orvana::platform::posix
