#pragma once

#include "duplicate/engine/JournalOrder.h"
#include "duplicate/plan/RunOrder.h"

#include <optional>
#include <string>

namespace orvana
{

/// Returns how the run keeps its journal in `folder`. `devices` are those that were found last: they tell by
/// which marks source and destinations are known again.
JournalOrder journalOf(const RunOrder &order, const CopyJob &job, const ScannedDevices &devices,
                       const std::string &folder);

/// Voids what the journals in `folder` say of these disks, which are about to be erased.
void endJournalsOf(platform::Host &host, const std::vector<DiskUtilInfo> &disks, const std::string &folder);

} // namespace orvana
