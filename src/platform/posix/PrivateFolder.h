#pragma once

#include <string>
#include <tl/expected.hpp>

namespace orvana::platform
{

/// Makes the folder and those above it, open to this user alone, unless it is there. Refused, with the path
/// and the reason, when it is a link, belongs to another user, or others may write to it: whoever can write
/// there decides what the program does with the files in it.
tl::expected<void, std::string> makePrivateFolder(const std::string &path);

/// The user's folder for what can be made again: "orvana-plurimo" below $XDG_CACHE_HOME, or below ".cache" in
/// the home folder.
std::string cacheFolder();

} // namespace orvana::platform
