#pragma once

#include "duplicate/job/JobFile.h"
#include "duplicate/line/LineEntry.h"
#include "duplicate/line/NamePattern.h"
#include "duplicate/plan/RunOrder.h"
#include "foundation/Refusal.h"

#include <optional>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

/// The content that every disk of a line gets, and the enclosure that it is in.
struct LineWork
{
    Job job;
    std::optional<NamePattern> pattern; ///< of the disks' new names; without it they are those of the job
    RunChoice choice;                   ///< of each run, without what depends on its disks
    std::vector<std::string> selection;
    SourceMemory source;
    std::int64_t files = 0;  ///< of the selection; the caller counts them
    std::uint64_t bytes = 0; ///< of the selection; the caller counts them
};

/// Reads the head of a line: its job and its pattern. Refuses what would never count a disk, and names that
/// no volume can have.
tl::expected<LineWork, Refusal> readLine(const LineHead &head);

/// Finds the work's source and selection on this machine. Reads only. The enclosure must be usable.
tl::expected<void, Refusal> findSource(LineWork &work, platform::Host &host, const ScannedDevices &devices,
                                       const ChosenEnclosure &enclosure);

/// Returns the name of a disk that gets this number, with `present` as the name that its volume has now.
std::string nameOn(const LineWork &work, Bay bay, const NameValues &values, const std::string &present);

} // namespace orvana
