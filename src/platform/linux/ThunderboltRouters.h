#pragma once

#include "platform/linux/DeviceList.h"

namespace orvana::platform::linux_host
{

/// Which Thunderbolt router a PCI device sits behind.
struct RouterPlace
{
    enum class Answer {
        None,    ///< it is not reached through Thunderbolt
        Found,   ///< behind `router`
        Unclear, ///< through Thunderbolt, but which router cannot be told
    };

    Answer answer = Answer::None;
    const Device *router = nullptr;
};

/// The kernel links the two trees nowhere directly. So: a domain's host ports are those that its controller
/// is linked to, or that share a bridge with it; below them a lone router is the one; in a chain the n-th
/// Thunderbolt bridge is the n-th router's, if all routers are accounted for; else a lone four-bay enclosure
/// is known by a lone bridge with the controllers of one. What none of this settles is unclear.
RouterPlace routerOfPci(const DeviceList &devices, const Device &pci);

/// Routers of all domains, the hosts' own included; other things on the bus have similar names.
std::vector<const Device *> routersOf(const DeviceList &devices);

/// The route string: one byte a hop, the lowest byte the port of the host. 0 for a host itself.
long routeOf(const Device &router);

/// Hops from the host: bytes of the route.
int depthOf(const Device &router);

/// False while the user or the system has not let the device in; it then shows no PCI devices.
bool isAuthorized(const Device &router);

/// True for the four-bay enclosures, by the numbers of maker and models.
bool isFourBayEnclosure(const Device &router);

/// True when the device, or a bridge above it, can be unplugged.
bool isRemovable(const DeviceList &devices, const Device &pci);

/// True for a SATA controller of the kinds in our enclosures.
bool isBayController(const Device &pci);

/// True for the bridge directly above the downstream ports of one of our enclosures: the controllers behind
/// its ports are exactly those of a known model, each in its place.
bool isEnclosureBridge(const DeviceList &devices, const Device &bridge);

bool isBridge(const Device &pci);

/// The number that the slot of a PCI device has on its bus.
long slotNumberOf(const Device &pci);

} // namespace orvana::platform::linux_host
