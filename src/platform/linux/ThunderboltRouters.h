#pragma once

#include "platform/linux/DeviceList.h"

namespace orvana::platform::linux_host
{

/// The Thunderbolt router that a PCI device is behind.
struct RouterPlace
{
    enum class Answer {
        None,    ///< the device is not reached through Thunderbolt
        Found,   ///< behind `router`
        Unclear, ///< reached through Thunderbolt, but it is not known which router
    };

    Answer answer = Answer::None;
    const Device *router = nullptr;
};

/// Finds the router that a PCI device is behind. The kernel does not link the tree of routers and the tree of
/// PCI devices directly, so the answer follows from these rules.
///
/// A domain's host ports are the ports that its controller is linked to, or else the ports that share a
/// bridge with its controller. If only one router is attached, all devices below the host ports are behind
/// that router. In a chain, the n-th Thunderbolt bridge belongs to the n-th router, if every router has its
/// bridge. Otherwise, if there is only one four-bay enclosure, it is recognised by the only bridge that has
/// the controllers of an enclosure. When no rule gives a router, the answer is Unclear.
RouterPlace routerOfPci(const DeviceList &devices, const Device &pci);

/// Returns the routers of all domains, including the hosts' own. Other entries on the bus have similar names
/// and are left out.
std::vector<const Device *> routersOf(const DeviceList &devices);

/// The route string: one byte for each hop. The lowest byte is the port of the host. 0 for a host itself.
long routeOf(const Device &router);

/// The number of hops from the host, which is the number of bytes in the route.
int depthOf(const Device &router);

/// False while neither the user nor the system has authorised the device. Until then it shows no PCI devices.
bool isAuthorized(const Device &router);

/// True for the four-bay enclosures, which are recognised by their vendor and model numbers.
bool isFourBayEnclosure(const Device &router);

/// True when the device, or a bridge above it, can be unplugged.
bool isRemovable(const DeviceList &devices, const Device &pci);

/// True for a SATA controller of the kinds in our enclosures.
bool isBayController(const Device &pci);

/// True for the bridge directly above the downstream ports of one of our enclosures: the controllers behind
/// its ports are exactly those of a known model, each at its own slot number.
bool isEnclosureBridge(const DeviceList &devices, const Device &bridge);

bool isBridge(const Device &pci);

/// The number of the PCI device's slot on its bus, or -1 when its name has no slot number.
long slotNumberOf(const Device &pci);

} // namespace orvana::platform::linux_host
