#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// The order for a line: the disks that it makes, and how many. It never holds the user's consent to an
/// erase.
struct LineHead
{
    std::string id;      ///< of the line, unique on its station: "20261123-141530-7c1e"
    std::string station; ///< id of the station: "3f9a01c2"
    std::string name;    ///< for people
    std::string job;     ///< the text of a job file
    std::int64_t wanted = 0;
    std::string pattern;      ///< of the disks' new names; empty for the names of the job
    std::string certificates; ///< folder that gets a certificate for each disk; empty for one of its own
    bool needsSerial = true;  ///< a disk without a serial number is not taken
    std::string begun;        ///< local time with offset

    bool operator==(const LineHead &) const = default;
};

/// The end of a disk's time on a line.
enum class LineVerdict {
    Passed,    ///< it holds every file, all were read back from the disk, and nothing failed
    NotProven, ///< it holds every file, but not all of that is known for certain
    Failed,    ///< anything less
};

/// "passed", "done, not proven", "failed"
const char *wordOf(LineVerdict verdict);

/// Returns the verdict with that word, or nullopt.
std::optional<LineVerdict> lineVerdictOf(std::string_view word);

/// A disk that a line began to write. Texts from disks are bytes.
struct LineDisk
{
    std::int64_t number = 0; ///< counts from 1, and is never given twice on a line
    std::string bay;         ///< "Slot-A" to "Slot-D"
    std::string name;        ///< that its volume gets
    std::string serial;
    std::string model;
    std::int64_t size = 0; ///< bytes
    std::string began;     ///< local time with offset

    bool operator==(const LineDisk &) const = default;
};

struct LineResult
{
    LineVerdict verdict = LineVerdict::Failed;
    std::string reason; ///< empty for a disk that passed; valid UTF-8
    std::string ended;  ///< local time with offset
    std::int64_t files = 0;
    std::uint64_t bytes = 0;
    std::string manifest;    ///< "c4 c41x…": digest of the manifest itself; empty if there is none
    std::string health;      ///< what the disk said of itself; empty if it was not asked
    std::string certificate; ///< file name in the line's folder of certificates

    bool operator==(const LineResult &) const = default;
};

/// A row of the ledger. Without a result, the disk is in work, or the program ended before its end.
struct LineEntry
{
    LineDisk disk;
    std::optional<LineResult> result;

    bool operator==(const LineEntry &) const = default;
};

/// Returns the id of a disk that no other station, line or disk has: "3f9a01c2/20261123-141530-7c1e/0007".
std::string idOf(const LineHead &head, std::int64_t number);

/// Returns the name of a disk's certificate in the line's folder of certificates, without its ending.
std::string certificateNameOf(const LineHead &head, std::int64_t number);

/// The counts of a line. A disk that passed and was written once more counts as what it became then.
struct LineCounts
{
    std::int64_t wanted = 0;
    std::int64_t passed = 0;
    std::int64_t notProven = 0;
    std::int64_t failed = 0;
    std::int64_t inWork = 0;

    bool operator==(const LineCounts &) const = default;
};

LineCounts countsOf(std::int64_t wanted, const std::vector<LineEntry> &entries);

/// "17 of 40, 1 failed, 3 in work"
std::string textOf(const LineCounts &counts);

} // namespace orvana
