#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace orvana
{

/// Opens and reads the next small file of the source while the copies of the file in hand are written.
///
/// Nobody sees this: nothing is reported, and nothing is written. Only a file that was read without any
/// trouble is kept. All others are opened again when their turn comes, and tell their error then.
///
/// Used by the copy thread, except for `read`.
class ReadAhead
{
public:
    /// A file that was read ahead.
    struct Source
    {
        platform::Attributes entry;  ///< of its entry in the folder, with the hidden-extension flag
        platform::Attributes opened; ///< of the open file, before it was read
        std::unique_ptr<platform::File> file;
        std::span<const std::byte> content; ///< all of it; valid until the next `read` but one
    };

    /// Reads from `sources`, where paths are looked up.
    explicit ReadAhead(platform::Folder &sources) : m_sources(sources) {}

    /// Names the file or folder that comes after the one in hand. It is not read before `read`.
    void plan(std::string path) { m_planned = std::move(path); }
    bool isPlanned() const { return !m_planned.empty(); }

    /// Reads the planned file, if it is a regular file that is small enough. Any thread may do this, while
    /// the copy thread waits for it or works for the copies.
    void read();

    /// Returns the attributes of the entry at `path` if they were read ahead.
    std::optional<platform::Attributes> entryAt(const std::string &path) const;

    /// Returns the file at `path` if it was read ahead. Any other that was read ahead is forgotten.
    std::optional<Source> take(const std::string &path);

private:
    platform::Folder &m_sources;
    std::string m_planned;
    std::string m_path; // of the file that was read ahead
    std::optional<Source> m_source;
    // The content of the file in hand stays in one of them while the next file is read into the other.
    std::unique_ptr<std::byte[]> m_blocks[2];
    int m_spare = 0;
};

} // namespace orvana
