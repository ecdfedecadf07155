#pragma once

#include <functional>
#include <thread>

namespace orvana::cli
{

/// Waits for the signals by which a user ends the program (SIGINT, SIGTERM) and says so, once. The second one
/// ends the process at once, with status 130.
///
/// `blockSignals` must have been called before the process started its first thread.
class CancelRequest
{
public:
    static void blockSignals();

    /// `onSignal` is called on a thread of its own.
    explicit CancelRequest(std::function<void()> onSignal);

private:
    std::jthread m_thread;
};

} // namespace orvana::cli
