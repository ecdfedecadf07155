// This is the only file that reads devices through libudev.

#include "platform/linux/DeviceList.h"

#include <filesystem>
#include <libudev.h>
#include <memory>

namespace orvana::platform::linux_host
{

namespace
{

struct Unref
{
    void operator()(udev *context) const { udev_unref(context); }
    void operator()(udev_device *device) const { udev_device_unref(device); }
};

struct Subsystem
{
    const char *name;
    std::vector<const char *> attributes;
};

// The attributes that are read, by subsystem.
const std::vector<Subsystem> &subsystems()
{
    static const std::vector<Subsystem> all{
        {"thunderbolt", {"vendor", "device", "vendor_name", "device_name", "unique_id", "authorized"}},
        {"pci", {"vendor", "device", "class", "removable"}},
        {"block", {"size", "partition", "hidden", "diskseq", "serial", "wwid", "nsid", "loop/backing_file"}},
        {"ata_port", {"port_no"}},
        {"scsi", {"vendor", "model"}},
        {"usb", {"removable", "manufacturer", "product", "idVendor", "idProduct", "serial", "version"}},
        {"sas_device", {"phy_identifier", "sas_address"}},
        {"sas_port", {"num_phys"}},
        {"firewire", {"vendor_name", "model_name"}},
        {"nvme", {"model", "serial"}},
        {"mmc", {"type", "name", "serial"}},
    };
    return all;
}

// Reading an attribute opens a file, and udev asks about each disk. So nothing is read that no answer needs.
bool hasAttributes(const Device &device)
{
    if (device.subsystem == "usb")
        return device.type == "usb_device";
    if (device.subsystem == "scsi")
        return device.type == "scsi_device";
    return !device.name.starts_with("ram");
}

// Returns the paths of a subsystem's devices. libudev's own listing asks the kernel twice as much as the
// reading of the devices, because it looks at each of them once more.
std::vector<std::string> pathsOf(const std::string &subsystem)
{
    std::vector<std::string> paths;
    for (const auto &folder : {"/sys/bus/" + subsystem + "/devices", "/sys/class/" + subsystem}) {
        for (const auto &name : namesIn(folder)) {
            std::error_code error;
            auto target = std::filesystem::read_symlink(std::filesystem::path(folder) / name, error).native();
            while (target.starts_with("../"))
                target.erase(0, 3);
            if (!error)
                paths.push_back("/sys/" + target);
        }
    }
    return paths;
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
                  .isInitialized = false,
                  .holders = {},
                  .slaves = {}};
    for (const char *name : subsystem.attributes) {
        if (!hasAttributes(device))
            break;
        if (const char *value = udev_device_get_sysattr_value(&source, name))
            device.attributes[name] = value;
    }
    if (device.subsystem == "block") {
        device.isInitialized = udev_device_get_is_initialized(&source) == 1;
        udev_list_entry *entry = nullptr;
        udev_list_entry_foreach(entry, udev_device_get_properties_list_entry(&source))
        {
            device.properties[udev_list_entry_get_name(entry)] = textOf(udev_list_entry_get_value(entry));
        }
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
        for (const auto &path : pathsOf(subsystem.name)) {
            // A device may disappear after the listing and before it is read.
            const std::unique_ptr<udev_device, Unref> device(
                udev_device_new_from_syspath(context.get(), path.c_str()));
            if (device)
                devices.add(deviceOf(*device, subsystem));
        }
    }
    // A link between two devices says everything by its name.
    for (const auto &name : namesIn("/sys/class/devlink")) {
        Device link;
        link.path = "/sys/class/devlink/" + name;
        link.subsystem = "devlink";
        link.name = name;
        devices.add(std::move(link));
    }
    return devices;
}

} // namespace orvana::platform::linux_host
