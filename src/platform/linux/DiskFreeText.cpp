#include "platform/linux/DiskFreeText.h"

#include "foundation/DeviceBlocks.h"
#include "foundation/DisplayPath.h"
#include "platform/linux/LinuxTree.h"

#include <algorithm>
#include <sys/statvfs.h>

namespace orvana::platform::linux_host
{

namespace
{

std::string percent(std::uint64_t part, std::uint64_t whole)
{
    return std::to_string(whole == 0 ? 0 : (part * 100 + whole - 1) / whole) + "%";
}

// Returns the mount point of the device, or of the only mapping above it, such as the unlocked content of an
// encrypted volume. The mapping must lie on this device alone. Returns nullopt when neither is mounted.
std::optional<std::string> mountPointOf(const SystemState &system, const std::vector<MountedDevice> &mounted,
                                        const Device &device)
{
    constexpr int DeepestMapping = 8;
    const auto *top = &device;
    for (int depth = 0; top && depth < DeepestMapping; ++depth) {
        const auto found = std::find_if(mounted.begin(), mounted.end(),
                                        [&](const MountedDevice &entry) { return entry.device == top; });
        if (found != mounted.end())
            return found->point;
        const auto *holder =
            top->holders.size() == 1 ? system.devices.blockNamed(*top->holders.begin()) : nullptr;
        top = holder && holder->slaves.size() == 1 ? holder : nullptr;
    }
    return std::nullopt;
}

std::string lineOf(const ListedVolume &volume, const VolumeRoom &room)
{
    const auto used = room.blocks - room.freeBlocks;
    const auto usedFiles = room.files - room.freeFiles;
    std::string line = volume.device;
    for (const auto &column :
         {std::to_string(room.blocks), std::to_string(used), std::to_string(room.availableBlocks),
          percent(used, used + room.availableBlocks), std::to_string(usedFiles),
          std::to_string(room.freeFiles), percent(usedFiles, room.files), volume.point})
        line.append(" ").append(column);
    return line + "\n";
}

} // namespace

std::optional<VolumeRoom> measureRoom(const std::string &point)
{
    struct statvfs room{};
    if (::statvfs(point.c_str(), &room) != 0)
        return std::nullopt;
    const auto inBlocks = [&](std::uint64_t count) {
        return count * room.f_frsize / static_cast<std::uint64_t>(DeviceBlockBytes);
    };
    return VolumeRoom{inBlocks(room.f_blocks), inBlocks(room.f_bfree), inBlocks(room.f_bavail), room.f_files,
                      room.f_ffree};
}

std::vector<ListedVolume> listedVolumes(const SystemState &system, const std::vector<Disk> &disks,
                                        const DiskNames &names)
{
    const auto mounted = mountedDevices(system);
    std::vector<ListedVolume> volumes;
    for (const auto &disk : disks) {
        const auto number = names.numberOf(disk);
        for (const auto &partition : disk.partitions) {
            if (!number)
                continue;
            const auto point =
                partition.isLeaf ? mountPointOf(system, mounted, *partition.device) : std::nullopt;
            const auto name = "/dev/" + DiskNames::nameOf(*number, partition);
            if (partition.holdsRoot)
                volumes.push_back(
                    {partition.isLeaf ? name : "/dev/" + nameOfRootAbove(*number, partition), "/"});
            else if (point)
                volumes.push_back({name, *point});
        }
    }
    return volumes;
}

bool survivesColumns(const std::string &point)
{
    const bool hasOddBlanks = point.starts_with(' ') || point.ends_with(' ') ||
                              point.find("  ") != std::string::npos ||
                              point.find_first_of("\t\n\v\f\r") != std::string::npos;
    return !point.empty() && !hasOddBlanks && isUtf8(point);
}

std::string diskFreeText(const std::vector<ListedVolume> &volumes, const MeasureRoom &measure)
{
    std::string text = "Filesystem 512-blocks Used Available Capacity iused ifree %iused Mounted on\n";
    for (const auto &volume : volumes) {
        if (!survivesColumns(volume.point))
            continue;
        if (const auto room = measure(volume.point))
            text += lineOf(volume, *room);
    }
    return text;
}

} // namespace orvana::platform::linux_host
