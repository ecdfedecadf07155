#pragma once

#include "duplicate/evidence/Digest.h"
#include "duplicate/evidence/DiskSort.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orvana
{

/// The account of one copy of a file or folder.
enum class CopyState : char {
    NotMade = '.', ///< this entry says nothing of it
    Good = '+',    ///< it counts as done
    New = '*',     ///< of a folder: it counts as done, and was made for it
    Bad = '-',     ///< it was tried, and does not count as done
};

/// A file or folder that was digested, or that was found out to be bad.
struct EvidenceEntry
{
    std::string path; ///< below the root that all copies share, bytes; empty for the root itself
    bool isFolder = false;
    std::uint64_t size = 0;    ///< bytes
    std::int64_t modified = 0; ///< seconds since 1970, of the source
    std::int64_t digested = 0; ///< seconds since 1970
    DigestFormat format = DigestFormat::Xxh128;
    std::string digest; ///< as `isDigest` accepts it; empty for a folder, and where none was made
    std::string states; ///< one `CopyState` for each copy
};

/// Everything that was digested, in more entries than memory should hold. Entries are added on one thread.
class EvidenceLog
{
public:
    /// Keeps what is too much for memory in a file without a name in `folder`.
    explicit EvidenceLog(const std::string &folder);

    /// A later entry for the same path holds instead of an earlier one, state by state.
    void add(const EvidenceEntry &entry);

    /// Ends the adding. Returns false when an entry was lost, because the disk took no more.
    bool finish() { return m_sort.finish(); }

    class Reader;

private:
    DiskSort m_sort;
    std::uint64_t m_next = 0;
};

/// Reads the entries of one copy, folder by folder. The log must be finished, and must outlive it.
class EvidenceLog::Reader
{
public:
    /// Reads what holds for the copy with the number `copy`.
    Reader(const EvidenceLog &log, std::size_t copy);

    /// Goes to the next entry of the copy. Returns false at the end.
    bool next();

    /// The present entry. Of its states only that of the copy is meaningful.
    const EvidenceEntry &entry() const { return m_entry; }
    CopyState state() const { return m_state; }

    bool hasFailed() const { return m_cursor.hasFailed(); }

private:
    DiskSort::Cursor m_cursor;
    std::size_t m_copy;
    EvidenceEntry m_entry;
    CopyState m_state = CopyState::NotMade;
};

} // namespace orvana
