#include "log/LogReader.h"

#include "foundation/DisplayPath.h"
#include "log/LogFile.h"

#include <utility>

namespace orvana
{

namespace
{

// The most bytes that are removed so that a cut text begins with a whole line.
constexpr std::size_t MostOfALine = 65536;

// A text cut out of the middle of a file begins with the rest of a line, or even of a character. Returns the
// length of the part to remove.
std::size_t lengthOfBrokenStart(const std::string &text)
{
    const auto newline = text.find('\n');
    if (newline < MostOfALine)
        return newline + 1;
    std::size_t length = 0;
    while (length < 3 && length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80)
        ++length;
    return length;
}

// Returns where the shown lines start; 0 if all lines are shown.
std::size_t startOfShownLines(const std::string &text)
{
    std::size_t lines = 0;
    for (auto i = text.size(); i > 0; --i) {
        if (text[i - 1] == '\n' && ++lines > LogReader::ShownLines)
            return i;
    }
    return 0;
}

} // namespace

std::optional<LogReading> LogReader::readOn()
{
    const bool isFirst = !std::exchange(m_wasRead, true);
    const auto file = LogFile::open(m_path);
    if (!file)
        return isFirst ? std::optional(LogReading{}) : std::nullopt;
    const bool isSame = file->device() == m_device && file->inode() == m_inode && file->size() >= m_end;
    if (isFirst || !isSame)
        return readAnew(*file);
    if (file->size() == m_end)
        return std::nullopt;
    if (!m_isShown || file->size() - m_start > MostBytes)
        return readAnew(*file);
    auto added = file->read(m_end, static_cast<std::size_t>(file->size() - m_end));
    // The writer may have written only half of a character so far.
    if (!added || !isUtf8(*added))
        return readAnew(*file);
    m_end += added->size();
    return LogReading{LogReading::Place::AtEnd, std::move(*added), m_isCut};
}

LogReading LogReader::readAnew(const LogFile &file)
{
    m_device = file.device();
    m_inode = file.inode();
    m_start = file.size() > ShownBytes ? file.size() - ShownBytes : 0;
    m_isCut = m_start > 0;
    auto text = file.read(m_start, static_cast<std::size_t>(file.size() - m_start));
    m_end = m_start + (text ? text->size() : 0);
    if (text && m_isCut)
        text->erase(0, lengthOfBrokenStart(*text));
    if (const auto start = text ? startOfShownLines(*text) : 0; start > 0) {
        text->erase(0, start);
        m_isCut = true;
    }
    m_isShown = text && isUtf8(*text);
    if (!m_isShown)
        return {};
    return {LogReading::Place::Anew, std::move(*text), m_isCut};
}

} // namespace orvana
