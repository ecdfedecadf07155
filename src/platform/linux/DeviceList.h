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
    std::string type;                              ///< the kernel's DEVTYPE, or nothing
    std::string name;                              ///< last component of the path
    std::map<std::string, std::string> properties; ///< what the kernel and udev say
    std::map<std::string, std::string> attributes; ///< those that the program reads, without their newline
    bool isInitialized = false;                    ///< udev has an entry of it
    std::vector<std::string> holders;              ///< of a block device: names of what is built upon it
    std::vector<std::string> slaves;               ///< of a block device: names of what it is built from

    /// The property or attribute; nothing when the device has none.
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

    /// The device at the path, or null.
    const Device *at(const std::string &path) const;

    /// The nearest device of the subsystem above this one, or null.
    const Device *above(const Device &device, std::string_view subsystem) const;

    /// The devices of the same subsystem directly below this one.
    std::vector<const Device *> childrenOf(const Device &device) const;

    /// The block device with the kernel's name ("sda1"), the number ("8:17") or any node ("/dev/sda1", or a
    /// link to it); null when there is none.
    const Device *blockNamed(const std::string &name) const;
    const Device *blockNumbered(const std::string &number) const;
    const Device *blockAtNode(const std::string &node) const;

    /// Partitions of a whole disk, in the order of their numbers.
    std::vector<const Device *> partitionsOf(const Device &disk) const;

private:
    std::map<std::string, Device> m_devices;
    std::map<std::string, const Device *> m_blocksByName;
};

/// The part of a path above its last component.
std::string pathAbove(const std::string &path);

/// The number behind "0x", or plain; -1 when the text is none.
long hexNumber(const std::string &text);
long decimalNumber(const std::string &text);

/// The names of what is in a folder; none for one that is not there.
std::vector<std::string> namesIn(const std::filesystem::path &folder);

/// True when `path` lies below `above`.
bool isBelow(std::string_view path, std::string_view above);

/// The machine's devices as libudev finds them. Empty on a machine that shows none.
DeviceList readDevices();

} // namespace orvana::platform::linux_host
