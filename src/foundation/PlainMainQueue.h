#pragma once

#include "foundation/MainQueue.h"

#include <condition_variable>
#include <map>
#include <mutex>

namespace orvana
{

/// The terminal program's main queue: a loop over waiting work, without any toolkit.
class PlainMainQueue final : public MainQueue
{
public:
    void async(std::function<void()> work) override { after(std::chrono::milliseconds(0), std::move(work)); }
    void after(std::chrono::milliseconds delay, std::function<void()> work) override;

    /// Runs work on the calling thread until `quit` is called.
    void run();

    /// Ends `run` after the work that is running now. Callable from any thread.
    void quit();

private:
    using Clock = std::chrono::steady_clock;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::multimap<Clock::time_point, std::function<void()>> m_waiting;
    bool m_quit = false;
};

} // namespace orvana
