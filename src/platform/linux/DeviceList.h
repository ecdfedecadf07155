#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orvana::platform::linux_host
{

/// One device of the kernel, as it was when it was read. All texts are the kernel's own bytes.
struct Device
{
    std::string path;                              ///< "/sys/devices/..."
    std::string subsystem;                         ///< "block", "pci", "thunderbolt"
    std::string type;                              ///< the kernel's DEVTYPE, or empty
    std::string name;                              ///< last component of the path
    std::map<std::string, std::string> properties; ///< from the kernel and udev; of block devices only
    std::map<std::string, std::string> attributes; ///< those that are read, without their newline
    bool isInitialized = false;                    ///< udev has an entry for the block device
    std::vector<std::string> holders;              ///< for a block device: names of the devices built upon it
    std::vector<std::string> slaves;               ///< for a block device: names of the devices beneath it

    /// Returns the property or attribute, or an empty text when the device does not have it.
    std::string property(const std::string &key) const;
    std::string attribute(const std::string &key) const;
};

/// The devices of a machine, in the order of their paths. Pointers to devices live as long as the list.
class DeviceList
{
public:
    DeviceList() = default;
    DeviceList(DeviceList &&) = default;
    DeviceList &operator=(DeviceList &&) = default;

    void add(Device device);

    std::vector<const Device *> ofSubsystem(std::string_view subsystem) const;
    std::vector<const Device *> ofType(std::string_view type) const;

    /// Returns the device at the path, or null.
    const Device *at(const std::string &path) const;

    /// Returns the nearest device of the subsystem above `device`, or null.
    const Device *above(const Device &device, std::string_view subsystem) const;

    /// Returns the devices of the same subsystem directly below `device`.
    std::vector<const Device *> childrenOf(const Device &device) const;

    /// Returns the block device with the kernel's name ("sda1"), with the number ("8:17"), or with any node
    /// ("/dev/sda1", or a link to it). Returns null when there is no such device.
    const Device *blockNamed(const std::string &name) const;
    const Device *blockNumbered(const std::string &number) const;
    const Device *blockAtNode(const std::string &node) const;

    /// Returns the partitions of a whole disk, in the order of their numbers.
    std::vector<const Device *> partitionsOf(const Device &disk) const;

private:
    std::map<std::string, Device> m_devices;
    std::map<std::string, const Device *> m_blocksByName;
};

/// Returns the part of a path before its last component.
std::string pathAbove(const std::string &path);

/// Parses a hexadecimal number, with or without "0x", or a decimal number. Returns -1 when the text is no
/// number.
long hexNumber(const std::string &text);
long decimalNumber(const std::string &text);

/// Returns the names of a folder's entries, or an empty list when the folder is missing.
std::vector<std::string> namesIn(const std::filesystem::path &folder);

/// True when `path` lies below `above`.
bool isBelow(std::string_view path, std::string_view above);

/// Returns the machine's devices as libudev finds them. The list is empty when libudev finds no devices.
DeviceList readDevices();

} // namespace orvana::platform::linux_host
