#pragma once

#include "platform/HardwareRegistry.h"

#include <optional>
#include <string>

namespace orvana
{

class NotificationCenter;

/// Watches PCI devices come and go, and posts "TBDeviceAttached" and "TBDeviceDeattached" for the SATA
/// controllers of the four-bay enclosures. Used on the main thread. Watches until the registry ends.
class ThunderBoltMonitor
{
public:
    using Iterator = std::vector<platform::RegistryEntryPtr>;

    /// Registry and center must outlive the monitor. The monitor must outlive the registry's events.
    ThunderBoltMonitor(platform::HardwareRegistry &registry, NotificationCenter &center)
        : m_registry(registry), m_center(center)
    {
    }
    ThunderBoltMonitor(const ThunderBoltMonitor &) = delete;
    ThunderBoltMonitor &operator=(const ThunderBoltMonitor &) = delete;

    void MonitorInit() { registerForThunderboltNotifications(); }
    void registerForThunderboltNotifications();

    /// Post for each entry that counts as a controller. Before the monitor is primed, `tbDeviceAdded` posts
    /// nothing.
    void tbDeviceAdded(const Iterator &iterator);
    void tbDeviceRemoved(const Iterator &iterator);

    /// Returns the registry's name of the device; nullopt if the name cannot be read.
    static std::optional<std::string> devicenameForThunderboltObject(const platform::RegistryEntry &entry);

    /// The first four bytes of "device-id" or "vendor-id", in the host's byte order, as "0x%X\n".
    static std::string deviceIDForThunderboltObject(const platform::RegistryEntry &entry);
    static std::string vendorIDForThunderboltObject(const platform::RegistryEntry &entry);

private:
    void postForControllers(const Iterator &iterator, const char *notification);

    platform::HardwareRegistry &m_registry;
    NotificationCenter &m_center;
    bool m_notificationsArePrimed = false;
};

} // namespace orvana
