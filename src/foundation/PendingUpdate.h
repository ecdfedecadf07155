#pragma once

#include "foundation/MainQueue.h"

#include <chrono>
#include <functional>
#include <memory>

namespace orvana
{

/// Work for the main queue that may be asked for a million times a second: however often that is, it runs at
/// most once an interval, and once more after the last request.
class PendingUpdate
{
public:
    /// `queue` must outlive the object; `work` runs on the main thread.
    PendingUpdate(MainQueue &queue, std::chrono::milliseconds interval, std::function<void()> work);

    /// On the main thread; after that the work does not run.
    ~PendingUpdate();
    PendingUpdate(const PendingUpdate &) = delete;
    PendingUpdate &operator=(const PendingUpdate &) = delete;

    /// Asks for the work, one interval from now unless it is already waiting. Callable from any thread.
    void request();

private:
    struct State;
    MainQueue &m_queue;
    std::chrono::milliseconds m_interval;
    std::shared_ptr<State> m_state;
};

} // namespace orvana
