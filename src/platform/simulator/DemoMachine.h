#pragma once

#include <string>
#include <tl/expected.hpp>

namespace orvana::platform::simulator
{

/// Writes the demo machine's file into `folder`, unless it is there, and returns its path: an enclosure with
/// a source, two formatted disks and a blank one, an internal disk with the user's home, a USB and a FireWire
/// disk.
tl::expected<std::string, std::string> writeDemo(const std::string &folder);

} // namespace orvana::platform::simulator
