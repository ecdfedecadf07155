#pragma once

#include "duplicate/journal/JournalLine.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace orvana
{

/// The longest text of a job that a journal takes, in bytes.
inline constexpr std::size_t LongestJob = 262'144;

/// An append-only file of lines on the station.
class JournalFile
{
public:
    /// Makes a new file called `name` in the folder.
    static platform::Expected<JournalFile> create(const platform::Folder &folder, const std::string &name);

    enum class Use { Read, Append };

    /// Opens the file called `name`. What is appended comes behind its last byte.
    static platform::Expected<JournalFile> open(const platform::Folder &folder, const std::string &name,
                                                Use use);

    /// Appends whole lines and waits until they are on the station's disk.
    platform::Expected<void> append(std::string_view lines);

    /// Reads the lines from `offset` on and calls `take` with each whole one and the offset at which it
    /// begins. A line that is not whole is passed over. Ends when `take` returns false, or the file cannot be
    /// read any further.
    using Take = std::function<bool(const JournalLine &line, std::uint64_t offset)>;
    void read(std::uint64_t offset, const Take &take) const;

    /// Returns the line that begins at `offset`, or nullopt.
    std::optional<JournalLine> lineAt(std::uint64_t offset) const;

    std::uint64_t size() const { return m_end; }

private:
    JournalFile(std::unique_ptr<platform::File> file, std::uint64_t end) : m_file(std::move(file)), m_end(end)
    {
    }

    std::unique_ptr<platform::File> m_file;
    std::uint64_t m_end;
};

} // namespace orvana
