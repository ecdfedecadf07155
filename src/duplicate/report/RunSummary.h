#pragma once

#include "duplicate/report/DiskEntry.h"
#include "platform/Metadata.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

enum class RunOutcome { Finished, Cancelled };

/// The way in which a run came to its end.
enum class RunEnding {
    Copied,        ///< the copy ran to its end, well or not
    Cancelled,     ///< the user ended it
    EnclosureLost, ///< the enclosure was unplugged
    NothingToCopy, ///< there was no source, or no enclosure to copy to
    NoDestination, ///< all disks were left out
    Refused,       ///< the run was refused after the start
};

/// The kind of problem that a file on a destination has.
enum class ProblemKind {
    Failed,         ///< it could not be brought to the destination
    KeptTail,       ///< the copy holds bytes of an older, longer file behind its end
    SourceChanged,  ///< the source was written to meanwhile
    SameFile,       ///< its name leads to the copy of another file
    Mismatched,     ///< the copy was read back and differs
    Unverified,     ///< the copy could not be compared
    NotInManifest,  ///< it is on the destination as it should be, but in no manifest there
    NoManifest,     ///< the folder was to get a manifest, and has none
    CannotHold,     ///< the volume was found unable to hold it, before the first write
    NotAsInHistory, ///< the source's own history says something else of the file
};

/// The name of a kind in reports: "keptTail".
const char *nameOf(ProblemKind kind);

/// A problem with one file on one destination. Paths are bytes as they are on the disk.
struct RunProblem
{
    ProblemKind kind;
    std::string file;              ///< the path of the source
    std::string destination;       ///< the destination's root
    std::string reason;            ///< empty for a mismatch
    std::uint64_t firstOffset = 0; ///< of a mismatch: the byte at which the first differing block begins
    std::int64_t blocks = 0;       ///< of a mismatch: how many blocks differ
};

/// The place from which the copies of a destination were read back: its disk, or the memory before the disk.
enum class VerifiedFrom { None, Disk, Cache };

/// The place where a destination's copies are known to be.
enum class Durability {
    NotKnown,
    OnDisk,
    Memory, ///< the file system has no disk, and the copies are in its memory
};

/// The disk of a destination. All texts are empty for a destination that is a plain folder.
struct DestinationDisk
{
    std::string bay;  ///< "Slot-A" to "Slot-D"
    std::string name; ///< the volume's name as the bay showed it, bytes
    std::string model;
    std::string serial;
    std::optional<std::uint64_t> size; ///< bytes; nullopt when it is not known
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::string health{}; ///< before the run; empty if it was not asked
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::string healthAfter{}; ///< after the run, with what is new; empty if it was not asked

    bool operator==(const DestinationDisk &) const = default;
};

/// A manifest that a run wrote to a destination.
struct ManifestSummary
{
    std::string path;       ///< below the destination's root, bytes
    std::string digestName; ///< "c4" or "sha256"
    std::string digest;     ///< of the manifest itself
    std::int64_t files = 0; ///< in it

    bool operator==(const ManifestSummary &) const = default;
};

/// The counts and the state of one destination.
struct DestinationSummary
{
    std::string path;               ///< the destination's root, bytes as they are on the disk
    std::int64_t copied = 0;        ///< files, once they are known to be on the disk
    std::int64_t failed = 0;        ///< files and folders that are missing or incomplete
    std::int64_t alreadyThere = 0;  ///< of `copied`: files for which nothing had to be written
    std::int64_t verified = 0;      ///< copies that were read back and equal their source
    std::int64_t mismatched = 0;    ///< copies that were read back and differ
    std::int64_t unverified = 0;    ///< copies that could not be compared
    std::uint64_t bytes = 0;        ///< bytes written
    std::int64_t blocksWritten = 0; ///< of up to 1 MiB
    double secondsWriting = 0;      ///< including the wait for the disk
    double secondsSyncing = 0;
    VerifiedFrom verifiedFrom = VerifiedFrom::None;
    std::int64_t repaired = 0; ///< of `verified`: files in which blocks were written again
    bool isSuspect = false;    ///< the disk keeps what is written to it wrongly
    bool isSlowest = false;    ///< the slowest of several destinations
    Durability durability = Durability::NotKnown;
    std::int64_t notKnownToBeOnDisk = 0; ///< files that would otherwise count as copied
    std::string reason;                  ///< why the copies are not known to be on the disk
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    DestinationDisk disk{};
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::vector<ManifestSummary> manifests{};
    std::int64_t notInManifest = 0;    ///< files on the disk that no manifest lists, as far as the run knows
    std::int64_t evidenceFailures = 0; ///< missing manifests, and files that are not as in the history
    /// Entries without a part of their source that the volume cannot hold, by `platform::Part`.
    std::array<std::int64_t, platform::PartCount> notKept{};
    std::int64_t cannotHold = 0; ///< entries that the volume was found unable to hold before the first write
};

/// Seconds spent in the phases of a run.
struct PhaseTimes
{
    double copy = 0;
    double verify = 0;
    double sync = 0;
};

/// The account of a run. Everything that shows or writes the result of a run reads this struct.
struct RunSummary
{
    std::string started; ///< local time with offset
    std::string ended;   ///< local time with offset, when this summary was made
    RunOutcome outcome = RunOutcome::Finished;
    std::string note;   ///< a remark on the whole run; empty for none
    std::string source; ///< root of the source, bytes as they are on the disk
    std::int64_t filesStarted = 0;
    std::uint64_t sourceBytes = 0; ///< bytes of the started files, when they were opened
    std::int64_t leftOut = 0;      ///< items that were left out by a rule
    bool verify = false;
    PhaseTimes seconds;
    std::vector<DiskEntry> disks;
    std::vector<DestinationSummary> destinations;
    RunEnding ending = RunEnding::Copied; ///< valid once the run has ended
    bool hasErased = false;               ///< disks were to be erased, and the disk tool has run
    bool isRecorded = false;              ///< log and report are written and complete
};

/// True when every file is on the destination, nothing differed, and no manifest is missing, as far as the
/// run came.
bool isWhole(const DestinationSummary &destination);

/// True when every file is on every destination and nothing differed, as far as the run came, and no disk
/// failed or was refused.
bool isAllDone(const RunSummary &summary);

/// Returns a readable line for each disk that was not erased or was left out of the run.
std::vector<std::string> diskLines(const RunSummary &summary);

/// Returns a readable line for each destination whose data is not known to be on its disk.
std::vector<std::string> notOnDiskLines(const RunSummary &summary);

/// Returns a readable line for each disk that was asked how it is after the run: "Slot-B (COPY1): good, 31
/// °C".
std::vector<std::string> healthLines(const RunSummary &summary);

/// Returns a readable line for each manifest of the destination: its path, the number of its files, and its
/// own digest.
std::vector<std::string> manifestLines(const DestinationSummary &destination);

/// The name of a part in reports: "extendedAttributes".
const char *nameOf(platform::Part part);

/// Says in words what the destination could not keep of its source: "2 owners, 1 link". Empty if it kept all
/// that was asked for.
std::string notKeptText(const DestinationSummary &destination);

/// Returns a problem as one readable line: "failed: /source/file -> /destination: no space".
std::string problemText(const RunProblem &problem);

} // namespace orvana
