#pragma once

#include <string>
#include <tl/expected.hpp>

namespace orvana::platform::simulator
{

/// Writes the demo machine's file into `folder`, unless it exists, and returns its path. The machine has an
/// enclosure with a source, two formatted disks and a blank disk, an internal disk with the user's home, a
/// USB disk and a FireWire disk.
tl::expected<std::string, std::string> writeDemo(const std::string &folder);

} // namespace orvana::platform::simulator
