#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

/// PCI names of the SATA controllers in the four-bay enclosures (vendor 0x1b21): one with a port for each
/// disk behind bridges 0 to 3, one with two ports behind bridges 0 and 3.
inline constexpr std::string_view OnePortController = "pci1b21,612";
inline constexpr std::string_view TwoPortController = "pci1b21,625";

/// The bay ("Slot-A" to "Slot-D") of a disk driver by its registry path; nothing when no rule fits.
std::optional<std::string> bayOf(std::string_view registryPath);

} // namespace orvana
