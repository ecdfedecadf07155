#pragma once

#include "foundation/Refusal.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana
{
class PlainMainQueue;
}

namespace orvana::platform
{
class Host;
}

namespace orvana::cli
{

class Terminal;

/// The options of `plurimoctl erase`, `plurimoctl eject` and `plurimoctl mount`.
struct DiskOptions
{
    std::optional<int> enclosure;   ///< needed but for mount
    std::vector<std::string> bays;  ///< "B"; empty stands for B, C and D, the destinations of a source in A
    std::vector<std::string> names; ///< "B=COPY1"; erase only
    std::optional<std::string> logFolder;
    bool yes = false;
};

/// `plurimoctl erase`: gives the disks in an enclosure's bays a new file system, one after the other. Erases
/// only disks that the user has agreed to erase. SIGINT and SIGTERM end the command after the current disk;
/// the caller must have blocked both. `queue` is the queue of `host`.
ExitStatus runErase(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                    const DiskOptions &options);

/// `plurimoctl eject`: ejects the disks in an enclosure's bays. Consent, signals and `queue` as in
/// `runErase`.
ExitStatus runEject(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                    const DiskOptions &options);

/// `plurimoctl mount`: mounts what is in an enclosure's bays and not mounted; without bays, in all of them.
/// Needs no consent, because nothing on the disks changes. `queue` as in `runErase`.
ExitStatus runMount(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                    const DiskOptions &options);

} // namespace orvana::cli
