#include "duplicate/evidence/DiskSort.h"

#include "platform/posix/NamelessFile.h"
#include "platform/posix/TransferAll.h"

#include <algorithm>
#include <cstring>
#include <unistd.h>

namespace orvana
{

namespace
{

using Length = std::uint32_t;

// Pieces are read in parts of this size. A hundred pieces then need less than 2 MiB.
constexpr std::size_t ReadAtOnce = 16UL * 1024;

} // namespace

void DiskSort::add(std::string_view record)
{
    m_places.push_back({m_bytes.size(), record.size()});
    m_bytes += record;
    ++m_count;
    if (m_bytes.size() + m_places.size() * sizeof(Place) > m_budget && !writePiece())
        m_hasLost = true;
}

void DiskSort::sortMemory()
{
    std::sort(m_places.begin(), m_places.end(),
              [this](const Place &left, const Place &right) { return recordAt(left) < recordAt(right); });
}

bool DiskSort::writePiece()
{
    sortMemory();
    std::string piece;
    piece.reserve(m_bytes.size() + m_places.size() * sizeof(Length));
    for (const auto &place : m_places) {
        const auto length = static_cast<Length>(place.length);
        piece.append(reinterpret_cast<const char *>(&length), sizeof length);
        piece += recordAt(place);
    }
    m_bytes.clear();
    m_places.clear();
    if (!m_file.isOpen())
        m_file = platform::posix::openNamelessFile(m_folder);
    if (!m_file.isOpen())
        return false;
    const auto start = m_pieces.empty() ? 0 : m_pieces.back().end;
    const auto written = platform::posix::transferAll(piece.size(), [&](std::size_t done) {
        return ::pwrite(m_file.number(), piece.data() + done, piece.size() - done,
                        static_cast<off_t>(start + done));
    });
    if (!written || *written != piece.size())
        return false;
    m_pieces.push_back({start, start + piece.size()});
    return true;
}

bool DiskSort::finish()
{
    sortMemory();
    return !m_hasLost;
}

DiskSort::Cursor::Cursor(const DiskSort &sort) : m_sort(sort)
{
    m_sources.reserve(sort.m_pieces.size() + 1);
    for (const auto &piece : sort.m_pieces)
        m_sources.emplace_back(piece.start, piece.end, false);
    m_sources.emplace_back(0, sort.m_places.size(), true);
    for (std::size_t i = 0; i < m_sources.size(); ++i) {
        if (advance(m_sources[i]))
            m_heap.push_back(i);
    }
    std::make_heap(m_heap.begin(), m_heap.end(),
                   [this](std::size_t left, std::size_t right) { return isAfter(left, right); });
}

bool DiskSort::Cursor::isAfter(std::size_t left, std::size_t right) const
{
    const int order = m_sources[left].record.compare(m_sources[right].record);
    return order > 0 || (order == 0 && left > right);
}

void DiskSort::Cursor::next()
{
    const auto after = [this](std::size_t left, std::size_t right) { return isAfter(left, right); };
    std::pop_heap(m_heap.begin(), m_heap.end(), after);
    if (advance(m_sources[m_heap.back()]))
        std::push_heap(m_heap.begin(), m_heap.end(), after);
    else
        m_heap.pop_back();
}

bool DiskSort::Cursor::advance(Source &source)
{
    if (!source.isMemory)
        return advanceInFile(source);
    if (source.next == source.end)
        return false;
    source.record = m_sort.recordAt(m_sort.m_places[source.next++]);
    return true;
}

bool DiskSort::Cursor::advanceInFile(Source &source)
{
    Length length = 0;
    if (!fill(source, sizeof length))
        return false;
    std::memcpy(&length, source.buffer.data() + source.used, sizeof length);
    if (!fill(source, sizeof length + length)) {
        m_hasFailed = true;
        return false;
    }
    source.record = std::string_view(source.buffer).substr(source.used + sizeof length, length);
    source.used += sizeof length + length;
    return true;
}

// Brings at least `wanted` unused bytes into the buffer. Returns false at the end, and when reading fails.
bool DiskSort::Cursor::fill(Source &source, std::size_t wanted)
{
    const auto unused = source.buffer.size() - source.used;
    if (unused >= wanted)
        return true;
    if (source.next == source.end)
        return false;
    source.buffer.erase(0, source.used);
    source.used = 0;
    const auto size =
        std::min<std::uint64_t>(std::max(wanted - unused, ReadAtOnce), source.end - source.next);
    source.buffer.resize(unused + size);
    const auto count = platform::posix::transferAll(size, [&](std::size_t done) {
        return ::pread(m_sort.m_file.number(), source.buffer.data() + unused + done, size - done,
                       static_cast<off_t>(source.next + done));
    });
    if (!count || *count != size) {
        m_hasFailed = true;
        source.buffer.resize(unused);
        source.next = source.end;
        return false;
    }
    source.next += size;
    return source.buffer.size() >= wanted;
}

} // namespace orvana
