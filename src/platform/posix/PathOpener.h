#pragma once

#include "platform/FileError.h"
#include "platform/VolumeFiles.h"
#include "platform/posix/Descriptor.h"

#include <string>
#include <string_view>

namespace orvana::platform::posix
{

/// Opens `path`, of any length, relative to the open folder `at`, with the flags of open(2).
///
/// With Reach::Beneath nothing outside of `at` is ever reached (see `Folder`). A path that is longer than the
/// system accepts is opened in several steps.
Expected<Descriptor> openPath(int at, std::string_view path, int flags, unsigned mode, Reach reach);

/// The last name of a path, and the open folder that holds it.
struct Entry
{
    Descriptor holder; ///< not open when the starting folder itself holds the name
    int at = -1;       ///< the folder to use with `name`
    std::string name;
};

/// Opens the folder that holds the last component of `path`.
Expected<Entry> openHolder(int at, std::string_view path, Reach reach);

} // namespace orvana::platform::posix
