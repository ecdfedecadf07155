#pragma once

#include "foundation/Refusal.h"

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

struct DevicesOptions
{
    bool json = false;
    bool watch = false;
};

/// `plurimoctl devices`: enclosures with their bays, other disks, and all volumes. With `watch` it goes on to
/// print what comes and goes until SIGINT or SIGTERM, which must be blocked; `queue` is the host's.
ExitStatus runDevices(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                      const DevicesOptions &options);

} // namespace orvana::cli
