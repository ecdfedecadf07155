#pragma once

#include "enclosures/BayClaims.h"
#include "enclosures/DefinitionFolder.h"
#include "platform/linux/DeviceList.h"
#include "platform/linux/Mounts.h"

#include <functional>
#include <map>
#include <optional>
#include <set>

namespace orvana::platform::linux_host
{

/// The sources from which the machine's devices and tables are read. Tests name their own.
struct SystemFiles
{
    std::string mounts = "/proc/self/mountinfo";
    std::string swaps = "/proc/swaps";
    /// Holds one folder for each file system, and in each of these a folder "devices".
    std::string btrfs = "/sys/fs/btrfs";
    std::function<DeviceList()> devices = readDevices;
    /// Holds an entry for each Thunderbolt device, and none on a machine without Thunderbolt.
    std::string thunderbolt = "/sys/bus/thunderbolt/devices";
    /// Holds the enclosure definitions, and who may have written them.
    std::string definitionFolder = enclosures::SystemFolder;
    enclosures::Trust trust = enclosures::Trust::Root;
    /// Holds the system's own tables of disks, such as "fstab".
    std::string tables = "/etc";

    enclosures::DefinitionSet definitions() const
    {
        return enclosures::readDefinitions(definitionFolder, trust);
    }
};

/// The bay of an enclosure definition.
struct DefinedBay
{
    const enclosures::Definition *definition;
    char bay; ///< 'A' to 'D'
};

/// Returns a text that stands for the bay wherever the kernel's path of a device would stand:
/// "enclosure:desk-dock/A".
std::string keyOf(const DefinedBay &bay);

/// True for a text that `keyOf` returned.
bool isBayKey(const std::string &key);

/// The enclosure definitions and what they mean for the devices that are there.
struct DefinedBays
{
    std::vector<enclosures::Definition> definitions;  ///< all that were read
    std::vector<bool> isPresent;                      ///< for each of them: the enclosure is there
    std::map<std::string, enclosures::BayClaim> bays; ///< by the kernel's path of the disk
    std::vector<std::string> remarks; ///< definitions and disks that do not count, with the reasons

    std::optional<DefinedBay> bayOf(const Device &disk) const;
};

/// Devices and mounts as they were at one time.
struct SystemState
{
    DeviceList devices;
    std::vector<Mount> mounts;
    std::set<std::string> swaps; ///< kernel names of block devices that are used as swap, or hold a swap file
    /// For each file system in use that lies on several devices: the kernel names of these devices.
    std::vector<std::set<std::string>> pools;
    /// Kernel names of the partitions and whole disks that hold the running system. "/" may lie on them
    /// through volume groups, encryption, images, layers and file systems over several devices.
    std::set<std::string> beneathRoot;
    DefinedBays defined;
    /// Serial numbers that two disks have shown, as far as the reader of this state remembers.
    std::set<std::string> sharedSerials;

    /// True when a file system on this device is mounted, even if it lies on other devices as well.
    bool isMounted(const Device &device) const;

    /// True when a file system in use lies on this device and on others. The mount table names only one of
    /// these devices.
    bool isPooled(const Device &device) const;
};

SystemState readSystemState(const SystemFiles &files);

/// Returns the kernel names of the partitions and whole disks that hold the file system at `path` and the
/// file systems that are mounted below `path`. The path must not contain links. For "/", file systems that
/// are mounted below it are left out.
std::set<std::string> devicesBeneath(const SystemState &system, const std::string &path);

/// Returns the block device that the mount's file system is on, or null. A mount may outlive its device.
const Device *deviceOf(const DeviceList &devices, const Mount &mount);

/// Returns the mount that is visible at the path: the mount with the longest target that is the path or lies
/// above it, and the last of them when several have the same target. Returns null when no mount qualifies.
const Mount *mountAt(const std::vector<Mount> &mounts, const std::string &path);

/// A mounted device and its mount point.
struct MountedDevice
{
    const Device *device;
    std::string point;
};

/// Returns one mount point for each mounted device: "/" if the device is mounted there, else the first mount
/// of the file system's top folder, else the first mount. Mounts that are hidden by another mount are left
/// out.
std::vector<MountedDevice> mountedDevices(const SystemState &system);

} // namespace orvana::platform::linux_host
