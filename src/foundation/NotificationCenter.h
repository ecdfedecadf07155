#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace orvana
{

/// A named message with at most one value under one key.
struct Notification
{
    using Value = std::variant<std::string, float>;

    std::string name;
    std::optional<std::pair<std::string, Value>> userInfo;

    /// Returns the text under `key`, or an empty text when the notification carries no such text.
    std::string text(std::string_view key) const;

    /// Returns the number under `key`, or 0 when the notification carries no such number.
    float number(std::string_view key) const;
};

/// Delivers each notification to the handlers that are subscribed to its name.
///
/// Delivery is synchronous, on the posting thread, in order of subscription. All functions may be called from
/// any thread and from within a handler. A handler that is subscribed during a delivery does not receive that
/// notification.
class NotificationCenter
{
public:
    using Handler = std::function<void(const Notification &)>;
    struct Slot;

    /// Ends its subscription when destroyed. The handler is not called after that. The destructor also waits
    /// until the handler is not running on any thread, unless the destructor is itself called from within a
    /// handler.
    class Subscription
    {
    public:
        Subscription() = default;
        explicit Subscription(std::shared_ptr<Slot> slot) : m_slot(std::move(slot)) {}
        Subscription(Subscription &&) noexcept = default;
        Subscription &operator=(Subscription &&other) noexcept;
        ~Subscription();

    private:
        std::shared_ptr<Slot> m_slot;
    };

    [[nodiscard]] Subscription subscribe(const std::string &name, Handler handler);

    void post(const Notification &notification) const;
    void post(const std::string &name) const { post(Notification{name, std::nullopt}); }
    void post(const std::string &name, const std::string &key, Notification::Value value) const;

private:
    using Slots = std::vector<std::shared_ptr<Slot>>;

    std::shared_ptr<const Slots> slotsOf(const std::string &name) const;

    mutable std::mutex m_mutex;
    std::map<std::string, std::shared_ptr<const Slots>, std::less<>> m_slots;
};

} // namespace orvana
