#pragma once

#include <functional>
#include <thread>

namespace orvana::platform::posix
{

/// Waits for the signals by which a user ends the program (SIGINT, SIGTERM, SIGHUP). The first signal calls
/// `onSignal`. The second signal ends the process at once, with status 130.
///
/// `blockSignals` must have been called before the process started its first thread.
class CancelRequest
{
public:
    static void blockSignals();

    /// Makes a signal end the process with status 130 while no CancelRequest waits for it, because nothing
    /// has been touched then. Call this once, at the start of a program.
    static void endWhileNobodyWaits();

    /// Sets a function that is called right before a signal ends the process at once, on another thread; null
    /// for none. It may call only what a signal handler may.
    static void beforeLeavingAtOnce(void (*tidy)());

    /// `onSignal` is called on a thread of its own.
    explicit CancelRequest(std::function<void()> onSignal);
    ~CancelRequest();
    CancelRequest(const CancelRequest &) = delete;
    CancelRequest &operator=(const CancelRequest &) = delete;

private:
    std::jthread m_thread;
};

} // namespace orvana::platform::posix
