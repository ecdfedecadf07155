#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace orvana::cli
{

/// The terminal that a command writes to. Callable from any thread. Each call is written as a whole.
class Terminal
{
public:
    /// The value of `input` when there is nobody to ask.
    static constexpr int NoInput = -1;

    /// `isScreen` is true if a person watches `out`; only then lines may change. `input` is the descriptor
    /// from which that person's answers come, `keys` that from which single keys come.
    Terminal(std::FILE *out, std::FILE *err, bool isScreen, int input = NoInput, int keys = NoInput)
        : m_out(out), m_err(err), m_isScreen(isScreen), m_input(input), m_keys(keys)
    {
    }

    /// Returns the terminal on the standard output, error and input of the process.
    static Terminal ofProcess();

    /// True if there is somebody to ask.
    bool canAsk() const { return m_input != NoInput; }

    /// Asks on standard error and waits for a line. Returns true only if the line is "y" or "yes". Returns
    /// false at the end of the input, and when `givesUp` returns true.
    bool confirm(std::string_view question, const std::function<bool()> &givesUp);

    /// Returns a line that the user has typed meanwhile, or nullopt. Waits for nothing but the rest of a
    /// line.
    std::optional<std::string> lineIfAny() const;

    /// Returns the descriptor from which single keys come, or `NoInput`. They need no standard error.
    int keys() const { return m_keys; }

    bool isScreen() const { return m_isScreen; }

    /// Number of columns of the screen.
    std::size_t width() const;

    void print(std::string_view line);
    void printError(std::string_view line);

    /// Writes the bytes as they are. Do not call it while a block is shown.
    void write(std::string_view bytes);

    /// Shows `block` in place of the last block. It must consist of whole lines. Only for a screen.
    void showBlock(const std::string &block);

private:
    std::string readLine(const std::function<bool()> &givesUp) const;
    void eraseBlock();

    std::FILE *m_out;
    std::FILE *m_err;
    bool m_isScreen;
    int m_input;
    int m_keys;
    std::mutex m_mutex;
    std::string m_block;
};

/// Returns `line`, cut to at most `columns` characters. An ellipsis in its middle stands for the part that
/// was left out.
std::string fitted(const std::string &line, std::size_t columns);

} // namespace orvana::cli
