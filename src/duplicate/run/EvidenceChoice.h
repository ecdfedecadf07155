#pragma once

#include "duplicate/engine/RunEvidence.h"
#include "duplicate/plan/RunOrder.h"

#include <optional>
#include <vector>

namespace orvana
{

class Clock;
class LogData;

/// Returns what evidence a run leaves, by its settings; nullopt for none. `destinations` are the disks of the
/// job, in its order; empty for plain folders. The manifests name source, disks and run in their comment.
std::optional<EvidenceOrder> evidenceOf(const RunOrder &order, const CopyJob &job,
                                        const std::vector<PlannedDestination> &destinations,
                                        const LogData &log, const Clock &clock);

} // namespace orvana
