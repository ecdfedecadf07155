#include "duplicate/journal/JournalIndex.h"

#include "platform/posix/NamelessFile.h"
#include "platform/posix/TransferAll.h"

#include <algorithm>
#include <bit>
#include <unistd.h>
#include <xxhash.h>

namespace orvana
{

namespace
{

// No line is shorter, so a journal has at most its size divided by this records.
constexpr std::uint64_t ShortestLine = 48;

constexpr std::uint64_t RecentBytes = 268'435'456;

std::uint64_t hashOf(std::size_t destination, std::string_view path)
{
    return XXH3_64bits_withSeed(path.data(), path.size(), destination);
}

bool isAmongTheLast(const JournalRecord &record, const JournalIndex::Last &last)
{
    const bool isBefore = record.group <= last.group && record.bytes <= last.bytes;
    return isBefore && (record.group == last.group || record.bytes + RecentBytes > last.bytes);
}

} // namespace

JournalIndex::JournalIndex(const JournalFile &copies, const std::string &folder)
    : m_copies(copies), m_table(platform::posix::openNamelessFile(folder)),
      m_slots(std::bit_ceil(2 * (copies.size() / ShortestLine) + 2))
{
    if (!m_table.isOpen() || ::ftruncate(m_table.number(), static_cast<off_t>(m_slots * sizeof(Slot))) != 0)
        return;
    m_isComplete = true;
    copies.read(0, [&](const JournalLine &line, std::uint64_t offset) {
        if (line.kind == JournalLine::Kind::Resumed) {
            for (auto &[destination, ends] : m_last)
                ends.push_back(ends.back());
        } else if (line.kind == JournalLine::Kind::Record) {
            m_isComplete = add(line.record, offset);
            auto &ends = m_last[line.destination];
            if (ends.empty())
                ends.emplace_back();
            ends.back() = {line.record.group, line.record.bytes};
        }
        return m_isComplete;
    });
}

bool JournalIndex::read(std::uint64_t slot, Slot &into) const
{
    auto *bytes = reinterpret_cast<char *>(&into);
    const auto count = platform::posix::transferAll(sizeof(Slot), [&](std::size_t done) {
        return ::pread(m_table.number(), bytes + done, sizeof(Slot) - done,
                       static_cast<off_t>(slot * sizeof(Slot) + done));
    });
    return count && *count == sizeof(Slot);
}

bool JournalIndex::write(std::uint64_t slot, const Slot &value) const
{
    const auto *bytes = reinterpret_cast<const char *>(&value);
    const auto count = platform::posix::transferAll(sizeof(Slot), [&](std::size_t done) {
        return ::pwrite(m_table.number(), bytes + done, sizeof(Slot) - done,
                        static_cast<off_t>(slot * sizeof(Slot) + done));
    });
    return count && *count == sizeof(Slot);
}

// A slot of the same hash is taken over. Should another path have this hash, its record is not found any
// more, and its copy is compared.
bool JournalIndex::add(const JournalRecord &record, std::uint64_t offset) const
{
    const Slot added{hashOf(record.destination, record.path), offset + 1};
    for (std::uint64_t tries = 0; tries < m_slots; ++tries) {
        const auto slot = (added.hash + tries) & (m_slots - 1);
        Slot there;
        if (!read(slot, there))
            return false;
        if (there.place == 0 || there.hash == added.hash)
            return write(slot, added);
    }
    return false;
}

std::optional<JournalIndex::Found> JournalIndex::find(std::size_t destination, std::string_view path) const
{
    const auto hash = hashOf(destination, path);
    for (std::uint64_t tries = 0; m_isComplete && tries < m_slots; ++tries) {
        Slot there;
        if (!read((hash + tries) & (m_slots - 1), there) || there.place == 0)
            return std::nullopt;
        if (there.hash != hash)
            continue;
        auto line = m_copies.lineAt(there.place - 1);
        if (!line || line->kind != JournalLine::Kind::Record || line->record.destination != destination ||
            line->record.path != path)
            return std::nullopt;
        const auto &ends = m_last.at(destination);
        const bool isRecent = std::any_of(
            ends.begin(), ends.end(), [&](const Last &last) { return isAmongTheLast(line->record, last); });
        return Found{std::move(line->record), isRecent};
    }
    return std::nullopt;
}

JournalIndex::Last JournalIndex::lastOf(std::size_t destination) const
{
    const auto ends = m_last.find(destination);
    return ends == m_last.end() ? Last() : ends->second.back();
}

} // namespace orvana
