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

/// What the user of `plurimoctl erase` or `eject` said.
struct DiskOptions
{
    int enclosure = 0;
    std::vector<std::string> bays;  ///< "B"; none are B, C and D, the bays behind a source in A
    std::vector<std::string> names; ///< "B=COPY1"; erase only
    std::optional<std::string> logFolder;
    bool yes = false;
};

/// `plurimoctl erase`: gives the disks of an enclosure's bays a new file system, one after the other. Only
/// the disks that were shown and agreed to are touched. SIGINT and SIGTERM, which must be blocked, end it
/// after the disk in hand; `queue` is the host's.
ExitStatus runErase(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                    const DiskOptions &options);

/// `plurimoctl eject`: the same with ejecting them.
ExitStatus runEject(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                    const DiskOptions &options);

} // namespace orvana::cli
