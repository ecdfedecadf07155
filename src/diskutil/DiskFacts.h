#pragma once

#include "diskutil/Request.h"
#include "platform/linux/DiskNames.h"

#include <functional>
#include <memory>

namespace orvana::diskutil
{

/// A file system of the disk that is mounted somewhere.
struct MountedPiece
{
    std::string node;  ///< "/dev/sdb1"
    std::string point; ///< one of its mount points

    bool operator==(const MountedPiece &) const = default;
};

/// What is known of a disk at one moment. What could not be found out counts against the disk.
struct DiskFacts
{
    bool isWholeDisk = false;
    platform::linux_host::DiskIdentity identity;
    std::optional<std::string> wwn; ///< World Wide Name
    bool isInBay = false;
    bool isRootKnown = false; ///< it is known which disks hold the running system
    bool holdsSystem = false;
    bool isSwappedOn = false;
    bool isExamined = false; ///< udev has looked at what is on it and on each of its partitions
    bool isMember = false;   ///< of a RAID set or a volume group
    bool isHeld = false;     ///< something is built upon it
    std::vector<MountedPiece> mounted;
};

/// Which disk a block device is, and whether it sits in a bay of an enclosure; nothing for a device that is
/// no disk to work on.
struct KnownDisk
{
    platform::linux_host::DiskIdentity identity;
    bool isInBay = false;
    std::optional<std::string> wwn = std::nullopt;
};
using BayRule = std::function<std::optional<KnownDisk>(const platform::linux_host::SystemState &,
                                                       const platform::linux_host::Device &)>;

/// The rule of the installed program: physical disks, and the bays of the four-bay enclosures.
std::optional<KnownDisk> knownDisk(const platform::linux_host::SystemState &system,
                                   const platform::linux_host::Device &device);

/// The facts of the block device at `node`, by the kernel's own name ("/dev/sdb"); nothing when there is
/// none.
std::optional<DiskFacts> factsOf(const platform::linux_host::SystemState &system, const std::string &node,
                                 const BayRule &rule);

/// Refuses a disk that is not exactly the expected one, or of which anything is missing on either side, and a
/// disk that may be one of those that must not be touched.
Outcome<void> checkIdentity(const std::string &node, const DiskFacts &facts, const Expectation &expected);

/// Refuses a disk that must not be erased, whatever else holds. Mounted file systems are no reason yet.
Outcome<void> checkErasable(const std::string &node, const DiskFacts &facts);

/// Refuses a disk that the system works with; it is neither erased nor ejected.
Outcome<void> checkEjectable(const std::string &node, const DiskFacts &facts);

} // namespace orvana::diskutil
