#pragma once

#include "duplicate/plan/ScannedDevices.h"

namespace orvana
{

/// Asks each disk in the bays of the chosen enclosure how it is, and marks in `choice` the bays whose disks
/// call themselves failing. A disk whose serial number is among `choice.insisted` is not marked, and neither
/// is the bay of the source: a source that fails must be saved. Main thread only.
void markFailing(platform::Host &host, const ScannedDevices &devices, RunChoice &choice);

} // namespace orvana
