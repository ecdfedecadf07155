#pragma once

#include "platform/linux/DiskNames.h"

#include <functional>

namespace orvana::platform::linux_host
{

/// Room on a mounted file system, in blocks of 512 bytes, and files.
struct VolumeRoom
{
    std::uint64_t blocks = 0, freeBlocks = 0, availableBlocks = 0; ///< available to an ordinary user
    std::uint64_t files = 0, freeFiles = 0;
};

/// Measures the file system at a mount point; nothing when it does not answer.
using MeasureRoom = std::function<std::optional<VolumeRoom>(const std::string &point)>;
std::optional<VolumeRoom> measureRoom(const std::string &point);

/// A mounted volume of a physical disk.
struct ListedVolume
{
    std::string device; ///< "/dev/disk3s1"
    std::string point;  ///< where it is mounted
};

/// The mounted volumes of the disks. "/" counts for every disk that it lies on.
std::vector<ListedVolume> listedVolumes(const SystemState &system, const std::vector<Disk> &disks,
                                        const DiskNames &names);

/// True when the mount point comes out of the listing's columns as it went in.
bool survivesColumns(const std::string &point);

/// The disk-free listing: one line a volume, with the device in column 0, blocks of 512 bytes in 1 to 3, and
/// the mount point from column 8 on. Mount points that would not survive the columns are left out.
std::string diskFreeText(const std::vector<ListedVolume> &volumes, const MeasureRoom &measure = measureRoom);

} // namespace orvana::platform::linux_host
