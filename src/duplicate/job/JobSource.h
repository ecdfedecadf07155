#pragma once

#include "duplicate/job/JobFile.h"
#include "duplicate/plan/SourcePlan.h"

#include <string>
#include <tl/expected.hpp>

namespace orvana
{

/// Fills in which volume the source is. Returns the reason when the source cannot be named: it is on no known
/// volume, or its volume has no id. `item` is the title of the source in the pop-up, `root` its root.
tl::expected<void, std::string> nameSource(Job &job, const ScannedDevices &devices, const std::string &item,
                                           const std::string &root);

/// Returns the title of the job's source in the pop-up of `plan`. Returns the reason when the source is not
/// there, or when two volumes have its id, or another source its title.
tl::expected<std::string, std::string> titleOfSource(const Job &job, const ScannedDevices &devices,
                                                     const SourcePlan &plan);

/// Returns the paths of the selection below `root`, as a run takes them; the root itself for all of it.
std::vector<std::string> selectionBelow(const Job &job, const std::string &root);

/// Returns the paths as a job names them: relative to `root`, and none when the root itself is selected.
std::vector<std::string> selectionOf(const std::vector<std::string> &paths, const std::string &root);

} // namespace orvana
