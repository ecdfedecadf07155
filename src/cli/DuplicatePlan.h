#pragma once

#include "cli/DeviceScan.h"
#include "duplicate/engine/CopyJob.h"
#include "duplicate/job/JobFile.h"
#include "duplicate/plan/SourceDisks.h"

namespace orvana::cli
{

/// The options of `plurimoctl duplicate`.
struct DuplicateOptions
{
    std::optional<int> enclosure;
    std::optional<std::string> source;
    std::vector<std::string> selection; ///< paths, absolute or below the source; empty is the whole source
    std::vector<std::string> names;     ///< "B=COPY1"; with erase only
    std::optional<std::string> logFolder;
    bool erase = false;
    bool verify = false;
    RunSettings settings;
    std::vector<std::string>
        insisted; ///< serial numbers of disks that are used even if they call themselves failing
    std::optional<std::string> jobFile; ///< instead of source, selection, names, erase, verify and settings
    std::optional<Job> job;             ///< what `withJob` has read from that file
    bool yes = false;
    bool json = false;
};

/// Returns the options with what their job file says, if they name one.
tl::expected<DuplicateOptions, Refusal> withJob(DuplicateOptions options);

/// The duplication as it was planned from the options.
struct Duplication
{
    RunChoice choice;
    PerBay<std::optional<std::string>> typed; ///< the names that the user gave
    PerBay<std::string> present;              ///< the present names of the volumes in the bays
    CopyJob job;                              ///< without destinations
    SourceMemory source;                      ///< the source as it was then
};

/// Returns the duplication that the options ask for, or the reason why there is none. Reads only.
tl::expected<Duplication, Refusal> planDuplication(platform::Host &host, const DeviceScan &scan,
                                                   const DuplicateOptions &options);

/// The state of the destination disks when the command gives its reason for ending.
enum class SoFar { Untouched, Erased };

/// Returns the refusal for a source that is gone, or is not the same any more. `soFar` decides what the text
/// says about the destinations.
Refusal sourceGone(const SourceMemory &source, SoFar soFar);

/// Stores the bytes of the selection in `choice`, and which bays are too small for them.
void markOverSize(RunChoice &choice, const ORVThunderboltInfo &enclosure, std::uint64_t bytes);

} // namespace orvana::cli
