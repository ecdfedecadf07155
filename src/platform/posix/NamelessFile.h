#pragma once

#include "platform/posix/Descriptor.h"

#include <string>

namespace orvana::platform::posix
{

/// Opens an empty file without a name, for reading and writing. It lies in `folder` if possible, else in the
/// system's folder for temporary files, and it ends with the descriptor. If neither takes it, the descriptor
/// is not open and errno says why.
Descriptor openNamelessFile(const std::string &folder);

} // namespace orvana::platform::posix
