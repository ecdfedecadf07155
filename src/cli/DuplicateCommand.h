#pragma once

#include "cli/DuplicatePlan.h"

namespace orvana::cli
{

class Terminal;

/// `plurimoctl duplicate`: copies a selection of the source onto the disks in the enclosure's bays, erasing
/// them first if asked to, and returns when that has ended.
///
/// SIGINT and SIGTERM, which must be blocked, cancel it; an erase ends after the disk in hand. `queue` is the
/// host's. When a disk does not answer within ten seconds of the end, it leaves the process with its status
/// and does not return.
ExitStatus runDuplicate(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                        const DuplicateOptions &options);

} // namespace orvana::cli
