#include "EmulatedEnclosure.h"

namespace orvana::test
{

namespace
{

using platform::linux_host::Device;
using platform::linux_host::DeviceList;

// Vendor and device numbers of the emulator's root port, of its SATA controller and of the enclosure's
// controller.
constexpr const char *RootPort[] = {"0x1b36", "0x000c"};
constexpr const char *EmulatedController[] = {"0x8086", "0x2922"};
constexpr const char *BayController[] = {"0x1b21", "0x0612"};

bool hasNumbers(const Device &device, const char *const (&numbers)[2])
{
    return device.attribute("vendor") == numbers[0] && device.attribute("device") == numbers[1];
}

Device made(const std::string &path, const std::string &subsystem, const std::string &type,
            std::map<std::string, std::string> attributes)
{
    return {.path = path,
            .subsystem = subsystem,
            .type = type,
            .name = path.substr(path.rfind('/') + 1),
            .properties = {},
            .attributes = std::move(attributes),
            .isInitialized = true,
            .holders = {},
            .slaves = {}};
}

void addThunderbolt(DeviceList &devices, const Device &port)
{
    const std::string controller = "/sys/devices/pci0000:00/0000:00:1f.7";
    devices.add(
        made(controller, "pci", {}, {{"vendor", "0x8086"}, {"device", "0x9a1b"}, {"class", "0x0c0340"}}));
    devices.add(made("/sys/devices/virtual/devlink/pci:0000:00:1f.7--pci:" + port.name, "devlink", {}, {}));
    const auto domain = controller + "/domain0";
    devices.add(made(domain, "thunderbolt", "thunderbolt_domain", {}));
    devices.add(made(domain + "/0-0", "thunderbolt", "thunderbolt_device",
                     {{"vendor", "0x8086"}, {"device", "0x1"}, {"unique_id", "host"}, {"authorized", "1"}}));
    devices.add(made(domain + "/0-0/0-1", "thunderbolt", "thunderbolt_device",
                     {{"vendor", "0x41"},
                      {"device", "0x237"},
                      {"vendor_name", "Orvana"},
                      {"device_name", "Four Bay"},
                      {"unique_id", "emulated"},
                      {"authorized", "1"}}));
}

} // namespace

DeviceList readEmulatedEnclosure()
{
    DeviceList devices;
    const auto machine = platform::linux_host::readDevices();
    const Device *port = nullptr;
    for (const auto *device : machine.ofSubsystem("pci")) {
        if (hasNumbers(*device, RootPort))
            port = device;
    }
    for (const char *subsystem : {"pci", "block", "ata_port", "scsi"}) {
        for (const auto *device : machine.ofSubsystem(subsystem)) {
            auto copy = *device;
            if (port && hasNumbers(copy, EmulatedController) &&
                platform::linux_host::isBelow(copy.path, port->path)) {
                copy.attributes["vendor"] = BayController[0];
                copy.attributes["device"] = BayController[1];
            }
            devices.add(std::move(copy));
        }
    }
    if (port)
        addThunderbolt(devices, *port);
    return devices;
}

} // namespace orvana::test
