#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

/// PCI names of the SATA controllers in the four-bay enclosures (vendor 0x1b21). The first has one port and
/// stands behind each of the bridges 0 to 3. The second has two ports and stands behind bridges 0 and 3.
inline constexpr std::string_view OnePortController = "pci1b21,612";
inline constexpr std::string_view TwoPortController = "pci1b21,625";

/// Returns the bay ("Slot-A" to "Slot-D") of a disk driver by its registry path; nullopt if no rule fits.
std::optional<std::string> bayOf(std::string_view registryPath);

} // namespace orvana
