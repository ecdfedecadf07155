#pragma once

#include "duplicate/disktool/DiskUtilInfo.h"
#include "duplicate/plan/RunGuards.h"
#include "duplicate/plan/SourcePlan.h"
#include "filetree/FileSystemItem.h"

namespace orvana
{

// The decisions of a run, made from the scanned devices and the user's choices. They change nothing. Window
// and terminal carry them out, and report every refusal.

enum class EraseFirst { No, Yes };

/// Returns by which of the two limits of `fits` a run goes. One that updates copies, or goes on with the last
/// run, finds most of its bytes on the destination, so the free space says nothing.
EraseFirst limitOf(bool erase, const RunSettings &settings);

/// True when a selection of `bytes` fits into the volume. With erase it must fit into 99 hundredths of the
/// volume's capacity, else into its free space. Both limits are included.
bool fits(std::uint64_t bytes, const ORVBsdInfo &volume, EraseFirst erase);

/// A bay whose disk has volumes, and whether a selection fits into the first of them.
struct BayFit
{
    std::string slot; ///< the disk's `slotPath`; empty for a disk in no known bay
    bool fits;
};

/// Returns an entry for each disk with volumes, in the order of the records. The rows of other disks keep
/// their colour.
std::vector<BayFit> fitOfBays(const ORVThunderboltInfo &enclosure, std::uint64_t bytes, EraseFirst erase);

/// True when bays B, C and D are all too small. Bay A is never counted.
bool isOverSizeInAll(const RunChoice &choice);

/// True when at least one of the destination bays is too small.
bool isOverSizeInSome(const RunChoice &choice);

/// Returns the names of the bays that are too small, for the sheet and the terminal: " COPY1 COPY2."
std::string overSizeText(const RunChoice &choice);

/// True when there is a tree to copy from.
bool hasTree(const std::vector<FileListRow> &rows);

/// Returns the paths that the copy engine gets: those of the rows that are ticked and not expanded.
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
    std::vector<NameRefusal> badNames; ///< if not empty, nothing may be erased or started
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::vector<Bay> tooSmall{}; ///< bays that keep their content: the selection does not fit into them
};

/// Decides which disks a run erases. RAID members, the source's bay and bays that are too small are never
/// among them.
tl::expected<ErasePlan, EnclosureRefusal> planErase(const ScannedDevices &devices, const RunChoice &choice,
                                                    const UserHome &user, EraseFormat format);

struct PlannedDestination
{
    Bay bay;
    std::string name; ///< as shown in the bay
    std::string root; ///< mount point of the volume, from the disk's own record
    DiskUtilInfo disk;
    std::string device; ///< node of the volume
    DiskFingerprint fingerprint{};

    bool operator==(const PlannedDestination &) const = default;
};

struct DestinationPlan
{
    std::vector<PlannedDestination> destinations; ///< in the order Slot-A to Slot-D
    std::vector<DiskRefusal> refusals;
    std::vector<Bay> tooSmall; ///< left out because the selection does not fit

    std::vector<std::string> roots() const;
};

/// Decides where a run copies to.
tl::expected<DestinationPlan, EnclosureRefusal>
planDestinations(const ScannedDevices &devices, const RunChoice &choice, const UserHome &user);

/// Moves a destination to the refusals when its root is, at this moment, not the top of a mounted volume, or
/// the top of another volume than the record says, or mounted read-only. Asks the list of mounted volumes.
void refuseWhatIsNotMounted(platform::Host &host, DestinationPlan &plan);

/// Moves a destination to the refusals when another run on this machine works on its volume.
void refuseWhatIsInUse(platform::Host &host, DestinationPlan &plan);

struct EjectPlan
{
    std::vector<DiskUtilInfo> disks;
    std::vector<DiskRefusal> refusals;
};

/// Decides which disks "eject destinations" ejects: the disks with volumes in every enclosure, without bay A
/// when bay A is the source.
tl::expected<EjectPlan, EnclosureRefusal> planTargetEject(const ScannedDevices &devices,
                                                          const RunChoice &choice, const UserHome &user);

/// Decides which disks "eject source" ejects: the disks with a volume that has the name of the chosen pop-up
/// item. If the chosen enclosure has such a volume in bay A, only bay A of every enclosure is searched.
/// Otherwise only the other disks are searched.
tl::expected<EjectPlan, EnclosureRefusal> planSourceEject(const ScannedDevices &devices,
                                                          const RunChoice &choice);

/// Returns the disks in bays of the enclosure that have a partition that is not mounted. The start-up disk
/// and members of RAID sets are left out. The name is empty, since it is not known before the mount.
std::vector<DiskUtilInfo> planMount(const ORVThunderboltInfo &enclosure);

/// Returns every refusal on a line of its own, for a "Warning" sheet.
std::string textOf(const std::vector<DiskRefusal> &refusals);
std::string textOf(const std::vector<NameRefusal> &refusals);

} // namespace orvana
