#pragma once

#include "duplicate/disktool/DiskUtil.h"
#include "duplicate/plan/RunPlan.h"
#include "duplicate/report/RunSummary.h"
#include "platform/DiskHealth.h"

namespace orvana
{

class RunReport;

/// Returns the bays that were not erased, for whatever reason: all bays but those that are known to be
/// erased, and those that are too small anyway.
PerBay<bool> baysNotErased(const ErasePlan &plan, const std::vector<DiskResult> &results);

/// Puts an erase into the report: the tool's result for each disk of the plan, and the refusals. A disk that
/// the tool did not reach counts as failed.
void reportErase(RunReport &report, const ErasePlan &plan, const std::vector<DiskResult> &results);

/// Asks the disk of each destination how it is. Main thread only.
std::vector<platform::DiskHealth> healthOf(const std::vector<PlannedDestination> &destinations,
                                           platform::HealthReader &reader);

/// Returns the disks of the destinations as the report shows them. `health` is in the order of the
/// destinations; empty if they were not asked.
std::vector<DestinationDisk> disksOf(const std::vector<PlannedDestination> &destinations,
                                     const std::vector<platform::DiskHealth> &health);

/// Asks the disk of each destination how it is now, and puts that into the report, with what is new since
/// `before`. Main thread only, when nothing is written any more.
void reportHealthAfter(RunReport &report, const std::vector<PlannedDestination> &destinations,
                       const std::vector<platform::DiskHealth> &before, platform::HealthReader &reader);

/// Returns the disks on which everything is whole.
std::vector<DiskUtilInfo> wholeDisks(const std::vector<PlannedDestination> &destinations,
                                     const RunSummary &summary);

/// Puts the bays that get no copy into the report. For a run without any destination, adds a remark that says
/// so.
void reportDestinations(RunReport &report, const DestinationPlan &plan, const RunChoice &choice);

} // namespace orvana
