#pragma once

#include "duplicate/journal/JournalFile.h"
#include "platform/posix/Descriptor.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// Finds the records of a journal by destination and path. Of several records of one copy the last one
/// counts. Its table lies in a file without a name, so the memory does not grow with the journal.
///
/// Reads only the records that were there when it was made. Used by one thread at a time.
class JournalIndex
{
public:
    /// Reads the whole journal, which must outlive this object. `folder` is for the table.
    JournalIndex(const JournalFile &copies, const std::string &folder);

    struct Found
    {
        JournalRecord record;
        /// It is among the last that were written before the run broke off: in the last group, or in the last
        /// 256 MiB. What a disk still held in its own memory may be lost.
        bool isRecent = false;
    };

    std::optional<Found> find(std::size_t destination, std::string_view path) const;

    /// The end of what a run has recorded of a destination.
    struct Last
    {
        std::uint64_t group = 0;
        std::uint64_t bytes = 0;
    };

    /// Returns where the records of the destination end.
    Last lastOf(std::size_t destination) const;

private:
    struct Slot
    {
        std::uint64_t hash = 0;
        std::uint64_t place = 0; ///< offset of the line, plus one; 0 in an empty slot
    };

    bool read(std::uint64_t slot, Slot &into) const;
    bool write(std::uint64_t slot, const Slot &value) const;
    bool add(const JournalRecord &record, std::uint64_t offset) const;

    const JournalFile &m_copies;
    platform::posix::Descriptor m_table;
    std::uint64_t m_slots = 1;                       ///< a power of two
    std::map<std::size_t, std::vector<Last>> m_last; ///< of each run that went on with the journal
    bool m_isComplete = false;
};

} // namespace orvana
