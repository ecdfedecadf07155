#pragma once

#include "cli/DuplicatePlan.h"

namespace orvana::cli
{

class Terminal;

/// `plurimoctl duplicate`: copies a selection of the source onto the disks in the enclosure's bays, and
/// returns when the run has ended. Erases the disks first if the options ask for that.
///
/// SIGINT and SIGTERM cancel the run; the caller must have blocked both. An erase ends after the current
/// disk. `queue` is the queue of `host`. If a disk does not answer within ten seconds of the end, the
/// function leaves the process with its status and does not return.
ExitStatus runDuplicate(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                        const DuplicateOptions &options);

} // namespace orvana::cli
