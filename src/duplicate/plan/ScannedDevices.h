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

/// What the last scan found; the scanner's lists at one moment. A rescan makes new records, so this is taken
/// again for every decision and not kept.
struct ScannedDevices
{
    std::vector<std::shared_ptr<ORVThunderboltInfo>> tbArray;
    std::vector<std::shared_ptr<ORVHddInfo>> otherDiskArray;
    std::vector<std::shared_ptr<ORVThunderboltInfo>> otherTBArray;

    /// Every disk: of the enclosures, the other disks, of the other Thunderbolt devices.
    std::vector<std::shared_ptr<ORVHddInfo>> allDisks() const;
};

ScannedDevices scannedDevices(const ORVScanDevice &scanner);

/// As whom the start-up volume is shown: it is always the user's home.
struct UserHome
{
    std::string login;
    std::string root; ///< where the home folder really lies
};

/// The host's user; the root is empty when the home is not known.
UserHome userHomeOf(platform::Host &host);

/// The name shown for a volume: the login name for the start-up volume, else the last component of its mount
/// point. Empty while it is not mounted.
std::string displayName(const ORVBsdInfo &volume, const UserHome &user);

/// Where the file tree of a volume starts: the user's home for the start-up volume, else its mount point.
std::string rootPath(const ORVBsdInfo &volume, const UserHome &user);

/// The same as an object: a volume's is its own mount point, so that a tree on it lives as long as its
/// record.
PathObject rootObject(const ORVBsdInfo &volume, const UserHome &user);

bool isStartupVolume(const ORVBsdInfo &volume);

/// True when the disk carries the start-up volume.
bool isStartupDisk(const ORVHddInfo &disk);

/// The bay that a disk sits in; nothing outside the bays of an enclosure.
std::optional<Bay> bayOfDisk(const ORVHddInfo &disk);

/// The disk as the disk tool takes it, with this name for its volume.
DiskUtilInfo diskUtilInfo(const ORVHddInfo &disk, const std::string &volume);

/// What the bays of the enclosure hold now. Of two disks that claim one bay the later one.
ShownDisks shownDisks(const ORVThunderboltInfo &enclosure);

/// Bytes of a count of blocks of 512 bytes; a missing count is none.
std::uint64_t bytesOfBlocks(const std::optional<std::int64_t> &blocks);

} // namespace orvana
