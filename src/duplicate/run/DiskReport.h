#pragma once

#include "duplicate/disktool/DiskUtil.h"
#include "duplicate/plan/RunPlan.h"

namespace orvana
{

class RunReport;

/// The bays that an erase was to empty and did not, for whatever reason: all but those of which it is known
/// that it did, and those that are too small anyway.
PerBay<bool> baysNotErased(const ErasePlan &plan, const std::vector<DiskResult> &results);

/// Puts an erase into the report: what the tool did to each disk of the plan, and what was refused. A disk
/// that the tool did not come to counts as failed.
void reportErase(RunReport &report, const ErasePlan &plan, const std::vector<DiskResult> &results);

/// Puts into the report which bays get no copy. A run without any destination says so.
void reportDestinations(RunReport &report, const DestinationPlan &plan, const RunChoice &choice);

} // namespace orvana
