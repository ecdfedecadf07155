#pragma once

#include "platform/VolumeFiles.h"

#include <string>
#include <string_view>

namespace orvana
{

/// The end of the name of whatever is not finished. Checkers read every file that ends with ".mhl", and every
/// folder called "ascmhl".
inline constexpr std::string_view UnfinishedEnd = ".part";

/// Removes the folder of a history that was never finished. Leaves everything as it is if the folder is a
/// link, or holds anything but manifests and a chain.
void removeUnfinishedHistory(platform::Folder &volume, const std::string &path);

/// Removes the regular files of the folder that a run has left unfinished: manifests and chains in a history,
/// checksum files of ours elsewhere.
void removeLeftovers(platform::Folder &volume, const std::string &folder);

} // namespace orvana
