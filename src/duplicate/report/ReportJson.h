#pragma once

#include "duplicate/report/RunSummary.h"
#include "foundation/PathJson.h"

namespace orvana
{

// The run report as JSON; its fields are documented in docs/run-report.md. Nothing reads it back.

Json reportJson(const RunSummary &summary);
Json destinationsJson(const RunSummary &summary);
Json disksJson(const RunSummary &summary);
Json problemJson(const RunProblem &problem);

/// Returns an entry of the list of items that were left out.
Json leftOutJson(std::string_view item, std::string_view rule);

} // namespace orvana
