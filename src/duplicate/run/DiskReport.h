#pragma once

#include "duplicate/disktool/DiskUtil.h"
#include "duplicate/plan/RunPlan.h"
#include "duplicate/report/RunSummary.h"

namespace orvana::platform
{
class HealthReader;
}

namespace orvana
{

class RunReport;

/// Returns the bays that were not erased, for whatever reason: all bays but those that are known to be
/// erased, and those that are too small anyway.
PerBay<bool> baysNotErased(const ErasePlan &plan, const std::vector<DiskResult> &results);

/// Puts an erase into the report: the tool's result for each disk of the plan, and the refusals. A disk that
/// the tool did not reach counts as failed.
void reportErase(RunReport &report, const ErasePlan &plan, const std::vector<DiskResult> &results);

/// Returns the disks of the destinations as the report shows them. With `health`, each is asked how it is.
std::vector<DestinationDisk> disksOf(const std::vector<PlannedDestination> &destinations,
                                     platform::HealthReader *health = nullptr);

/// Puts the bays that get no copy into the report. For a run without any destination, adds a remark that says
/// so.
void reportDestinations(RunReport &report, const DestinationPlan &plan, const RunChoice &choice);

} // namespace orvana
