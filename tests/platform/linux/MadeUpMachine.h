#pragma once

#include "support/TemporaryTree.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvana::test
{

/// True when this process sees made-up devices in place of the machine's.
bool hasMadeUpDevices();

/// Starts the program again with made-up devices. Returns only if that is not possible.
void startWithMadeUpDevices(char **arguments);

/// The properties that a made-up disk reports.
struct MadeUpDisk
{
    std::string node; ///< "sda"
    std::string model = "WD Red";
    std::string serial = "SN1"; ///< empty for a disk that reports none
    std::uint64_t blocks = 7814037168;
    std::vector<std::string> properties{}; ///< more udev properties: "ID_PART_TABLE_TYPE=gpt"
};

/// The properties of a partition that udev has not examined yet.
inline const std::vector<std::string> Unexamined{"PARTN=1"};

/// A machine with made-up devices, which programs see through the interfaces of the kernel and of udev. Only
/// one such machine may exist at a time.
///
/// Paths are the kernel's, below "/sys"; functions that add a device return its path.
class MadeUpMachine
{
public:
    MadeUpMachine();
    ~MadeUpMachine();
    MadeUpMachine(const MadeUpMachine &) = delete;
    MadeUpMachine &operator=(const MadeUpMachine &) = delete;

    /// Adds a device with lines such as "A: vendor=0x41" (an attribute) and "E: DEVTYPE=disk" (a property).
    std::string add(const std::string &path, const std::string &subsystem,
                    const std::vector<std::string> &lines = {});

    /// Adds the devices of a record that umockdev made.
    void load(const std::string &file) const;

    /// Adds a PCI device. `above` is the path of another PCI device, or empty for the root bus. `name` is
    /// like "0000:02:01.0".
    std::string addPci(const std::string &above, const std::string &name, const std::string &vendor,
                       const std::string &device, const std::string &pciClass,
                       const std::vector<std::string> &lines = {});
    std::string addBridge(const std::string &above, const std::string &name,
                          const std::vector<std::string> &lines = {});

    /// Adds a controller with ports for disks, at `name` below a bridge.
    std::string addAhci(const std::string &above, const std::string &name, const std::string &vendor,
                        const std::string &device);

    /// Adds a Thunderbolt controller below `above`, with a domain and the host's own router; returns the
    /// router.
    std::string addThunderbolt(const std::string &above, const std::string &name, int domain = 0);

    /// Adds a router below another router, with its route ("301").
    std::string addRouter(const std::string &above, const std::string &route,
                          const std::string &vendor = "0x41", const std::string &model = "0x237",
                          const std::string &authorized = "1");

    /// Adds the bridges and controllers of an enclosure below a host port: the upper side, then one port for
    /// each controller. Bus numbers start at `bus`. Returns the path of the upper side.
    std::string addEnclosureBridges(const std::string &port, const std::string &controller, int bus);

    /// Returns the controller behind the bridge of that number, as `addEnclosureBridges` made it.
    std::string controllerOf(const std::string &upperSide, int bridge) const;

    /// Adds a disk on a port of a controller; ports count from 0.
    std::string addSataDisk(const std::string &controller, int port, const MadeUpDisk &disk);

    /// Adds a USB controller, with the root hub of that bus number; returns the root hub.
    std::string addUsbController(const std::string &name, int bus);

    /// Adds a USB device at a port of a hub: port 3 of "2-1" is "2-1.3". `ids` is like "2109:0817".
    std::string addUsb(const std::string &hub, int port, const std::string &ids,
                       const std::string &serial = {}, const std::string &removable = "removable");

    /// Adds a disk of a USB device; `lun` counts from 0.
    std::string addUsbDisk(const std::string &device, const MadeUpDisk &disk, int lun = 0);

    /// Adds an NVMe disk as the first namespace of a PCI device.
    std::string addNvmeDisk(const std::string &controller, const MadeUpDisk &disk);

    /// Adds a whole disk below any device, or a partition of a disk.
    std::string addBlock(const std::string &above, const MadeUpDisk &disk);
    std::string addPartition(const std::string &disk, int number,
                             const std::vector<std::string> &properties = {});

    /// Removes the device as the kernel does: the devices below it come first, and each removal is reported.
    void pull(const std::string &path);

    /// Reports an event of a device: "add", "bind" or "change".
    void tell(const std::string &path, const std::string &action);

    /// Makes a folder and a file in the made-up "/sys".
    void makeFolder(const std::string &path) const;

    /// Says that `node` ("sda1") is mounted at `point`. Other lines are kept.
    void mount(const std::string &node, const std::string &point, const std::string &type = "ext4");

    /// Adds the line to the mount table unchanged: "36 1 0:30 / / rw - btrfs /dev/sda2 rw".
    void mountLine(const std::string &line);
    void unmount(const std::string &point);
    void swapOn(const std::string &node) const;
    void swapOnFile(const std::string &path) const;

    std::string mountFile() const { return m_tree.path("mountinfo"); }
    std::string swapFile() const { return m_tree.path("swaps"); }

private:
    struct Testbed;

    std::string rootFolder() const;
    void letReadersKeepUp() const;
    void writeMounts() const;

    std::unique_ptr<Testbed> m_testbed;
    TemporaryTree m_tree;
    std::vector<std::string> m_paths; // in order of arrival
    std::vector<std::string> m_mounts;
    std::map<std::string, std::string> m_numbers; // of block devices, by node
    std::map<std::string, std::string> m_upperSides;
    int m_host = 0;
};

} // namespace orvana::test
