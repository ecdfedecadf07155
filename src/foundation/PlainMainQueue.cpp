#include "foundation/PlainMainQueue.h"

#include <utility>

namespace orvana
{

void PlainMainQueue::after(std::chrono::milliseconds delay, std::function<void()> work)
{
    const std::lock_guard lock(m_mutex);
    // The time is read under the lock, so that equal delays keep the order of the calls.
    m_waiting.emplace(Clock::now() + delay, std::move(work));
    m_changed.notify_all();
}

void PlainMainQueue::run()
{
    std::unique_lock lock(m_mutex);
    while (!m_quit) {
        if (m_waiting.empty()) {
            m_changed.wait(lock);
        } else if (const auto due = m_waiting.begin()->first; due > Clock::now()) {
            m_changed.wait_until(lock, due);
        } else {
            const auto work = std::move(m_waiting.begin()->second);
            m_waiting.erase(m_waiting.begin());
            lock.unlock();
            work();
            lock.lock();
        }
    }
    m_quit = false;
}

void PlainMainQueue::quit()
{
    const std::lock_guard lock(m_mutex);
    m_quit = true;
    m_changed.notify_all();
}

} // namespace orvana
