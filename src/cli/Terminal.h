#pragma once

#include <cstddef>
#include <cstdio>
#include <mutex>
#include <string>
#include <string_view>

namespace orvana::cli
{

/// Where a command writes. Callable from any thread; each call is written as a whole.
class Terminal
{
public:
    /// `isScreen` says that a person watches `out`, who can be shown lines that change.
    Terminal(std::FILE *out, std::FILE *err, bool isScreen) : m_out(out), m_err(err), m_isScreen(isScreen) {}

    /// Standard output and error of the process.
    static Terminal ofProcess();

    bool isScreen() const { return m_isScreen; }

    /// Columns of the screen.
    std::size_t width() const;

    void print(std::string_view line);
    void printError(std::string_view line);

    /// Writes the bytes as they are. Not together with a block.
    void write(std::string_view bytes);

    /// Shows `block`, whole lines, in the place of the last block. Only on a screen.
    void showBlock(const std::string &block);

    /// Leaves the last block where it is.
    void keepBlock();

private:
    void eraseBlock();

    std::FILE *m_out;
    std::FILE *m_err;
    bool m_isScreen;
    std::mutex m_mutex;
    std::string m_block;
};

/// `line` cut to `columns` characters, with an ellipsis in its middle where something was left out.
std::string fitted(const std::string &line, std::size_t columns);

} // namespace orvana::cli
