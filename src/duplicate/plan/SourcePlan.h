#pragma once

#include "duplicate/plan/ScannedDevices.h"

namespace orvana
{

/// The content of one row of the slot panel.
struct DiskRow
{
    std::string volume = NoVolume;
    std::string model;
    std::string serial;
    std::string available; ///< size texts
    std::string capacity;
    bool labelHidden = true;
    bool isRaid = false;

    bool operator==(const DiskRow &) const = default;
};

/// `rowOfVolume` returns the row of a volume. `rowOfDisk` returns the row of the disk's first volume or,
/// without volumes, a row with the disk's own size.
DiskRow rowOfVolume(const ORVHddInfo &disk, const ORVBsdInfo &volume, const UserHome &user);
DiskRow rowOfDisk(const ORVHddInfo &disk, const UserHome &user);

/// The rows that the bays of an enclosure show.
struct BayRows
{
    struct Row
    {
        std::string slot; ///< the disk's `slotPath`; empty for a disk in no known bay
        DiskRow content;
    };

    std::vector<Row> rows; ///< one for each disk, in the order of the records
    /// True when the first volume of the last disk with volumes is the start-up volume. nullopt when no disk
    /// has volumes.
    std::optional<bool> hasBootDisk;
    bool holdsUnformatted = false; ///< switches the erase option on
};

BayRows bayRowsOf(const ORVThunderboltInfo &enclosure, const UserHome &user);

/// Returns the names that the bays show when nothing was typed: those of their volumes, `NoVolume` for an
/// empty bay.
PerBay<std::string> volumeNamesOf(const ORVThunderboltInfo &enclosure, const UserHome &user);

enum class SourceIcon { InternalDisk, Home, ExternalDisk };

/// One item of the source pop-up.
struct SourceCandidate
{
    std::string title;
    std::string rootPath;
    SourceIcon icon = SourceIcon::ExternalDisk;
    std::string ownIconFile; ///< icon of the volume, shown instead of `icon` when the file exists; empty if
                             ///< there is none
};

/// The sources to choose from, and the source with which a freshly chosen enclosure starts.
struct SourcePlan
{
    std::vector<SourceCandidate> candidates; ///< in the pop-up's order
    std::size_t bayCandidates = 0; ///< how many of them lie in bay A; if any do, a separator follows
    DiskRow row; ///< row of the source; of several volumes in bay A the last; "None" without a source
    bool isFound = false; ///< there is a source, and its row is coloured
    PathObject root; ///< root of the source; of several volumes in bay A the first; null without a source
    bool mayBeEjected = true; ///< the first candidate is not the user's home
};

/// `enclosure` is the chosen enclosure; null gives an empty plan. Volumes that are not mounted cannot be
/// sources.
SourcePlan planSources(const ORVThunderboltInfo *enclosure, const ScannedDevices &devices,
                       const UserHome &user);

/// The result of choosing a title in the pop-up.
struct SourceMatch
{
    DiskRow row;     ///< empty texts when nothing matched
    PathObject root; ///< null when nothing matched
    bool mayBeEjected = true;
};

/// Looks for the volume in bay A first, then in the other disks, where the last match counts. Does not look
/// at other Thunderbolt devices.
SourceMatch sourceTitled(const std::string &title, const ORVThunderboltInfo *enclosure,
                         const ScannedDevices &devices, const UserHome &user);

/// True when `name` is the last component of the mount point of a volume in the enclosure's bay A.
bool isTBDevDiskArrayVolumes(const std::string &name, const ORVThunderboltInfo *enclosure);

/// True when bay A is the source: the first item of the pop-up is chosen, and its name is that of bay A.
bool isSlotAisSource(std::size_t chosenItem, const std::string &source, const std::string &slotA);

} // namespace orvana
