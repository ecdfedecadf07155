#pragma once

#include "duplicate/disktool/DiskUtilInfo.h"
#include "foundation/PathJson.h"

#include <string>

namespace orvana
{

/// What became of one disk as a whole, beside the files that were copied to it.
enum class DiskOutcome {
    Erased,
    EraseFailed,
    LeftOut, ///< as the user could see beforehand: it carries the source, or is too small
    Refused, ///< it could not take part, for another reason
};

struct DiskEntry
{
    std::string bay;   ///< "Slot-A" to "Slot-D"
    std::string name;  ///< shown in the bay, or given to it
    DiskUtilInfo disk; ///< empty for a disk that was not touched
    DiskOutcome outcome;
    std::string reason; ///< valid UTF-8; empty for an erased disk

    bool operator==(const DiskEntry &) const = default;
};

/// As it stands in the report.
Json diskJson(const DiskEntry &entry);

/// "Slot-B (COPY1): could not be erased: Error: the disk is in use"
std::string diskText(const DiskEntry &entry);

} // namespace orvana
