#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

namespace orvana::cli
{

/// Where a command writes. Callable from any thread; each call is written as a whole.
class Terminal
{
public:
    /// As the input: there is nobody to ask.
    static constexpr int NoInput = -1;

    /// `isScreen` says that a person watches `out`, who can be shown lines that change. `input` is the
    /// descriptor from which that person's answers come.
    Terminal(std::FILE *out, std::FILE *err, bool isScreen, int input = NoInput)
        : m_out(out), m_err(err), m_isScreen(isScreen), m_input(input)
    {
    }

    /// Standard output, error and input of the process.
    static Terminal ofProcess();

    /// True when somebody is there to be asked.
    bool canAsk() const { return m_input != NoInput; }

    /// Asks on standard error and waits for a line of answer. Only "y" and "yes" are a yes; the end of the
    /// input is not, nor that `givesUp` turns true meanwhile.
    bool confirm(std::string_view question, const std::function<bool()> &givesUp);

    bool isScreen() const { return m_isScreen; }

    /// Columns of the screen.
    std::size_t width() const;

    void print(std::string_view line);
    void printError(std::string_view line);

    /// Writes the bytes as they are. Not together with a block.
    void write(std::string_view bytes);

    /// Shows `block`, whole lines, in the place of the last block. Only on a screen.
    void showBlock(const std::string &block);

private:
    std::string readLine(const std::function<bool()> &givesUp) const;
    void eraseBlock();

    std::FILE *m_out;
    std::FILE *m_err;
    bool m_isScreen;
    int m_input;
    std::mutex m_mutex;
    std::string m_block;
};

/// `line` cut to `columns` characters, with an ellipsis in its middle where something was left out.
std::string fitted(const std::string &line, std::size_t columns);

} // namespace orvana::cli
