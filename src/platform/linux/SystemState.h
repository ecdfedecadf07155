#pragma once

#include "platform/linux/DeviceList.h"
#include "platform/linux/Mounts.h"

#include <functional>
#include <set>

namespace orvana::platform::linux_host
{

/// Where the machine's devices and tables are found; tests name what is theirs.
struct SystemFiles
{
    std::string mounts = "/proc/self/mountinfo";
    std::string swaps = "/proc/swaps";
    std::string btrfs = "/sys/fs/btrfs"; ///< folder with one folder a file system, "devices" in each
    std::function<DeviceList()> devices = readDevices;
};

/// Devices and mounts as they were at one time.
struct SystemState
{
    DeviceList devices;
    std::vector<Mount> mounts;
    std::set<std::string> swaps; ///< kernel names of block devices that are swapped on, or hold a swap file
    /// Of each file system in use that lies on several devices, their kernel names.
    std::vector<std::set<std::string>> pools;
    /// Kernel names of the partitions and whole disks that hold the running system: what "/" lies on, by way
    /// of volume groups, encryption, images, layers and file systems over several devices.
    std::set<std::string> beneathRoot;

    /// True when a file system on this very device is mounted, if only as one of several.
    bool isMounted(const Device &device) const;

    /// True when a file system in use lies on this device and others; the mount table names one of them.
    bool isPooled(const Device &device) const;
};

SystemState readSystemState(const SystemFiles &files);

/// Kernel names of the partitions and whole disks that hold the file system at `path`, and those that are
/// mounted below it. The path must hold no links; for "/" alone, what is mounted below it is left out.
std::set<std::string> devicesBeneath(const SystemState &system, const std::string &path);

/// The block device that the mount's file system is on, or null. A mount may outlive its device.
const Device *deviceOf(const DeviceList &devices, const Mount &mount);

/// The line of the table that shows at the path: the last one whose target the path is at or below. Null for
/// an empty table.
const Mount *mountAt(const std::vector<Mount> &mounts, const std::string &path);

/// A file system of a device, where it shows.
struct MountedDevice
{
    const Device *device;
    std::string point;
};

/// The mount point of each mounted device: "/" before any other, then one of the file system's top folder,
/// then the first. Mounts that another one hides are left out.
std::vector<MountedDevice> mountedDevices(const SystemState &system);

} // namespace orvana::platform::linux_host
