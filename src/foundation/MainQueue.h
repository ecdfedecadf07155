#pragma once

#include <chrono>
#include <functional>

namespace orvana
{

/// The queue of the main thread. Work that is handed to it runs there later, in the order of the calls.
///
/// Both functions may be called from any thread and return at once. When the queue is destroyed, work that is
/// still waiting is dropped.
class MainQueue
{
public:
    virtual ~MainQueue() = default;

    virtual void async(std::function<void()> work) = 0;
    virtual void after(std::chrono::milliseconds delay, std::function<void()> work) = 0;
};

} // namespace orvana
