#include "platform/linux/ThunderboltRouters.h"

#include "platform/EnclosureModels.h"

#include <algorithm>
#include <map>
#include <set>

namespace orvana::platform::linux_host
{

namespace
{

using Devices = std::vector<const Device *>;

constexpr long Intel = 0x8086;
// Device numbers of the enclosures' SATA controllers, by their number of ports.
constexpr long OnePort = 0x612;
constexpr long TwoPort = 0x625;

// PCI numbers of the bridges in Intel's Thunderbolt chips.
bool isThunderboltBridge(const Device &pci)
{
    static const std::set<long> chips{0x1513, 0x151a, 0x151b, 0x1547, 0x1548, 0x1549, 0x1567, 0x1569,
                                      0x156b, 0x156d, 0x1576, 0x1578, 0x157e, 0x15c0, 0x15d3, 0x15da,
                                      0x15e7, 0x15ea, 0x15ef, 0x0b26, 0x1136, 0x5780, 0x5786};
    return hexNumber(pci.attribute("vendor")) == Intel && chips.contains(hexNumber(pci.attribute("device")));
}

bool isBelowAny(const Device &pci, const Devices &ports)
{
    return std::any_of(ports.begin(), ports.end(),
                       [&](const Device *port) { return isBelow(pci.path, port->path); });
}

// Adds the ports that the kernel links to the controller with "pci:CONTROLLER--pci:PORT".
void addLinkedPorts(const DeviceList &devices, const Device &controller, Devices &ports)
{
    const auto start = "pci:" + controller.name + "--pci:";
    const auto bridges = devices.ofSubsystem("pci");
    for (const auto *link : devices.ofSubsystem("devlink")) {
        if (!link->name.starts_with(start))
            continue;
        const auto name = link->name.substr(start.size());
        std::copy_if(bridges.begin(), bridges.end(), std::back_inserter(ports),
                     [&](const Device *bridge) { return bridge->name == name && isBridge(*bridge); });
    }
}

// On a separate chip, the controller is behind one port of the chip's bridge. The other ports of the bridge
// are the hot-plug ports.
void addPortsBeside(const DeviceList &devices, const Device &controller, Devices &ports)
{
    const auto *own = devices.above(controller, "pci");
    const auto *bridge = own ? devices.above(*own, "pci") : nullptr;
    if (!bridge || !isBridge(*bridge))
        return;
    for (const auto *port : devices.childrenOf(*bridge)) {
        if (port != own && isBridge(*port))
            ports.push_back(port);
    }
}

struct Domain
{
    Devices ports;   ///< where its PCI devices begin
    Devices routers; ///< authorised routers, without the host's own
};

std::vector<Domain> domainsOf(const DeviceList &devices)
{
    std::vector<Domain> domains;
    for (const auto *device : devices.ofType("thunderbolt_domain")) {
        Domain domain;
        if (const auto *controller = devices.above(*device, "pci")) {
            addLinkedPorts(devices, *controller, domain.ports);
            if (domain.ports.empty())
                addPortsBeside(devices, *controller, domain.ports);
        }
        for (const auto *router : routersOf(devices)) {
            if (isBelow(router->path, device->path) && routeOf(*router) != 0 && isAuthorized(*router))
                domain.routers.push_back(router);
        }
        domains.push_back(std::move(domain));
    }
    return domains;
}

int thunderboltBridgesAbove(const DeviceList &devices, const Device &pci, const Device &port)
{
    // Counted from the port downwards, every second bridge is the upper side of a switch.
    Devices bridges;
    for (const auto *above = &pci; above && above != &port; above = devices.above(*above, "pci")) {
        if (isBridge(*above))
            bridges.push_back(above);
    }
    int count = 0;
    for (std::size_t i = 0; i < bridges.size(); i += 2)
        count += isThunderboltBridge(*bridges[bridges.size() - 1 - i]) ? 1 : 0;
    return count;
}

int mostBridgesBelow(const DeviceList &devices, const Device &port)
{
    int most = 0;
    for (const auto *pci : devices.ofSubsystem("pci")) {
        if (isBelow(pci->path, port.path))
            most = std::max(most, thunderboltBridgesAbove(devices, *pci, port));
    }
    return most;
}

// For a chain, returns the router whose bridge is the nearest above the device. Returns null unless every
// router has a bridge.
const Device *routerInChain(const DeviceList &devices, const Domain &domain, const Device &pci)
{
    Devices byDepth(domain.routers.size(), nullptr);
    for (const auto *router : domain.routers) {
        const auto depth = static_cast<std::size_t>(depthOf(*router));
        if (depth > byDepth.size() || byDepth[depth - 1])
            return nullptr;
        byDepth[depth - 1] = router;
    }
    int most = 0;
    int own = 0;
    for (const auto *port : domain.ports) {
        most = std::max(most, mostBridgesBelow(devices, *port));
        if (isBelow(pci.path, port->path))
            own = thunderboltBridgesAbove(devices, pci, *port);
    }
    if (own < 1 || static_cast<std::size_t>(most) != byDepth.size())
        return nullptr;
    return byDepth[static_cast<std::size_t>(own) - 1];
}

// Returns the only four-bay enclosure of `routers`, if `candidates` holds only one enclosure bridge and the
// device is directly behind one of its ports. Otherwise returns null. A device further below may belong to
// another router.
const Device *loneEnclosure(const DeviceList &devices, const Devices &routers, const Devices &candidates,
                            const Device &pci)
{
    const auto router = std::find_if(routers.begin(), routers.end(),
                                     [](const Device *device) { return isFourBayEnclosure(*device); });
    if (std::count_if(routers.begin(), routers.end(),
                      [](const Device *device) { return isFourBayEnclosure(*device); }) != 1)
        return nullptr;
    Devices bridges;
    std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(bridges),
                 [&](const Device *bridge) { return isEnclosureBridge(devices, *bridge); });
    const auto *port = devices.above(pci, "pci");
    const bool isDirectly = bridges.size() == 1 && port && devices.above(*port, "pci") == bridges[0];
    return isDirectly ? *router : nullptr;
}

RouterPlace placeOf(const Device *router)
{
    return {router ? RouterPlace::Answer::Found : RouterPlace::Answer::Unclear, router};
}

RouterPlace placeInDomain(const DeviceList &devices, const Domain &domain, const Device &pci)
{
    if (domain.routers.size() == 1)
        return placeOf(domain.routers[0]);
    if (const auto *router = routerInChain(devices, domain, pci))
        return placeOf(router);
    auto candidates = devices.ofSubsystem("pci");
    std::erase_if(candidates, [&](const Device *device) { return !isBelowAny(*device, domain.ports); });
    return placeOf(loneEnclosure(devices, domain.routers, candidates, pci));
}

} // namespace

