#include "duplicate/evidence/FoundEntries.h"

#include "duplicate/evidence/SortKey.h"

namespace orvana
{

namespace
{

constexpr std::size_t Budget = 4UL * 1024 * 1024;

// What is kept of an entry besides its path.
struct Facts
{
    std::uint64_t size;
    std::int64_t modified;
    bool isFolder;
};

} // namespace

FoundEntries::FoundEntries(const std::string &folder) : m_sort(folder, Budget) {}

void FoundEntries::add(const FoundEntry &entry)
{
    const Facts facts{entry.size, entry.modified, entry.isFolder};
    auto record = sortKey(entry.path);
    m_sort.add(record.append(reinterpret_cast<const char *>(&facts), sizeof facts));
}

void FoundEntries::Reader::read()
{
    if (!m_cursor)
        return;
    auto record = m_cursor.record();
    m_entry.path = takeSortKey(record);
    Facts facts{};
    record.copy(reinterpret_cast<char *>(&facts), sizeof facts);
    m_entry.isFolder = facts.isFolder;
    m_entry.size = facts.size;
    m_entry.modified = facts.modified;
}

void FoundEntries::Reader::next()
{
    m_cursor.next();
    read();
}

} // namespace orvana
