#include "foundation/NotificationCenter.h"

#include <atomic>
#include <gtest/gtest.h>
#include <new>
#include <thread>

namespace orvana
{

TEST(NotificationCenter, DeliversInOrderOfSubscriptionOnThePostingThread)
{
    NotificationCenter center;
    std::vector<int> order;
    std::thread::id thread;
    const auto first = center.subscribe("A", [&](const Notification &) {
        order.push_back(1);
        thread = std::this_thread::get_id();
    });
    const auto second = center.subscribe("A", [&](const Notification &) { order.push_back(2); });
    std::thread([&] { center.post("A"); }).join();
    EXPECT_EQ(order, (std::vector{1, 2}));
    EXPECT_NE(thread, std::this_thread::get_id());
}

TEST(NotificationCenter, NamesAreMatchedExactly)
{
    NotificationCenter center;
    int received = 0;
    const auto subscription = center.subscribe("TotalProgress", [&](const Notification &) { ++received; });
    center.post("totalprogress");
    center.post("TotalProgres");
    EXPECT_EQ(received, 0);
}

TEST(NotificationCenter, ValueIsFoundUnderItsOwnKeyOnly)
{
    const Notification number{"TotalProgress", std::pair(std::string("TotalProrgress"), 0.5F)};
    EXPECT_FLOAT_EQ(number.number("TotalProrgress"), 0.5F);
    EXPECT_FLOAT_EQ(number.number("TotalProgress"), 0.0F);
    EXPECT_EQ(number.text("TotalProrgress"), "");
    const Notification text{"FileCopyMessage", std::pair(std::string("MessageInfo"), std::string("x"))};
    EXPECT_EQ(text.text("MessageInfo"), "x");
    EXPECT_FLOAT_EQ(text.number("MessageInfo"), 0.0F);
    EXPECT_EQ(Notification{}.text("MessageInfo"), "");
}

TEST(NotificationCenter, HandlerMaySubscribePostAndUnsubscribe)
{
    NotificationCenter center;
    std::vector<std::string> seen;
    std::vector<NotificationCenter::Subscription> later;
    NotificationCenter::Subscription own;
    own = center.subscribe("A", [&](const Notification &) {
        seen.emplace_back("A");
        later.push_back(center.subscribe("A", [&](const Notification &) { seen.emplace_back("late"); }));
        center.post("B");
        own = NotificationCenter::Subscription();
    });
    const auto other = center.subscribe("B", [&](const Notification &) { seen.emplace_back("B"); });
    center.post("A");
    EXPECT_EQ(seen, (std::vector<std::string>{"A", "B"})) << "a new handler does not get the same post";
    center.post("A");
    EXPECT_EQ(seen.back(), "late");
    EXPECT_EQ(seen.size(), 3U);
}

TEST(NotificationCenter, EndedSubscriptionIsNeverCalledAgainAndWaitsForItsHandler)
{
    NotificationCenter center;
    std::atomic<bool> isIn{false};
    std::atomic<bool> hasLeft{false};
    auto subscription = center.subscribe("A", [&](const Notification &) {
        isIn = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        hasLeft = true;
    });
    std::thread poster([&] { center.post("A"); });
    while (!isIn)
        std::this_thread::yield();
    {
        const auto ended = std::move(subscription);
    }
    EXPECT_TRUE(hasLeft) << "the end of the subscription waited for the handler";
    poster.join();
    hasLeft = false;
    center.post("A");
    EXPECT_FALSE(hasLeft);
}

TEST(NotificationCenter, PostingWhileOthersSubscribeIsSafe)
{
    NotificationCenter center;
    std::atomic<int> received{0};
    const auto fixed = center.subscribe("A", [&](const Notification &) { ++received; });
    std::thread poster([&] {
        for (int i = 0; i < 2000; ++i)
            center.post("A");
    });
    for (int i = 0; i < 200; ++i)
        const auto passing = center.subscribe("A", [&](const Notification &) { ++received; });
    poster.join();
    EXPECT_GE(received, 2000);
}

TEST(NotificationCenter, HandlerThatThrowsIsOverAndItsSubscriptionEnds)
{
    NotificationCenter center;
    {
        const auto subscription =
            center.subscribe("name", [](const Notification &) { throw std::bad_alloc(); });
        EXPECT_THROW(center.post("name"), std::bad_alloc);
    }
    EXPECT_NO_THROW(center.post("name"));
}

} // namespace orvana
