#pragma once

#include "cli/CopyPlan.h"

namespace orvana::platform
{
class Host;
}

namespace orvana::cli
{

class Terminal;

/// `plurimoctl copy`: copies the sources to all destinations at once and returns when that has ended.
///
/// SIGINT and SIGTERM, which must be blocked, cancel it. When a disk does not answer within ten seconds of
/// the end, it leaves the process with its status and does not return.
ExitStatus runCopy(platform::Host &host, Terminal &terminal, const CopyOptions &options);

} // namespace orvana::cli
