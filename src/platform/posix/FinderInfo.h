#pragma once

#include <optional>

#include <string>

namespace orvana::platform::posix
{

/// True when the Finder information of the file says that its extension is hidden: bit 0x0010 of the
/// big-endian 16-bit flags at byte 8 of the 32-byte record, which other systems keep in the extended
/// attributes "user.com.apple.FinderInfo" and "osx.com.apple.FinderInfo". `path` is not followed if a link.
bool hasHiddenExtension(const char *path);

/// True when the entry `name` of the open folder `at`, not followed if it is a link, has extended attributes
/// of any kind; nothing where the system cannot tell (before Linux 6.13).
std::optional<bool> hasExtendedAttributes(int at, const char *name);

/// Marks the open file. A file system without extended attributes is left as it is.
void setHiddenExtension(int descriptor);

} // namespace orvana::platform::posix
