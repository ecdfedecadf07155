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
    bool health = false;
};

/// `plurimoctl devices`: prints the enclosures with their bays, the other disks, and all volumes. With
/// `watch` it then prints every change until SIGINT or SIGTERM; the caller must have blocked both. `queue` is
/// the queue of `host`.
ExitStatus runDevices(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                      const DevicesOptions &options);

} // namespace orvana::cli
