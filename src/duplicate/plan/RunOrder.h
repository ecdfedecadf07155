#pragma once

#include "duplicate/plan/DiskContent.h"
#include "duplicate/plan/RunPlan.h"
#include "duplicate/plan/SourceDisks.h"

#include <memory>
#include <optional>

namespace orvana
{

class RunLocks;

/// A job that copies into plain folders, and the locks on these folders.
struct FolderJob
{
    CopyJob job;                     ///< with its destinations bound
    std::shared_ptr<RunLocks> locks; ///< may be null
};

/// The disks and files of a run, decided once at Start. A later check can take a disk out, but never add a
/// disk.
struct RunOrder
{
    std::vector<std::string> selection; ///< the ticked paths
    std::int64_t totalFiles = 0;        ///< files of the selection, as counted
    std::uint64_t totalBytes = 0;       ///< bytes of the selection, as counted
    RunChoice choice;                   ///< as it was at Start, with all disks of the source
    SourceMemory source;                ///< what the run copies from
    ErasePlan erase;                    ///< with `choice.erase`: the disks to erase, and their new names
    DestinationPlan destinations;       ///< without `choice.erase`: the volumes to write to
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::string job{}; ///< the same as a job file, for the journal; empty if there is none
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::optional<FolderJob> folders{}; ///< if set, the run copies to these folders at once, not to bays
};

/// Why a run with this choice may not start.
enum class OrderRefusal {
    NothingTicked,           ///< nothing is ticked, and disks would be erased
    SourceGone,              ///< the source is not there any more, or another disk stands in its place
    SourceGoneSinceTheErase, ///< as `SourceGone`, but noticed after disks were erased for the run
    ErasesAndGoesOn,         ///< the disks that the last run wrote to would be erased
    DiskDoesNotAnswer,       ///< the copy thread of an earlier run hangs, and the disks were to be erased
};

std::string refusalText(OrderRefusal refusal);

/// Decides what a run may do. `choice` holds the user's choices, `selection` the ticked paths, and `source`
/// the source as it was when it was chosen. Looks at the disks beneath the selection and at the mounted
/// volumes.
///
/// The chosen enclosure must be usable. Without an enclosure the order names no disks.
tl::expected<RunOrder, OrderRefusal> decideOrder(platform::Host &host, const ScannedDevices &devices,
                                                 const RunChoice &choice, const SourceMemory &source,
                                                 const std::vector<std::string> &selection);

/// Returns the erase that is possible now. Disks that the order does not erase under the same name are moved
/// to the refusals.
ErasePlan eraseWithin(const RunOrder &order, ErasePlan now);

/// Returns the destinations that are possible now. Destinations that the order does not copy to are moved to
/// the refusals. With erase, the order's destinations are the disks that it erases.
DestinationPlan destinationsWithin(const RunOrder &order, DestinationPlan now);

/// A disk of an erase and what it holds.
struct DiskAtStake
{
    PlannedErase erase;
    DiskContent content;
};

/// Returns the records of the disks that the plan erases, in the order of the plan.
std::vector<std::shared_ptr<ORVHddInfo>> disksToErase(const ErasePlan &plan, const ScannedDevices &devices);

/// Returns the line about the disk in the question before an erase: "Slot-B: Copy HD, serial number B1, now
/// COPY1, holds 12.50 GB in 3402 files, will be COPY1". `present` is the name that the bay shows now.
std::string stakeText(const DiskAtStake &disk, const std::string &present);

} // namespace orvana
