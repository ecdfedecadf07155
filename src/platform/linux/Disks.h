#pragma once

#include "platform/linux/SystemState.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace orvana::platform::linux_host
{

/// A part of a disk that can hold a file system: a partition, or the whole of a disk without a partition
/// table.
struct Partition
{
    const Device *device;
    int number;          ///< partition number; 0 for a file system on the whole disk
    bool isOpen = false; ///< mounted, held by another device, used as swap, or beneath "/"
    bool isLeaf = true;  ///< false for a member of a RAID set, a volume group or a pool
    bool holdsRoot = false;
};

/// The kind of entry that a disk has in the registry.
enum class DiskClass {
    Driver,   ///< SATA, NVMe, virtio and all other disks wired to the machine
    Services, ///< USB, FireWire and memory cards
};

/// A physical disk and what is known of it.
struct Disk
{
    const Device *device = nullptr;
    DiskClass diskClass = DiskClass::Driver;
    std::string interconnect; ///< for Services: "USB", "FireWire", "Secure Digital"
    bool isExternal = false;
    std::optional<std::string> model, serial;   ///< as the disk reports them
    std::optional<std::string> vendor, product; ///< for Services
    std::optional<std::string> wwn;             ///< World Wide Name
    std::uint64_t blocks = 0;                   ///< of 512 bytes
    std::optional<std::uint64_t> sequence;      ///< number that the kernel gave to this arrival
    const Device *controller = nullptr;         ///< nearest PCI device above the disk
    const Device *router = nullptr;             ///< Thunderbolt router that the disk is behind
    bool isPlaceUnclear = false;                ///< the disk is behind a router, but it is not known which
    std::optional<int> port;                    ///< port of its SATA controller, counted from 0
    int channel = 0;                            ///< place behind a port multiplier
    std::optional<DefinedBay> definedBay;       ///< bay of an enclosure definition
    bool isOpen = false; ///< something was recognised on it, it is in use, or its content is not yet known
    bool isRaid = false; ///< the disk or one of its partitions is a member (see `isMember`)
    std::string content; ///< what was recognised on the whole disk
    std::vector<Partition> partitions;
};

/// True when the disk's node cannot be opened for exclusive use because something else uses it. Called only
/// for disks on which nothing was recognised.
using ExclusiveUse = std::function<bool(const std::string &node)>;
bool isInExclusiveUse(const std::string &node);

/// Returns the physical disks of a snapshot. The snapshot must outlive them. Images, volume groups and disks
/// in memory are left out.
std::vector<Disk> disksOf(const SystemState &system, const ExclusiveUse &isInUse = isInExclusiveUse);

/// True for a disk of its own: no image, no volume group, no optical disk, no disk in memory.
bool isPhysicalDisk(const Device &device);

/// True for a member of a RAID set, a volume group or a pool.
bool isMember(const Device &device);

/// True when udev has looked at the disk. Before that, nothing is known about the content of the disk.
bool hasUdevLooked(const Device &device);

/// Returns the text without the blanks at its ends, with which disks fill up their texts.
std::string withoutBlanks(const std::string &text);

/// Decodes a text from udev, in which unusual bytes are written as \xNN.
std::string decoded(const std::string &text);

} // namespace orvana::platform::linux_host