RouterPlace routerOfPci(const DeviceList &devices, const Device &pci)
{
    Devices routers;
    for (const auto &domain : domainsOf(devices)) {
        if (isBelowAny(pci, domain.ports))
            return placeInDomain(devices, domain, pci);
        routers.insert(routers.end(), domain.routers.begin(), domain.routers.end());
    }
    if (routers.empty() || !isRemovable(devices, pci))
        return {};
    // No host port of a domain is above the device, but the device can be unplugged.
    auto candidates = devices.ofSubsystem("pci");
    std::erase_if(candidates, [&](const Device *device) { return !isRemovable(devices, *device); });
    return placeOf(loneEnclosure(devices, routers, candidates, pci));
}

std::vector<const Device *> routersOf(const DeviceList &devices)
{
    auto routers = devices.ofType("thunderbolt_device");
    std::erase_if(routers, [](const Device *device) { return routeOf(*device) < 0; });
    return routers;
}

long routeOf(const Device &router)
{
    const auto dash = router.name.find('-');
    return dash == std::string::npos ? -1 : hexNumber(router.name.substr(dash + 1));
}

int depthOf(const Device &router)
{
    int depth = 0;
    for (auto route = routeOf(router); route > 0; route >>= 8)
        ++depth;
    return depth;
}

bool isAuthorized(const Device &router)
{
    return router.attribute("authorized") != "0";
}

bool isFourBayEnclosure(const Device &router)
{
    const auto model = hexNumber(router.attribute("device"));
    return hexNumber(router.attribute("vendor")) == MakerVendor && isFourBayModel(model);
}

bool isRemovable(const DeviceList &devices, const Device &pci)
{
    for (const auto *device = &pci; device; device = devices.above(*device, "pci")) {
        if (device->attribute("removable") == "removable")
            return true;
    }
    return false;
}

bool isBayController(const Device &pci)
{
    const auto number = hexNumber(pci.attribute("device"));
    return hexNumber(pci.attribute("vendor")) == 0x1b21 && (number == OnePort || number == TwoPort);
}

bool isEnclosureBridge(const DeviceList &devices, const Device &bridge)
{
    std::map<long, std::set<long>> places; // slot numbers, by the controllers' device number
    for (const auto *port : devices.childrenOf(bridge)) {
        for (const auto *controller : devices.childrenOf(*port)) {
            if (isBayController(*controller))
                places[hexNumber(controller->attribute("device"))].insert(slotNumberOf(*port));
        }
    }
    return places == std::map<long, std::set<long>>{{OnePort, {0, 1, 2, 3}}} ||
           places == std::map<long, std::set<long>>{{TwoPort, {0, 3}}};
}

bool isBridge(const Device &pci)
{
    return pci.attribute("class").starts_with("0x0604");
}

long slotNumberOf(const Device &pci)
{
    // "0000:02:1f.3"
    const auto colon = pci.name.rfind(':');
    const auto dot = pci.name.rfind('.');
    if (colon == std::string::npos || dot == std::string::npos || dot < colon)
        return -1;
    return hexNumber(pci.name.substr(colon + 1, dot - colon - 1));
}

} // namespace orvana::platform::linux_host
