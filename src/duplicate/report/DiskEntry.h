#pragma once

#include "duplicate/disktool/DiskUtilInfo.h"
#include "foundation/PathJson.h"

#include <string>

namespace orvana
{

/// The outcome for one disk as a whole, apart from the files that were copied to it.
enum class DiskOutcome {
    Erased,
    EraseFailed,
    LeftOut, ///< the user could see it beforehand: the disk carries the source, or is too small
    Refused, ///< the disk could not take part, for another reason
};

struct DiskEntry
{
    std::string bay;   ///< "Slot-A" to "Slot-D"
    std::string name;  ///< shown in the bay, or given to the disk
    DiskUtilInfo disk; ///< empty for a disk that was not touched
    DiskOutcome outcome;
    std::string reason; ///< valid UTF-8; empty for an erased disk

    bool operator==(const DiskEntry &) const = default;
};

/// Returns the entry as it stands in the report.
Json diskJson(const DiskEntry &entry);

/// "Slot-B (COPY1): could not be erased: Error: the disk is in use"
std::string diskText(const DiskEntry &entry);

} // namespace orvana
