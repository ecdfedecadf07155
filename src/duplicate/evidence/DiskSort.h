#pragma once

#include "platform/posix/Descriptor.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvana
{

/// Sorts records, byte strings, of which there may be more than memory should hold. Beyond `budget` bytes
/// they go, sorted piece by piece, to a file without a name in `folder`.
///
/// Records are added on one thread. After `finish` any number of cursors read them, each on its own thread.
class DiskSort
{
public:
    DiskSort(std::string folder, std::size_t budget) : m_folder(std::move(folder)), m_budget(budget) {}

    void add(std::string_view record);

    /// Ends the adding. Returns false when a record was lost because the file could not be written.
    bool finish();

    std::uint64_t count() const { return m_count; }

    class Cursor;

private:
    struct Piece
    {
        std::uint64_t start;
        std::uint64_t end;
    };
    struct Place
    {
        std::size_t start;
        std::size_t length;
    };

    std::string_view recordAt(const Place &place) const
    {
        return {m_bytes.data() + place.start, place.length};
    }
    void sortMemory();
    bool writePiece();

    std::string m_folder;
    std::size_t m_budget;
    std::string m_bytes; // of the records that are in memory
    std::vector<Place> m_places;
    platform::posix::Descriptor m_file;
    std::vector<Piece> m_pieces; // of the file
    std::uint64_t m_count = 0;
    bool m_hasLost = false;
};

/// Reads the records of a `DiskSort` in ascending order of their bytes. The sort must outlive it.
class DiskSort::Cursor
{
public:
    explicit Cursor(const DiskSort &sort);

    /// True while there is a record.
    explicit operator bool() const { return !m_heap.empty(); }

    /// The present record. It is valid until `next`.
    std::string_view record() const { return m_sources[m_heap.front()].record; }

    void next();

    /// True when the file could not be read to its end.
    bool hasFailed() const { return m_hasFailed; }

private:
    // One sorted piece: a range of the file, or the records that are in memory.
    struct Source
    {
        Source(std::uint64_t start, std::uint64_t endOfPiece, bool isInMemory)
            : next(start), end(endOfPiece), isMemory(isInMemory)
        {
        }

        std::uint64_t next;
        std::uint64_t end;
        bool isMemory;
        std::string buffer;
        std::size_t used = 0;
        std::string_view record;
    };

    bool advance(Source &source);
    bool advanceInFile(Source &source);
    bool fill(Source &source, std::size_t wanted);
    bool isAfter(std::size_t left, std::size_t right) const;

    const DiskSort &m_sort;
    std::vector<Source> m_sources;
    std::vector<std::size_t> m_heap; // indices of sources, the smallest record in front
    bool m_hasFailed = false;
};

} // namespace orvana
