#pragma once

#include "foundation/MainQueue.h"

#include <chrono>
#include <functional>
#include <memory>

namespace orvana
{

/// Work for the main queue that may be requested very often, even a million times a second. The work runs at
/// most once per interval, and once more after the last request.
class PendingUpdate
{
public:
    /// `queue` must outlive the object; `work` runs on the main thread.
    PendingUpdate(MainQueue &queue, std::chrono::milliseconds interval, std::function<void()> work);

    /// Call on the main thread. The work does not run after that.
    ~PendingUpdate();
    PendingUpdate(const PendingUpdate &) = delete;
    PendingUpdate &operator=(const PendingUpdate &) = delete;

    /// Requests the work, which then runs after one interval. Does nothing when the work is already waiting.
    /// Callable from any thread.
    void request();

private:
    struct State;
    MainQueue &m_queue;
    std::chrono::milliseconds m_interval;
    std::shared_ptr<State> m_state;
};

} // namespace orvana
