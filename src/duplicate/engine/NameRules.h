#pragma once

#include "platform/VolumeFiles.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

// What volumes of each family can hold. The facts were tried on Linux 6.1 with its own exFAT, FAT and HFS+.

/// Returns why the volume cannot hold an entry of this name, in plain words; nullopt if it can.
std::optional<std::string> faultOfName(std::string_view name, platform::VolumeFamily family);

/// Returns a text that is the same for two names of one folder if the volume takes them for one. HFS+ also
/// takes names for one that write an accent in different ways; that is not recognised.
std::string keyOfName(std::string_view name, platform::VolumeFamily family);

/// Returns the size in bytes that a file may have; nullopt for no limit that a source could reach.
std::optional<std::uint64_t> largestFileOf(platform::VolumeFamily family);

} // namespace orvana
