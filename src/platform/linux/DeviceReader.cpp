// This is the only file that enumerates devices through libudev.

#include "platform/linux/DeviceList.h"

#include <libudev.h>
#include <memory>

namespace orvana::platform::linux_host
{

namespace
{

struct Unref
{
    void operator()(udev *context) const { udev_unref(context); }
    void operator()(udev_enumerate *enumeration) const { udev_enumerate_unref(enumeration); }
    void operator()(udev_device *device) const { udev_device_unref(device); }
};

struct Subsystem
{
    const char *name;
    std::vector<const char *> attributes;
};

// The attributes that are read, by subsystem. Links between devices ("devlink") need no attributes, because
// their names say everything.
const std::vector<Subsystem> &subsystems()
{
    static const std::vector<Subsystem> all{
        {"thunderbolt", {"vendor", "device", "vendor_name", "device_name", "unique_id", "authorized"}},
        {"pci", {"vendor", "device", "class", "removable"}},
        {"block", {"size", "partition", "hidden", "diskseq", "serial", "wwid", "nsid", "loop/backing_file"}},
        {"ata_port", {"port_no"}},
        {"scsi", {"vendor", "model"}},
        {"usb", {"removable", "manufacturer", "product", "idVendor", "idProduct", "serial"}},
        {"sas_device", {"phy_identifier", "sas_address"}},
        {"sas_port", {"num_phys"}},
        {"firewire", {"vendor_name", "model_name"}},
        {"nvme", {"model", "serial"}},
        {"mmc", {"type", "name", "serial"}},
        {"devlink", {}},
    };
    return all;
}

std::string textOf(const char *text)
{
    return text ? text : std::string();
}

Device deviceOf(udev_device &source, const Subsystem &subsystem)
{
    Device device{.path = textOf(udev_device_get_syspath(&source)),
                  .subsystem = subsystem.name,
                  .type = textOf(udev_device_get_devtype(&source)),
                  .name = textOf(udev_device_get_sysname(&source)),
                  .properties = {},
                  .attributes = {},
                  .isInitialized = udev_device_get_is_initialized(&source) == 1,
                  .holders = {},
                  .slaves = {}};
    udev_list_entry *entry = nullptr;
    udev_list_entry_foreach(entry, udev_device_get_properties_list_entry(&source))
    {
        device.properties[udev_list_entry_get_name(entry)] = textOf(udev_list_entry_get_value(entry));
    }
    for (const char *name : subsystem.attributes) {
        if (const char *value = udev_device_get_sysattr_value(&source, name))
            device.attributes[name] = value;
    }
    if (device.subsystem == "block") {
        device.holders = namesIn(device.path + "/holders");
        device.slaves = namesIn(device.path + "/slaves");
    }
    return device;
}

} // namespace

DeviceList readDevices()
{
    DeviceList devices;
    const std::unique_ptr<udev, Unref> context(udev_new());
    if (!context)
        return devices;
    for (const auto &subsystem : subsystems()) {
        const std::unique_ptr<udev_enumerate, Unref> enumeration(udev_enumerate_new(context.get()));
        udev_enumerate_add_match_subsystem(enumeration.get(), subsystem.name);
        udev_enumerate_scan_devices(enumeration.get());
        udev_list_entry *entry = nullptr;
        udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumeration.get()))
        {
            // A device may disappear after the listing and before it is read.
            const std::unique_ptr<udev_device, Unref> device(
                udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(entry)));
            if (device)
                devices.add(deviceOf(*device, subsystem));
        }
    }
    return devices;
}

} // namespace orvana::platform::linux_host
