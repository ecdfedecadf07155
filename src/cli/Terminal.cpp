#include "cli/Terminal.h"

#include <algorithm>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>

namespace orvana::cli
{

Terminal Terminal::ofProcess()
{
    const bool canAsk = ::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1;
    return {stdout, stderr, ::isatty(STDOUT_FILENO) == 1, canAsk ? STDIN_FILENO : NoInput,
            ::isatty(STDIN_FILENO) == 1 ? STDIN_FILENO : NoInput};
}

// Reads byte by byte: the bytes after the line are no answer to this question.
std::string Terminal::readLine(const std::function<bool()> &givesUp) const
{
    constexpr int AMoment = 100;
    std::string line;
    while (!givesUp()) {
        pollfd waiting{m_input, POLLIN, 0};
        if (::poll(&waiting, 1, AMoment) <= 0)
            continue;
        char byte = 0;
        if (::read(m_input, &byte, 1) != 1)
            return {};
        if (byte == '\n')
            return line;
        line += byte;
    }
    return {};
}

std::optional<std::string> Terminal::lineIfAny() const
{
    pollfd waiting{m_input, POLLIN, 0};
    if (!canAsk() || ::poll(&waiting, 1, 0) <= 0)
        return std::nullopt;
    return readLine([] { return false; });
}

bool Terminal::confirm(std::string_view question, const std::function<bool()> &givesUp)
{
    if (!canAsk())
        return false;
    {
        const std::lock_guard lock(m_mutex);
        std::fprintf(m_err, "%.*s [y/N] ", static_cast<int>(question.size()), question.data());
        std::fflush(m_err);
    }
    const auto answer = readLine(givesUp);
    return answer == "y" || answer == "yes";
}

std::size_t Terminal::width() const
{
    winsize size{};
    if (::ioctl(::fileno(m_out), TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    return 80;
}

void Terminal::eraseBlock()
{
    const auto lines = std::count(m_block.begin(), m_block.end(), '\n');
    if (lines > 0)
        std::fprintf(m_out, "\x1b[%ldA\x1b[J", static_cast<long>(lines));
}

void Terminal::print(std::string_view line)
{
    const std::lock_guard lock(m_mutex);
    eraseBlock();
    std::fprintf(m_out, "%.*s\n%s", static_cast<int>(line.size()), line.data(), m_block.c_str());
    std::fflush(m_out);
}

void Terminal::printError(std::string_view line)
{
    const std::lock_guard lock(m_mutex);
    eraseBlock();
    std::fflush(m_out);
    std::fprintf(m_err, "%.*s\n", static_cast<int>(line.size()), line.data());
    std::fflush(m_err);
    std::fputs(m_block.c_str(), m_out);
    std::fflush(m_out);
}

void Terminal::write(std::string_view bytes)
{
    const std::lock_guard lock(m_mutex);
    std::fwrite(bytes.data(), 1, bytes.size(), m_out);
    std::fflush(m_out);
}

void Terminal::showBlock(const std::string &block)
{
    const std::lock_guard lock(m_mutex);
    eraseBlock();
    m_block = block;
    std::fputs(m_block.c_str(), m_out);
    std::fflush(m_out);
}

std::string fitted(const std::string &line, std::size_t columns)
{
    // The position of each character's first byte. Bytes that continue a character are skipped.
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if ((static_cast<unsigned char>(line[i]) & 0xC0U) != 0x80)
            starts.push_back(i);
    }
    if (starts.size() <= columns)
        return line;
    if (columns < 3)
        return line.substr(0, starts[columns]);
    const auto head = (columns - 1) / 2;
    const auto tail = columns - 1 - head;
    return line.substr(0, starts[head]) + "…" + line.substr(starts[starts.size() - tail]);
}

} // namespace orvana::cli
