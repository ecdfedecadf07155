#pragma once

#include "foundation/MainQueue.h"

#include <map>
#include <mutex>

namespace orvana::test
{

/// A main queue with its own time, which the test runs by hand.
class ManualMainQueue final : public MainQueue
{
public:
    void async(std::function<void()> work) override { after(std::chrono::milliseconds(0), std::move(work)); }

    void after(std::chrono::milliseconds delay, std::function<void()> work) override
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.emplace(m_now + delay, std::move(work));
    }

    /// Lets time pass and runs what has become due, in order.
    void advance(std::chrono::milliseconds time)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_now += time;
        }
        for (auto work = takeDue(); work; work = takeDue())
            work();
    }

    void runDue() { advance(std::chrono::milliseconds(0)); }

private:
    std::function<void()> takeDue()
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty() || m_waiting.begin()->first > m_now)
            return nullptr;
        auto work = std::move(m_waiting.begin()->second);
        m_waiting.erase(m_waiting.begin());
        return work;
    }

    std::mutex m_mutex;
    std::chrono::milliseconds m_now{0};
    std::multimap<std::chrono::milliseconds, std::function<void()>> m_waiting;
};

} // namespace orvana::test
