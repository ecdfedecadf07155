#pragma once

#include "platform/VolumeFiles.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

/// The attributes by which a file is known to be unchanged without reading it.
struct FileMarks
{
    std::uint64_t size = 0;
    std::uint64_t inode = 0;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::int64_t changed = 0;  ///< nanoseconds since 1970

    bool operator==(const FileMarks &) const = default;
};

FileMarks marksOf(const platform::Attributes &attributes);

/// How a copy in a journal was checked. The letters stand in the file.
enum class CopyCheck : char {
    None = 'c',       ///< it was only written
    FromMemory = 'm', ///< it was read back, but perhaps from memory
    FromDisk = 'd',   ///< it was read back from the disk
};

/// One copy that is on its disk.
struct JournalRecord
{
    std::size_t destination = 0; ///< as the journal numbers them
    std::uint64_t group = 0;     ///< records of one group came to the disk with one sync
    std::uint64_t bytes = 0;     ///< of all records of the destination up to and with this one
    CopyCheck check = CopyCheck::None;
    platform::Keep keep = platform::Keep::Nothing; ///< what else the copy has of its source
    FileMarks source;
    FileMarks copy;
    std::string digest; ///< of the content, as "xxh128:..."; empty if none was made
    std::string path;   ///< below the destination's root, bytes

    bool operator==(const JournalRecord &) const = default;
};

/// A volume or folder of a run. Texts are bytes; they are empty where they are not known.
struct JournalPlace
{
    std::string root;   ///< its path
    std::string volume; ///< id of the volume
    std::string disk;   ///< serial number of the disk

    bool operator==(const JournalPlace &) const = default;
};

/// True when both may be the same volume or folder: by volume and disk if both know them, else by path.
bool isSamePlace(const JournalPlace &a, const JournalPlace &b);

/// True when the two cannot be told to be different, because they have the same path, or the same volume or
/// disk.
bool mayBeSamePlace(const JournalPlace &a, const JournalPlace &b);

/// True when the place is known by more than its path, which another disk can have as well.
bool isNamed(const JournalPlace &place);

// Each line of a journal begins with a check of its own, so that a line that a power cut tore is never taken
// for a whole one.

std::string lineOf(const JournalRecord &record);

/// The line that opens a journal, with the source of the run.
std::string openingLine(const JournalPlace &source);

/// The line that holds the run as a job, so that it can be asked for again.
std::string jobLine(std::string_view job);

/// The line that gives a destination its number.
std::string destinationLine(std::size_t number, const JournalPlace &place);

/// The line that voids all records of a destination so far.
std::string endLine(std::size_t number);

/// The line that says that a run goes on with this journal. What was in the last groups then stays in doubt.
std::string resumedLine();

/// The content of one line.
struct JournalLine
{
    enum class Kind { Opening, Job, Destination, Record, End, Resumed } kind = Kind::Record;
    std::size_t destination = 0; ///< of a destination and of an end
    JournalPlace place;          ///< of an opening and of a destination
    JournalRecord record;
    std::string job;
};

/// Reads a line without its newline. Returns nullopt for a line that is not whole.
std::optional<JournalLine> parseLine(std::string_view line);

} // namespace orvana
