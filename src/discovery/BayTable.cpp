#include "discovery/BayTable.h"

namespace orvana
{

namespace
{

struct BayRule
{
    std::string_view controller;
    std::string_view bridge;
    std::string_view port; ///< empty if the bridge alone decides
    const char *bay;
};

// The first rule that fits decides. No rule uses bridges 1 and 2 of the two-port controller.
constexpr BayRule Rules[] = {
    {OnePortController, "pci-bridge@0/IOPP/pci1b21,612", "", "Slot-A"},
    {OnePortController, "pci-bridge@1/IOPP/pci1b21,612", "", "Slot-B"},
    {OnePortController, "pci-bridge@2/IOPP/pci1b21,612", "", "Slot-C"},
    {OnePortController, "pci-bridge@3/IOPP/pci1b21,612", "", "Slot-D"},
    {TwoPortController, "pci-bridge@0/IOPP/pci1b21,625", "PRT0@0/", "Slot-A"},
    {TwoPortController, "pci-bridge@0/IOPP/pci1b21,625", "PRT1@1/", "Slot-B"},
    {TwoPortController, "pci-bridge@3/IOPP/pci1b21,625", "PRT0@0/", "Slot-C"},
    {TwoPortController, "pci-bridge@3/IOPP/pci1b21,625", "PRT1@1/", "Slot-D"},
};

bool contains(std::string_view path, std::string_view piece)
{
    return path.find(piece) != std::string_view::npos;
}

} // namespace

std::optional<std::string> bayOf(std::string_view registryPath)
{
    // A path that contains the one-port controller is never compared with the rules of the two-port
    // controller.
    const auto controller = contains(registryPath, OnePortController) ? OnePortController : TwoPortController;
    for (const auto &rule : Rules) {
        if (rule.controller == controller && contains(registryPath, rule.bridge) &&
            contains(registryPath, rule.port))
            return rule.bay;
    }
    return std::nullopt;
}

} // namespace orvana
