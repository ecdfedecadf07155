#pragma once

#include "cli/CopyPlan.h"

namespace orvana::platform
{
class Host;
}

namespace orvana::cli
{

class Terminal;

/// `plurimoctl copy`: copies the sources to all destinations at once and returns when the copy has ended.
///
/// SIGINT and SIGTERM cancel the copy; the caller must have blocked both. If a disk does not answer within
/// ten seconds of the end, the function leaves the process with its status and does not return.
ExitStatus runCopy(platform::Host &host, Terminal &terminal, const CopyOptions &options);

} // namespace orvana::cli
