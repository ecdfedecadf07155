#include "foundation/PendingUpdate.h"

#include <atomic>
#include <utility>

namespace orvana
{

struct PendingUpdate::State
{
    explicit State(std::function<void()> w) : work(std::move(w)) {}

    std::function<void()> work;
    std::atomic<bool> isWaiting{false};
};

PendingUpdate::PendingUpdate(MainQueue &queue, std::chrono::milliseconds interval, std::function<void()> work)
    : m_queue(queue), m_interval(interval), m_state(std::make_shared<State>(std::move(work)))
{
}

PendingUpdate::~PendingUpdate() = default;

void PendingUpdate::request()
{
    if (m_state->isWaiting.exchange(true))
        return;
    m_queue.after(m_interval, [waiting = std::weak_ptr(m_state)] {
        const auto state = waiting.lock();
        if (!state)
            return;
        // This comes first, so that a request made while the work reads its values is not lost.
        state->isWaiting = false;
        state->work();
    });
}

} // namespace orvana
