#pragma once

#include "platform/VolumeFiles.h"

#include <sys/stat.h>

namespace orvana::platform::posix
{

/// The program's attributes from the system's, without the hidden-extension flag.
Attributes attributesOf(const struct stat &status);

} // namespace orvana::platform::posix
