#pragma once

#include <optional>

#include <string>

namespace orvana::platform::posix
{

/// True when the Finder information of the file says that its extension is hidden. This is bit 0x0010 of the
/// big-endian 16-bit flags at byte 8 of the 32-byte record. Other systems keep the record in the extended
/// attributes "user.com.apple.FinderInfo" and "osx.com.apple.FinderInfo". If `path` is a link, the link is
/// not followed.
bool hasHiddenExtension(const char *path);

/// True when the entry `name` of the open folder `at` has extended attributes of any kind. A link is not
/// followed. Returns nullopt when the system cannot tell (before Linux 6.13).
std::optional<bool> hasExtendedAttributes(int at, const char *name);

/// Marks the extension of the open file as hidden. Leaves the file as it is when the file system has no
/// extended attributes.
void setHiddenExtension(int descriptor);

} // namespace orvana::platform::posix
