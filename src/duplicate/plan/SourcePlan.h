#pragma once

#include "duplicate/plan/ScannedDevices.h"

namespace orvana
{

/// What one row of the slot panel shows.
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

/// The row of one volume, and the row of a disk by its first volume or, without one, by its own size.
DiskRow rowOfVolume(const ORVHddInfo &disk, const ORVBsdInfo &volume, const UserHome &user);
DiskRow rowOfDisk(const ORVHddInfo &disk, const UserHome &user);

/// What the bays of an enclosure show.
struct BayRows
{
    struct Row
    {
        std::string slot; ///< the disk's `slotPath`; empty for a disk in no known bay
        DiskRow content;
    };

    std::vector<Row> rows; ///< one for each disk, in the order of the records
    /// What the last disk with volumes says: its first volume is the start-up volume. Nothing when no disk
    /// has volumes.
    std::optional<bool> hasBootDisk;
    bool holdsUnformatted = false; ///< switches the erase option on
};

BayRows bayRowsOf(const ORVThunderboltInfo &enclosure, const UserHome &user);

/// What the bays show when nothing was typed: the names of their volumes, `NoVolume` for an empty bay.
PerBay<std::string> volumeNamesOf(const ORVThunderboltInfo &enclosure, const UserHome &user);

enum class SourceIcon { InternalDisk, Home, ExternalDisk };

/// One item of the source pop-up.
struct SourceCandidate
{
    std::string title;
    std::string rootPath;
    SourceIcon icon = SourceIcon::ExternalDisk;
    std::string ownIconFile; ///< shown instead when this file exists; empty where a volume has none
};

/// The sources to choose from, and the one that a freshly chosen enclosure starts with.
struct SourcePlan
{
    std::vector<SourceCandidate> candidates; ///< in the pop-up's order
    std::size_t bayCandidates = 0; ///< how many of them lie in bay A; behind them a separator, if any
    DiskRow row;              ///< of several volumes in bay A the last one; still "None" without a source
    bool isFound = false;     ///< there is a source, and its row is coloured
    PathObject root;          ///< of several volumes in bay A the first one's; null without a source
    bool mayBeEjected = true; ///< the first candidate is not the user's home
};

/// `enclosure` is the chosen one; without one there is nothing to choose from. Volumes that are mounted
/// nowhere are nobody's source.
SourcePlan planSources(const ORVThunderboltInfo *enclosure, const ScannedDevices &devices,
                       const UserHome &user);

/// What the user's choice of a title in the pop-up leads to.
struct SourceMatch
{
    DiskRow row;     ///< empty texts when nothing matched
    PathObject root; ///< null when nothing matched
    bool mayBeEjected = true;
};

/// Looks for the volume in bay A first, else in the other disks, where a later match wins. Other Thunderbolt
/// devices are not looked at.
SourceMatch sourceTitled(const std::string &title, const ORVThunderboltInfo *enclosure,
                         const ScannedDevices &devices, const UserHome &user);

/// True when `name` is the last component of the mount point of a volume in the enclosure's bay A.
bool isTBDevDiskArrayVolumes(const std::string &name, const ORVThunderboltInfo *enclosure);

/// Bay A is the source when the first item of the pop-up is chosen and its name is that of bay A.
bool isSlotAisSource(std::size_t chosenItem, const std::string &source, const std::string &slotA);

} // namespace orvana
