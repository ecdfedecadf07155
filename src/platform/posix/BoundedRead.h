#pragma once

#include "platform/FileError.h"

#include <optional>
#include <string>

namespace orvana::platform::posix
{

/// Reads an open file to its end. Returns nullopt when it has more than `most` bytes.
Expected<std::optional<std::string>> readAtMost(int descriptor, std::size_t most);

} // namespace orvana::platform::posix
