#pragma once

#include "duplicate/engine/Destination.h"
#include "duplicate/engine/WriteOutPump.h"
#include "duplicate/engine/WrittenFiles.h"
#include "duplicate/evidence/Digest.h"
#include "duplicate/report/RunReport.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace orvana
{

/// The work that is to be done for the copy of the file in hand.
enum class CopyWork {
    Write,
    Compare, ///< read what is there, and write only what differs
    None,    ///< an earlier run has brought it to the disk, and it is unchanged
};

/// The copy of the file in hand while it is written.
struct WrittenCopy
{
    std::unique_ptr<platform::File> file;
    std::optional<platform::FileError> error; ///< the first error; nothing more is written after it
    bool existed = false;                     ///< the file was there; if `file` is null, opening it failed
    std::optional<std::uint64_t> tail;        ///< bytes of an older file after the copy's end
    std::string otherName;                    ///< with SameFile: the other name of the file there
    bool isCompared = false;                  ///< blocks are read, and written only where they differ
    std::optional<platform::FileError> writeRefusal; ///< why a compared file cannot be written to
    bool isWritten = false;                          ///< something of it was written or cut off
    std::uint64_t inMemory = 0;                      ///< bytes written that no pump knows of yet
    bool isClosed = false;
    bool isTold = false; ///< the error was reported
};

/// The copy of the file in hand while it is read back.
struct ComparedCopy
{
    std::unique_ptr<platform::File> file; ///< null when the copy is not compared, or no longer
    std::unique_ptr<std::byte[]> block;   ///< BlockSize bytes; kept from file to file
    std::optional<Digest> digest;         ///< of what was read back, if the run makes digests
    bool isFromDisk = false;              ///< what is read comes from the disk
    bool differsHere = false;             ///< in the current block
    std::optional<platform::FileError> error;
    std::optional<platform::FileError> sourceError;
    std::int64_t differences = 0;         ///< blocks that differ
    std::vector<std::uint64_t> badBlocks; ///< where they begin, for a repair; not all of very many
    std::uint64_t firstOffset = 0;

    /// True if the copy is compared and everything read from it so far equals its source.
    bool isGood() const { return file && !error && differences == 0; }
};

/// One destination of a run: its folder, its counts, and the state of the file in hand there.
///
/// Used by the copy thread, and by a worker that does the work for this destination.
struct Target
{
    /// Opens the folder at `root`. `tallyOfReport` must outlive the target.
    Target(std::size_t place, platform::VolumeFiles &files, const std::string &root,
           DestinationTally &tallyOfReport);

    /// From now on moves written data to the disk in the background, if the volume needs that.
    void startPump();

    const std::size_t index; ///< its place in the job and in the report
    Destination destination;
    DestinationTally &tally;
    WrittenFiles written;               ///< the files that this run wrote there
    std::unique_ptr<WriteOutPump> pump; ///< null if the volume needs none, or no thread could be started

    bool isLeftOut = false; ///< it takes no part in the run

    // The file in hand.
    CopyWork work = CopyWork::Write;
    std::optional<platform::Attributes> copyInHand; ///< of the complete copy
    bool isVerifiedBefore = false;                  ///< an earlier run has read it back from the disk
    std::string digestBefore;                       ///< as an earlier run has noted it: "xxh128:..."
    bool isCopied = false;                          ///< it counts as copied
    bool isThereBefore = false;                     ///< it counts as copied, and nothing had to be written
    bool isVerified = false;                        ///< it was read back and equals its source
    bool isFurtherName = false;                     ///< it is a further name of an earlier copy
    bool isDoneBefore = false;                      ///< its source was copied there earlier in this run
    bool hasFailed = false;                         ///< the report says that it failed
    std::optional<platform::FileError> parentError; ///< its folder could not be made
    WrittenCopy output;
    ComparedCopy comparison;
};

} // namespace orvana
