#pragma once

#include <optional>
#include <termios.h>

namespace orvana::cli
{

/// Single keys of the person at the terminal, without the Return key and without an echo. While it exists,
/// the terminal shows nothing that is typed.
class KeyInput
{
public:
    /// `input` is the descriptor of a terminal, or `Terminal::NoInput` for nobody.
    explicit KeyInput(int input);
    ~KeyInput() { restore(); }
    KeyInput(const KeyInput &) = delete;
    KeyInput &operator=(const KeyInput &) = delete;

    /// Returns a key that was typed meanwhile, or nullopt. Does not wait.
    std::optional<char> next();

    /// True once the terminal that was there is gone.
    bool isGone() const { return m_isGone; }

    /// Gives the terminal back. Afterwards there are no more keys.
    void restore();

private:
    int m_input;
    const int m_terminal;
    bool m_isSet = false;
    bool m_isGone = false;
    termios m_before{};
};

} // namespace orvana::cli
