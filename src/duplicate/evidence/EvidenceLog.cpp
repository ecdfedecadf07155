#include "duplicate/evidence/EvidenceLog.h"

#include "duplicate/evidence/SortKey.h"

#include <array>
#include <cstring>
#include <type_traits>

namespace orvana
{

namespace
{

constexpr std::size_t Budget = 4UL * 1024 * 1024;

template <class Number>
void put(std::string &record, Number number)
{
    static_assert(std::is_integral_v<Number>);
    std::array<char, sizeof(Number)> bytes{};
    std::memcpy(bytes.data(), &number, bytes.size());
    record.append(bytes.data(), bytes.size());
}

template <class Number>
Number take(std::string_view &record)
{
    std::array<char, sizeof(Number)> bytes{};
    record.copy(bytes.data(), bytes.size());
    Number number{};
    std::memcpy(&number, bytes.data(), bytes.size());
    record.remove_prefix(sizeof number);
    return number;
}

// The most significant byte comes first, so that the numbers sort.
void putSorting(std::string &record, std::uint64_t number)
{
    for (int shift = 56; shift >= 0; shift -= 8)
        record += static_cast<char>(number >> static_cast<unsigned>(shift));
}

// The record without the path and the number of the entry.
EvidenceEntry entryOf(std::string_view record)
{
    EvidenceEntry entry;
    entry.isFolder = take<char>(record) != 0;
    entry.format = static_cast<DigestFormat>(take<char>(record));
    entry.size = take<std::uint64_t>(record);
    entry.modified = take<std::int64_t>(record);
    entry.digested = take<std::int64_t>(record);
    const auto length = static_cast<std::size_t>(take<unsigned char>(record));
    entry.digest = record.substr(0, length);
    entry.states = record.substr(length);
    return entry;
}

} // namespace

EvidenceLog::EvidenceLog(const std::string &folder) : m_sort(folder, Budget) {}

void EvidenceLog::add(const EvidenceEntry &entry)
{
    auto record = sortKey(entry.path);
    putSorting(record, m_next++);
    put(record, static_cast<char>(entry.isFolder));
    put(record, static_cast<char>(entry.format));
    put(record, entry.size);
    put(record, entry.modified);
    put(record, entry.digested);
    put(record, static_cast<unsigned char>(entry.digest.size()));
    record += entry.digest;
    record += entry.states;
    m_sort.add(record);
}

EvidenceLog::Reader::Reader(const EvidenceLog &log, std::size_t copy) : m_cursor(log.m_sort), m_copy(copy) {}

bool EvidenceLog::Reader::next()
{
    while (m_cursor) {
        auto record = m_cursor.record();
        const auto path = takeSortKey(record);
        m_state = CopyState::NotMade;
        // All entries of one path, in the order in which they came.
        while (m_cursor) {
            auto again = m_cursor.record();
            if (takeSortKey(again) != path)
                break;
            take<std::uint64_t>(again);
            auto entry = entryOf(again);
            const auto state =
                m_copy < entry.states.size() ? CopyState{entry.states[m_copy]} : CopyState::NotMade;
            if (state != CopyState::NotMade) {
                m_state = state;
                m_entry = std::move(entry);
            }
            m_cursor.next();
        }
        m_entry.path = path;
        if (m_state != CopyState::NotMade)
            return true;
    }
    return false;
}

} // namespace orvana
