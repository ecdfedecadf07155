#pragma once

#include "platform/VolumeFiles.h"

#include <string>

namespace orvana::platform
{

/// Returns the content of a file, or its first `most` bytes.
Expected<std::string> readSmallFile(const Folder &folder, const std::string &name, std::size_t most);

/// Gives the file this content in one step: after a crash it has the old content or the new one. A file that
/// is not there is made for its owner alone, or with `permissions`.
Expected<void> replaceSmallFile(const Folder &folder, const std::string &name, const std::string &text,
                                std::uint32_t permissions = 0600);

/// Adds the text to a file that is there, and waits until it is on the disk.
Expected<void> appendToSmallFile(const Folder &folder, const std::string &name, const std::string &text);

} // namespace orvana::platform
