#pragma once

#include "duplicate/evidence/DiskLists.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvana
{

/// What a verification found out about one file.
enum class FileFinding {
    Whole,
    Changed,    ///< its digest is not the one in the list
    Missing,    ///< it is in the list, but not on the disk
    New,        ///< it is on the disk, but not in the list
    Unreadable, ///< it could not be read to its end
};

/// "whole", "changed", "missing", "new" or "unreadable"
const char *nameOf(FileFinding finding);

/// A file that is not as its list says.
struct Finding
{
    FileFinding finding = FileFinding::Changed;
    std::string path;   ///< below the disk's root, bytes
    std::string reason; ///< of an unreadable file; else empty
};

/// How a list stands to the copy of it that the station has kept.
enum class StationCopy {
    Unknown, ///< the station has none
    Agrees,
    Differs, ///< the list was changed since the station wrote it
};

/// A list and what it says of the disk.
struct VerifiedList
{
    DiskList list;
    StationCopy station = StationCopy::Unknown;
    std::string error;       ///< why the list is of no use; empty for none
    std::string recorded;    ///< the generation that was appended, below the disk's root; empty for none
    std::string notRecorded; ///< why none was appended, although that was wished
};

/// What became of one disk.
struct DiskVerdict
{
    std::vector<VerifiedList> lists;
    std::int64_t whole = 0;
    std::int64_t changed = 0;
    std::int64_t missing = 0;
    std::int64_t added = 0; ///< new files
    std::int64_t unreadable = 0;
    std::uint64_t bytes = 0; ///< read
    std::string error;       ///< why the disk could not be verified at all; empty for none
    bool isCancelled = false;

    /// True when the disk has a list and every file is as its list says.
    bool isWhole() const;

    /// True when nothing is wrong but that there is no list.
    bool hasNoList() const { return lists.empty() && error.empty() && !isCancelled; }
};

} // namespace orvana
