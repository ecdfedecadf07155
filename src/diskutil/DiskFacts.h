#pragma once

#include "diskutil/Request.h"
#include "platform/linux/DiskNames.h"

#include <functional>
#include <memory>

namespace orvana::diskutil
{

/// A mounted file system of the disk.
struct MountedVolume
{
    std::string node;  ///< "/dev/sdb1"
    std::string point; ///< one of its mount points

    bool operator==(const MountedVolume &) const = default;
};

/// The facts about a disk at one moment. An unknown fact counts against the disk.
struct DiskFacts
{
    bool isWholeDisk = false;
    platform::linux_host::DiskIdentity identity;
    std::optional<std::string> wwn; ///< World Wide Name
    bool isInBay = false;
    bool isInDefinedBay = false; ///< an enclosure definition makes it a bay
    bool isRootKnown = false;    ///< it is known which disks hold the running system
    bool holdsSystem = false;
    bool isSwappedOn = false;
    bool isExamined = false; ///< udev has examined the disk and each of its partitions
    bool isMember = false;   ///< the disk is a member of a RAID set or a volume group
    bool isHeld = false;     ///< something is built upon it
    std::vector<MountedVolume> mounted;
    /// Nodes of the file systems that a user may want to see, mounted or not: "/dev/sdb1".
    std::vector<std::string> fileSystems;
};

/// The disk that a block device is, and whether it is in a bay of an enclosure. A `BayRule` returns
/// nullopt for a device that is no disk to work on.
struct KnownDisk
{
    platform::linux_host::DiskIdentity identity;
    bool isInBay = false;
    std::optional<std::string> wwn = std::nullopt;
    bool isInDefinedBay = false;
};
using BayRule = std::function<std::optional<KnownDisk>(const platform::linux_host::SystemState &,
                                                       const platform::linux_host::Device &)>;

/// The rule of the installed program: physical disks, and the bays of the four-bay enclosures.
std::optional<KnownDisk> knownDisk(const platform::linux_host::SystemState &system,
                                   const platform::linux_host::Device &device);

/// Returns the facts of the block device at `node`, the kernel's own name ("/dev/sdb"). Returns nullopt if
/// there is no such device.
std::optional<DiskFacts> factsOf(const platform::linux_host::SystemState &system, const std::string &node,
                                 const BayRule &rule);

/// Refuses a disk that is not exactly the expected disk. A value that is missing on either side is a reason
/// to refuse. Also refuses a disk that may be one of the disks that must not be touched.
Outcome<void> checkIdentity(const std::string &node, const DiskFacts &facts, const Expectation &expected);

/// Refuses a disk that must never be erased. A mounted file system is no reason to refuse here.
Outcome<void> checkErasable(const std::string &node, const DiskFacts &facts);

/// Refuses a disk that is in no bay, that the system works with, or that is no disk of its own.
Outcome<void> checkMountable(const std::string &node, const DiskFacts &facts);

/// Refuses a disk that the system works with. Such a disk is neither erased nor ejected.
Outcome<void> checkEjectable(const std::string &node, const DiskFacts &facts);

} // namespace orvana::diskutil
