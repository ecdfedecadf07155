#include "cli/KeyInput.h"

#include "cli/Terminal.h"
#include "platform/posix/CancelRequest.h"

#include <poll.h>
#include <unistd.h>

namespace orvana::cli
{

namespace
{

// For a program that leaves at once, from the thread that hears signals.
int terminalInput = Terminal::NoInput;
termios terminalBefore{};

void giveTerminalBack()
{
    (void)::tcsetattr(terminalInput, TCSANOW, &terminalBefore);
}

} // namespace

KeyInput::KeyInput(int input) : m_input(input), m_terminal(input)
{
    if (m_input == Terminal::NoInput || ::tcgetattr(m_input, &m_before) != 0)
        return;
    auto single = m_before;
    single.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO); // signals by keys stay
    single.c_cc[VMIN] = 1;
    single.c_cc[VTIME] = 0;
    m_isSet = ::tcsetattr(m_input, TCSANOW, &single) == 0;
    if (!m_isSet)
        return;
    terminalInput = m_input;
    terminalBefore = m_before;
    platform::posix::CancelRequest::beforeLeavingAtOnce(giveTerminalBack);
}

std::optional<char> KeyInput::next()
{
    pollfd waiting{m_input, POLLIN, 0};
    char key = 0;
    if (m_input == Terminal::NoInput || ::poll(&waiting, 1, 0) <= 0)
        return std::nullopt;
    if (::read(m_input, &key, 1) == 1)
        return key;
    m_input = Terminal::NoInput;
    m_isGone = true;
    return std::nullopt;
}

void KeyInput::restore()
{
    if (m_isSet) {
        platform::posix::CancelRequest::beforeLeavingAtOnce(nullptr);
        (void)::tcsetattr(m_terminal, TCSANOW, &m_before);
    }
    m_isSet = false;
    m_input = Terminal::NoInput;
}

} // namespace orvana::cli
