#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvana
{

class LogFile;

/// Something new to show of a log.
struct LogReading
{
    enum class Place {
        Anew,  ///< in place of all that was shown
        AtEnd, ///< behind what is shown
    };

    Place place = Place::Anew;
    std::string text; ///< valid UTF-8
    /// What stands further ahead in the file was left out, for it is too long.
    bool isCut = false;
};

/// Reads a log for showing it, and goes on reading while it grows.
class LogReader
{
public:
    /// At least so many bytes are shown, the last ones of a longer log.
    static constexpr std::uint64_t ShownBytes = 10U << 20U;
    /// Of more lines, only the last ones are shown. A run never writes as many into `ShownBytes`.
    static constexpr std::size_t ShownLines = 500000;
    /// A log that grows beyond this is shown anew from its last `ShownBytes`.
    static constexpr std::uint64_t MostBytes = 12U << 20U;

    explicit LogReader(std::string path) : m_path(std::move(path)) {}

    const std::string &path() const { return m_path; }

    /// What is new since the last call; nothing when nothing is. The first call always gives a text: an
    /// empty one for a file that cannot be read or is not UTF-8. A file that vanishes later changes nothing.
    std::optional<LogReading> readOn();

private:
    LogReading readAnew(const LogFile &file);

    std::string m_path;
    bool m_wasRead = false;
    bool m_isShown = false; // what was read last could be shown
    bool m_isCut = false;
    std::uint64_t m_device = 0;
    std::uint64_t m_inode = 0;
    std::uint64_t m_start = 0; // of what is shown, in bytes from the start of the file
    std::uint64_t m_end = 0;
};

} // namespace orvana
