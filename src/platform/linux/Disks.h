#pragma once

#include "platform/linux/SystemState.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace orvana::platform::linux_host
{

/// A piece of a disk that can hold a file system: a partition, or the whole of a disk without a table.
struct Partition
{
    const Device *device;
    int number;          ///< of the partition; 0 for a file system on the whole disk
    bool isOpen = false; ///< mounted, held or swapped on
    bool isLeaf = true;  ///< false for a member of a set or group
    bool holdsRoot = false;
};

/// What kind of entry a disk has in the registry.
enum class DiskClass {
    Driver,   ///< SATA, NVMe, virtio and whatever else is wired to the machine
    Services, ///< USB, FireWire and memory cards
};

/// A physical disk and what is known of it.
struct Disk
{
    const Device *device = nullptr;
    DiskClass diskClass = DiskClass::Driver;
    std::string interconnect; ///< of Services: "USB", "FireWire", "Secure Digital"
    bool isExternal = false;
    std::optional<std::string> model, serial;   ///< as the disk calls itself
    std::optional<std::string> vendor, product; ///< of Services
    std::optional<std::string> wwn;             ///< World Wide Name
    std::uint64_t blocks = 0;                   ///< of 512 bytes
    std::optional<std::uint64_t> sequence;      ///< the kernel's number of this arrival
    const Device *controller = nullptr;         ///< nearest PCI device above
    const Device *router = nullptr;             ///< Thunderbolt router that it sits behind
    bool isPlaceUnclear = false;                ///< behind some router, but which cannot be told
    std::optional<int> port;                    ///< of its SATA controller, counted from 0
    int channel = 0;                            ///< place behind a port multiplier
    bool isOpen = false;                        ///< something was recognised on it, or it is in use
    bool isRaid = false;                        ///< it, or a partition of it, is a member of a set or group
    std::string content;                        ///< what was recognised on the whole of it
    std::vector<Partition> partitions;
};

/// True when the disk's node cannot be had for oneself. Asked only for disks on which nothing was recognised.
using ExclusiveUse = std::function<bool(const std::string &node)>;
bool isInExclusiveUse(const std::string &node);

/// The physical disks of a snapshot, which must outlive them. Images, volume groups and memory are none.
std::vector<Disk> disksOf(const SystemState &system, const ExclusiveUse &isInUse = isInExclusiveUse);

/// True for a member of a RAID set, a volume group or a pool.
bool isMember(const Device &device);

/// udev looks at every disk; until it has, nothing is known of what is on it.
bool hasUdevLooked(const Device &device);

/// A text of udev's in which unusual bytes stand as \xNN.
std::string decoded(const std::string &text);

} // namespace orvana::platform::linux_host
