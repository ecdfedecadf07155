#pragma once

#include "cli/DeviceScan.h"
#include "duplicate/engine/CopyJob.h"
#include "duplicate/plan/SourceDisks.h"

namespace orvana::cli
{

/// What the user of `plurimoctl duplicate` said.
struct DuplicateOptions
{
    std::optional<int> enclosure;
    std::optional<std::string> source;
    std::vector<std::string> selection; ///< paths, absolute or below the source; none is the whole source
    std::vector<std::string> names;     ///< "B=COPY1"; with erase only
    std::optional<std::string> logFolder;
    bool erase = false;
    bool verify = false;
    bool yes = false;
    bool json = false;
};

/// What will be duplicated, as it was when the user said so.
struct Duplication
{
    RunChoice choice;
    PerBay<std::optional<std::string>> typed; ///< the names that were given
    PerBay<std::string> present;              ///< the names that the bays have
    CopyJob job;                              ///< without destinations
    SourceMemory source;                      ///< what the source was
};

/// The duplication that the options ask for, or why there is none. Reads only.
tl::expected<Duplication, Refusal> planDuplication(platform::Host &host, const DeviceScan &scan,
                                                   const DuplicateOptions &options);

/// The state of the destination disks when the command says why it ends.
enum class SoFar { Untouched, Erased };

/// The source is not there any more, or not what it was. `soFar` decides what the reason says of the
/// destinations.
Refusal sourceGone(const SourceMemory &source, SoFar soFar);

/// Notes the bytes of the selection, and into which bays they do not fit.
void markOverSize(RunChoice &choice, const ORVThunderboltInfo &enclosure, std::uint64_t bytes);

} // namespace orvana::cli
