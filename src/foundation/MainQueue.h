#pragma once

#include <chrono>
#include <functional>

namespace orvana
{

/// The queue of the main thread: work handed to it runs there, later, in the order it was handed over.
///
/// Both functions may be called from any thread and return at once. Work that is still waiting when the
/// queue is destroyed is dropped.
class MainQueue
{
public:
    virtual ~MainQueue() = default;

    virtual void async(std::function<void()> work) = 0;
    virtual void after(std::chrono::milliseconds delay, std::function<void()> work) = 0;
};

} // namespace orvana
