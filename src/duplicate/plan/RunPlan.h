#pragma once

#include "duplicate/disktool/DiskUtilInfo.h"
#include "duplicate/plan/RunGuards.h"
#include "duplicate/plan/SourcePlan.h"
#include "filetree/FileSystemItem.h"

namespace orvana
{

// The decisions of a run, from what was scanned and what the user chose. They change nothing; window and
// terminal do what they say, and tell every refusal.

/// Does a selection of that many bytes fit into the volume? With erase into 99 hundredths of its capacity,
/// else into what is free; both bounds included.
enum class EraseFirst { No, Yes };
bool fits(std::uint64_t bytes, const ORVBsdInfo &volume, EraseFirst erase);

/// True when the selection does not fit into the disk in the bay: the bay is shown so, or its first volume
/// cannot hold what was counted.
bool isTooSmall(const ORVHddInfo &disk, Bay bay, const RunChoice &choice);

/// A bay whose disk has volumes, and whether a selection fits into the first of them.
struct BayFit
{
    std::string slot; ///< the disk's `slotPath`; empty for a disk in no known bay
    bool fits;
};

/// In the order of the records. Disks without volumes are not in it: their rows keep their colour.
std::vector<BayFit> fitOfBays(const ORVThunderboltInfo &enclosure, std::uint64_t bytes, EraseFirst erase);

/// Bays B, C and D are all too small; bay A is never counted.
bool isOverSizeInAll(const RunChoice &choice);

/// One of the destination bays is too small.
bool isOverSizeInSome(const RunChoice &choice);

/// The sheet's and the terminal's words for it: " COPY1 COPY2."
std::string overSizeText(const RunChoice &choice);

/// True when there is a tree to copy from.
bool hasTree(const std::vector<FileListRow> &rows);

/// The paths that are handed to the copy engine: of the rows that are ticked and not expanded.
std::vector<std::string> selectedPaths(const std::vector<FileListRow> &rows);

/// A disk that will be erased. Its new name is `info.diskVolume`.
struct PlannedErase
{
    Bay bay;
    DiskUtilInfo info;
    DiskFingerprint fingerprint{};

    bool operator==(const PlannedErase &) const = default;
};

struct ErasePlan
{
    std::vector<PlannedErase> disks;   ///< in the order of the records
    std::vector<DiskRefusal> refusals; ///< disks that keep their content
    std::vector<NameRefusal> badNames; ///< not empty: nothing may be erased, and nothing started
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::vector<Bay> tooSmall{}; ///< keep their content: the selection does not fit into them
};

/// The disks that a run erases. RAID members, the source's bay and bays that are too small are never among
/// them.
tl::expected<ErasePlan, EnclosureRefusal> planErase(const ScannedDevices &devices, const RunChoice &choice,
                                                    const UserHome &user, EraseFormat format);

struct PlannedDestination
{
    Bay bay;
    std::string name; ///< as shown in the bay
    std::string root; ///< mount point of the volume, by the disk's own record
    DiskUtilInfo disk;
    std::string device; ///< node of the volume
    DiskFingerprint fingerprint{};

    bool operator==(const PlannedDestination &) const = default;
};

struct DestinationPlan
{
    std::vector<PlannedDestination> destinations; ///< Slot-A to Slot-D
    std::vector<DiskRefusal> refusals;
    std::vector<Bay> tooSmall; ///< left out because the selection does not fit

    std::vector<std::string> roots() const;
};

/// Where a run copies to.
tl::expected<DestinationPlan, EnclosureRefusal>
planDestinations(const ScannedDevices &devices, const RunChoice &choice, const UserHome &user);

/// Moves destinations to the refusals whose root is, at this moment, not the top of a mounted volume, or of
/// another one than the record says, or mounted read-only. Asks the list of mounted volumes.
void refuseWhatIsNotMounted(platform::Host &host, DestinationPlan &plan);

/// Moves destinations to the refusals on whose volume another run of this machine is at work.
void refuseWhatIsInUse(platform::Host &host, DestinationPlan &plan);

struct EjectPlan
{
    std::vector<DiskUtilInfo> disks;
    std::vector<DiskRefusal> refusals;
};

/// The disks that "eject destinations" ejects: those with volumes in every enclosure, without bay A when that
/// is the source.
tl::expected<EjectPlan, EnclosureRefusal> planTargetEject(const ScannedDevices &devices,
                                                          const RunChoice &choice, const UserHome &user);

/// The disks that "eject source" ejects: those that carry a volume named like the chosen pop-up item, in bay
/// A of every enclosure if the chosen enclosure has it there, else among the other disks.
tl::expected<EjectPlan, EnclosureRefusal> planSourceEject(const ScannedDevices &devices,
                                                          const RunChoice &choice);

/// Every refusal on a line of its own, for a "Warning" sheet.
std::string textOf(const std::vector<DiskRefusal> &refusals);
std::string textOf(const std::vector<NameRefusal> &refusals);

} // namespace orvana
