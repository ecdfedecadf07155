#pragma once

#include "platform/linux/DiskNames.h"

#include <functional>

namespace orvana::platform::linux_host
{

/// The space on a mounted file system: blocks of 512 bytes, and numbers of files.
struct VolumeRoom
{
    std::uint64_t blocks = 0, freeBlocks = 0, availableBlocks = 0; ///< available to an ordinary user
    std::uint64_t files = 0, freeFiles = 0;
};

/// Measures the file system at a mount point. Returns nullopt when the file system does not answer.
using MeasureRoom = std::function<std::optional<VolumeRoom>(const std::string &point)>;
std::optional<VolumeRoom> measureRoom(const std::string &point);

/// A mounted volume of a physical disk.
struct ListedVolume
{
    std::string device; ///< "/dev/disk3s1"
    std::string point;  ///< where it is mounted
};

/// Returns the mounted volumes of the disks. "/" is listed for every disk that it lies on.
std::vector<ListedVolume> listedVolumes(const SystemState &system, const std::vector<Disk> &disks,
                                        const DiskNames &names);

/// True when a reader of the listing's columns gets the mount point back unchanged.
bool survivesColumns(const std::string &point);

/// Returns the disk-free listing: one line for each volume, with the device in column 0, blocks of 512 bytes
/// in columns 1 to 3, and the mount point from column 8 on. Mount points that would not survive the columns
/// are left out.
std::string diskFreeText(const std::vector<ListedVolume> &volumes, const MeasureRoom &measure = measureRoom);

} // namespace orvana::platform::linux_host
