#pragma once

#include "discovery/DeviceRecords.h"
#include "duplicate/plan/RunChoice.h"

#include <string>
#include <vector>

namespace orvana
{

class ORVScanDevice;

namespace platform
{
class Host;
}

/// The devices that the last scan found: a snapshot of the scanner's lists. A rescan makes new records, so
/// each decision takes a new snapshot and does not keep it.
struct ScannedDevices
{
    std::vector<std::shared_ptr<ORVThunderboltInfo>> tbArray;
    std::vector<std::shared_ptr<ORVHddInfo>> otherDiskArray;
    std::vector<std::shared_ptr<ORVThunderboltInfo>> otherTBArray;

    /// Returns all disks: those of the enclosures, the other disks, then those of the other Thunderbolt
    /// devices.
    std::vector<std::shared_ptr<ORVHddInfo>> allDisks() const;

    /// A mounted volume and its disk.
    struct Mounted
    {
        std::shared_ptr<ORVHddInfo> disk; ///< null if no volume was found
        std::shared_ptr<ORVBsdInfo> volume;
    };

    /// Returns the volume that is mounted at the path or nearest above it.
    Mounted volumeAbove(const std::string &path) const;
};

ScannedDevices scannedDevices(const ORVScanDevice &scanner);

/// The user whose login name and home folder stand for the start-up volume.
struct UserHome
{
    std::string login;
    std::string root; ///< where the home folder really lies
};

/// Returns the host's user. The root is empty when the home is not known.
UserHome userHomeOf(platform::Host &host);

/// Returns the name shown for a volume: the login name for the start-up volume, else the last component of
/// the mount point. Returns an empty text for a volume that is not mounted.
std::string displayName(const ORVBsdInfo &volume, const UserHome &user);

/// Returns where the file tree of a volume starts: the user's home for the start-up volume, else the mount
/// point.
std::string rootPath(const ORVBsdInfo &volume, const UserHome &user);

/// Returns `rootPath` as an object. Except for the start-up volume it is the mount point object of the
/// record, so that a file tree on it lives as long as the record.
PathObject rootObject(const ORVBsdInfo &volume, const UserHome &user);

bool isStartupVolume(const ORVBsdInfo &volume);

/// True when the disk carries the start-up volume.
bool isStartupDisk(const ORVHddInfo &disk);

/// Returns the bay that a disk sits in, or nullopt outside the bays of an enclosure.
std::optional<Bay> bayOfDisk(const ORVHddInfo &disk);

/// Returns the disk in the bay of the enclosure, or null. If several disks claim the bay, the first one.
std::shared_ptr<ORVHddInfo> diskInBay(Bay bay, const ORVThunderboltInfo &enclosure);

/// Returns the disk as the disk tool takes it, with `volume` as the name of its volume.
DiskUtilInfo diskUtilInfo(const ORVHddInfo &disk, const std::string &volume);

/// Returns the disks that the bays of the enclosure hold now. If two disks claim one bay, the later disk
/// counts.
ShownDisks shownDisks(const ORVThunderboltInfo &enclosure);

/// A mounted volume of a disk in a bay.
struct BayVolume
{
    Bay bay = Bay::A;
    std::string root; ///< mount point
};

/// Returns the mounted volumes in the bays of the enclosure, in the order of the bays.
std::vector<BayVolume> volumesInBays(const ORVThunderboltInfo &enclosure);

/// Returns the bytes of a count of 512-byte blocks, or 0 if there is no count.
std::uint64_t bytesOfBlocks(const std::optional<std::int64_t> &blocks);

} // namespace orvana
