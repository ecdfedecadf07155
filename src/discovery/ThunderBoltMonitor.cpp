#include "discovery/ThunderBoltMonitor.h"

#include "discovery/BayTable.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "foundation/SystemLog.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace orvana
{

using platform::RegistryEntry;
using platform::RegistryEvent;

namespace
{

constexpr const char *PciDevice = "IOPCIDevice";

// A name that cannot be read counts as a controller: a missed change is worse than an unnecessary rescan.
bool isEnclosureController(const std::optional<std::string> &name)
{
    return !name || name->find(OnePortController) != std::string::npos ||
           name->find(TwoPortController) != std::string::npos;
}

bool isAscii(const std::string &text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string numberIn(const RegistryEntry &entry, const char *key, const char *unknown)
{
    const auto data = platform::valueOf<std::vector<std::uint8_t>>(entry.properties(), key);
    std::uint32_t number = 0;
    if (!data || data->size() < sizeof number)
        return unknown;
    std::memcpy(&number, data->data(), sizeof number);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%X\n", number);
    return text.data();
}

} // namespace

void ThunderBoltMonitor::registerForThunderboltNotifications()
{
    const auto added = m_registry.watch(PciDevice, RegistryEvent::Published,
                                        [this](const Iterator &iterator) { tbDeviceAdded(iterator); });
    if (added.status != platform::RegistrySuccess)
        systemLog("matching notification registration failed: " + std::to_string(added.status) + ")");
    tbDeviceAdded(added.entries);
    const auto removed = m_registry.watch(PciDevice, RegistryEvent::Terminated,
                                          [this](const Iterator &iterator) { tbDeviceRemoved(iterator); });
    if (removed.status == platform::RegistrySuccess)
        tbDeviceRemoved(removed.entries);
    else
        systemLog("Couldn't add device removal notification");
    m_notificationsArePrimed = true;
}

void ThunderBoltMonitor::postForControllers(const Iterator &iterator, const char *notification)
{
    for (const auto &entry : iterator) {
        if (isEnclosureController(devicenameForThunderboltObject(*entry)))
            m_center.post(notification);
    }
}

void ThunderBoltMonitor::tbDeviceAdded(const Iterator &iterator)
{
    if (m_notificationsArePrimed)
        postForControllers(iterator, notification::TBDeviceAttached);
}

void ThunderBoltMonitor::tbDeviceRemoved(const Iterator &iterator)
{
    postForControllers(iterator, notification::TBDeviceDeattached);
}

std::optional<std::string> ThunderBoltMonitor::devicenameForThunderboltObject(const RegistryEntry &entry)
{
    auto name = entry.name();
    if (!name) {
        systemLog("Could not get name for Thunderbolt object: IORegistryEntryGetName returned 0xe00002c2");
        return std::nullopt;
    }
    return isAscii(*name) ? name : "Unnamed Thunderbolt Device";
}

std::string ThunderBoltMonitor::deviceIDForThunderboltObject(const RegistryEntry &entry)
{
    return numberIn(entry, "device-id", "Unknow device-id Thunderbolt Device");
}

std::string ThunderBoltMonitor::vendorIDForThunderboltObject(const RegistryEntry &entry)
{
    return numberIn(entry, "vendor-id", "Unknow vendor-id Thunderbolt Device");
}

} // namespace orvana
