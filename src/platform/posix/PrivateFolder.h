#pragma once

#include <string>
#include <tl/expected.hpp>

namespace orvana::platform
{

/// Makes the folder, with access for this user alone, unless it exists. Missing folders above it are made
/// with the usual permissions. Fails with the path and the reason when the folder is a link, belongs to
/// another user, or can be written to by others. Whoever can write to the folder decides what the program
/// does with the files in it.
tl::expected<void, std::string> makePrivateFolder(const std::string &path);

/// Returns the user's folder for files that can be made again: "orvana-plurimo" below $XDG_CACHE_HOME, or
/// below ".cache" in the home folder.
std::string cacheFolder();

/// Returns the folder for what the program remembers from run to run: "orvana-plurimo" below $XDG_STATE_HOME,
/// or below ".local/state" in this home folder.
std::string stateFolder(const std::string &home);

} // namespace orvana::platform
