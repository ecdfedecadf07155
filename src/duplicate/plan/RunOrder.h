#pragma once

#include "duplicate/plan/DiskContent.h"
#include "duplicate/plan/RunPlan.h"
#include "duplicate/plan/SourceDisks.h"

#include <memory>
#include <optional>

namespace orvana
{

class RunLocks;

/// A job into plain folders, with the locks that hold them for it.
struct FolderJob
{
    CopyJob job;                     ///< with its destinations bound
    std::shared_ptr<RunLocks> locks; ///< may be null
};

/// The disks and files of a run, decided once at Start. A later look can take a disk out, and never put one
/// in.
struct RunOrder
{
    std::vector<std::string> selection; ///< the ticked paths
    std::int64_t totalFiles = 0;        ///< what the selection comes to, as counted
    std::uint64_t totalBytes = 0;       ///< the same in bytes
    RunChoice choice;                   ///< as it was at Start, with all disks of the source
    SourceMemory source;                ///< what the run copies from
    ErasePlan erase;                    ///< with `choice.erase`: which disks are erased, under which names
    DestinationPlan destinations;       ///< without: which volumes are written to
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::optional<FolderJob> folders{}; ///< instead of disks in bays: the run copies there at once
};

/// Why a run with this choice may not start.
enum class OrderRefusal {
    NothingTicked,           ///< and the disks were to be erased for it
    SourceGone,              ///< the source is not there any more, or another disk stands in its place
    SourceGoneSinceTheErase, ///< the same, noticed when disks had been erased for the run
    DiskDoesNotAnswer,       ///< the copy thread of an earlier run hangs, and the disks were to be erased
};

std::string refusalText(OrderRefusal refusal);

/// Decides what a run may do. `choice` is what the user chose, `selection` the ticked paths, `source` the
/// source as it was when it was chosen. Looks at the disks beneath the selection and at the mounted volumes.
///
/// The enclosure must be a usable one. Without an enclosure the order is empty.
tl::expected<RunOrder, OrderRefusal> decideOrder(platform::Host &host, const ScannedDevices &devices,
                                                 const RunChoice &choice, const SourceMemory &source,
                                                 const std::vector<std::string> &selection);

/// The erase that is possible now, without the disks that the order does not erase under the same name, which
/// are refused.
ErasePlan eraseWithin(const RunOrder &order, ErasePlan now);

/// The destinations that are possible now, without those that the order does not copy to, which are refused.
/// With erase the order's destinations are the disks that it erases.
DestinationPlan destinationsWithin(const RunOrder &order, DestinationPlan now);

/// A disk of an erase and what it holds.
struct DiskAtStake
{
    PlannedErase erase;
    DiskContent content;
};

/// The records of the disks that the plan erases, in its order.
std::vector<std::shared_ptr<ORVHddInfo>> disksToErase(const ErasePlan &plan, const ScannedDevices &devices);

/// The line on the disk in the question before an erase: "Slot-B: Copy HD, serial number B1, now COPY1: 12.50
/// GB in 3402 files; will be COPY1". `present` is the name that the bay shows now.
std::string stakeText(const DiskAtStake &disk, const std::string &present);

} // namespace orvana
