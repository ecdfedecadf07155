#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvana
{

class LogFile;

/// New text to show of a log.
struct LogReading
{
    enum class Place {
        Anew,  ///< replaces all shown text
        AtEnd, ///< follows the shown text
    };

    Place place = Place::Anew;
    std::string text; ///< valid UTF-8
    /// The beginning of the file was left out, because the file is too long.
    bool isCut = false;
};

/// Reads a log to show it, and reads on while the log grows.
class LogReader
{
public:
    /// Of a longer log, about this many bytes at its end are shown.
    static constexpr std::uint64_t ShownBytes = 10U << 20U;
    /// Of a log with more lines, only this many at its end are shown. A run never writes so many lines into
    /// `ShownBytes`.
    static constexpr std::size_t ShownLines = 500000;
    /// If the shown part grows beyond this, the log is shown anew from its last `ShownBytes`.
    static constexpr std::uint64_t MostBytes = 12U << 20U;

    explicit LogReader(std::string path) : m_path(std::move(path)) {}

    const std::string &path() const { return m_path; }

    /// Returns the new text since the last call, or nullopt if there is none. The first call always returns a
    /// text; the text is empty if the file cannot be read or is not UTF-8. A file that vanishes later changes
    /// nothing.
    std::optional<LogReading> readOn();

private:
    LogReading readAnew(const LogFile &file);

    std::string m_path;
    bool m_wasRead = false;
    bool m_isShown = false; // the text read last could be shown
    bool m_isCut = false;
    std::uint64_t m_device = 0;
    std::uint64_t m_inode = 0;
    std::uint64_t m_start = 0; // of the shown text, in bytes from the start of the file
    std::uint64_t m_end = 0;
};

} // namespace orvana
