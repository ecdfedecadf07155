#pragma once

#include "duplicate/job/JobFile.h"
#include "duplicate/plan/ScannedDevices.h"
#include "platform/VolumeFiles.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// A run that did not come to its end, and of which the source and at least one disk are here.
struct BrokenOffRun
{
    std::string name; ///< of its journal
    Job job;
    std::vector<std::string> disks; ///< those that are here: "Slot-B: COPY1"
};

/// Returns the newest such run whose disks are in bays of the enclosure. `folder` is that of the journals.
std::optional<BrokenOffRun> brokenOffRun(platform::VolumeFiles &files, const std::string &folder,
                                         const ScannedDevices &devices, const ORVThunderboltInfo &enclosure);

} // namespace orvana
