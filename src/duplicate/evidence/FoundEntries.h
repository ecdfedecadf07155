#pragma once

#include "duplicate/evidence/DiskSort.h"

#include <cstdint>
#include <string>

namespace orvana
{

/// A file or folder that a walk has found.
struct FoundEntry
{
    std::string path; ///< below the disk's root
    bool isFolder = false;
    std::uint64_t size = 0;    ///< bytes
    std::int64_t modified = 0; ///< seconds since 1970
};

/// What a walk has found, in order of the paths, in more entries than memory should hold.
class FoundEntries
{
public:
    /// Keeps what is too much for memory in a file without a name in `folder`.
    explicit FoundEntries(const std::string &folder);

    void add(const FoundEntry &entry);

    /// Ends the adding. Returns false when an entry was lost, because the disk took no more.
    bool finish() { return m_sort.finish(); }

    class Reader;

private:
    DiskSort m_sort;
};

/// Reads the entries, a folder before its content.
class FoundEntries::Reader
{
public:
    explicit Reader(const FoundEntries &entries) : m_cursor(entries.m_sort) { read(); }

    /// True while there is an entry.
    explicit operator bool() const { return static_cast<bool>(m_cursor); }
    const FoundEntry &entry() const { return m_entry; }
    void next();
    bool hasFailed() const { return m_cursor.hasFailed(); }

private:
    void read();

    DiskSort::Cursor m_cursor;
    FoundEntry m_entry;
};

} // namespace orvana
