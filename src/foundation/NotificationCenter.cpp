#include "foundation/NotificationCenter.h"

#include <algorithm>
#include <condition_variable>

namespace orvana
{

struct NotificationCenter::Slot
{
    explicit Slot(Handler h) : handler(std::move(h)) {}

    void deliver(const Notification &notification);
    void end();

    std::mutex mutex;
    std::condition_variable idle;
    bool active = true;
    int running = 0;
    Handler handler;
};

namespace
{

// The slots whose handlers are on this thread's stack.
thread_local std::vector<const void *> handlersOnThisThread;

class OnThisThread
{
public:
    explicit OnThisThread(const void *slot) { handlersOnThisThread.push_back(slot); }
    ~OnThisThread() { handlersOnThisThread.pop_back(); }
    OnThisThread(const OnThisThread &) = delete;
    OnThisThread &operator=(const OnThisThread &) = delete;
};

} // namespace

void NotificationCenter::Slot::deliver(const Notification &notification)
{
    // This may throw for lack of memory, so it comes before the delivery is counted.
    const OnThisThread onThisThread(this);
    {
        const std::lock_guard lock(mutex);
        if (!active)
            return;
        ++running;
    }
    struct Leave
    {
        Slot &slot;
        ~Leave()
        {
            const std::lock_guard lock(slot.mutex);
            --slot.running;
            slot.idle.notify_all();
        }
    } const leave{*this};
    handler(notification);
}

void NotificationCenter::Slot::end()
{
    std::unique_lock lock(mutex);
    active = false;
    // A handler must not wait here, because another handler may be waiting for it.
    if (handlersOnThisThread.empty())
        idle.wait(lock, [this] { return running == 0; });
}

NotificationCenter::Subscription &NotificationCenter::Subscription::operator=(Subscription &&other) noexcept
{
    std::swap(m_slot, other.m_slot);
    return *this;
}

NotificationCenter::Subscription::~Subscription()
{
    if (m_slot)
        m_slot->end();
}

NotificationCenter::Subscription NotificationCenter::subscribe(const std::string &name, Handler handler)
{
    auto slot = std::make_shared<Slot>(std::move(handler));
    const std::lock_guard lock(m_mutex);
    auto &current = m_slots[name];
    auto next = std::make_shared<Slots>();
    if (current)
        std::copy_if(current->begin(), current->end(), std::back_inserter(*next), [](const auto &s) {
            const std::lock_guard slotLock(s->mutex);
            return s->active;
        });
    next->push_back(slot);
    current = std::move(next);
    return Subscription(std::move(slot));
}

std::shared_ptr<const NotificationCenter::Slots> NotificationCenter::slotsOf(const std::string &name) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_slots.find(name);
    return found == m_slots.end() ? nullptr : found->second;
}

void NotificationCenter::post(const Notification &notification) const
{
    const auto slots = slotsOf(notification.name);
    if (!slots)
        return;
    for (const auto &slot : *slots)
        slot->deliver(notification);
}

void NotificationCenter::post(const std::string &name, const std::string &key,
                              Notification::Value value) const
{
    post(Notification{name, std::pair(key, std::move(value))});
}

std::string Notification::text(std::string_view key) const
{
    if (!userInfo || userInfo->first != key)
        return {};
    const auto *text = std::get_if<std::string>(&userInfo->second);
    return text ? *text : std::string();
}

float Notification::number(std::string_view key) const
{
    if (!userInfo || userInfo->first != key)
        return 0.0F;
    const auto *number = std::get_if<float>(&userInfo->second);
    return number ? *number : 0.0F;
}

} // namespace orvana
