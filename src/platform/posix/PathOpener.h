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
/// With Reach::Beneath nothing outside of `at` is ever reached (see `Folder`). A path longer than the
/// system takes at once is walked piece by piece.
Expected<Descriptor> openPath(int at, std::string_view path, int flags, unsigned mode, Reach reach);

/// An open folder and the one name beneath it that a path ends with.
struct Entry
{
    Descriptor holder; ///< none when the name stands directly beneath the starting folder
    int at = -1;       ///< the folder to use with `name`
    std::string name;
};

/// Opens the folder that holds the last component of `path`.
Expected<Entry> openHolder(int at, std::string_view path, Reach reach);

} // namespace orvana::platform::posix
