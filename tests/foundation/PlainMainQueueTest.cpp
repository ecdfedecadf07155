// The plain loop and Qt's loop must behave the same.

#include "foundation/PlainMainQueue.h"
#include "foundation/qt/QtMainQueue.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <thread>

namespace orvana
{

using std::chrono::milliseconds;

namespace
{

// Both loops must behave the same. `run` runs a loop until `quit`.
struct PlainLoop
{
    PlainMainQueue queue;
    void run() { queue.run(); }
    void quit() { queue.quit(); }
};

struct QtLoop
{
    int argc = 1;
    char name[5] = "test";
    char *argv[2] = {name, nullptr};
    QCoreApplication application{argc, argv};
    QtMainQueue queue;
    void run() { QCoreApplication::exec(); }
    void quit() { QCoreApplication::quit(); }
};

} // namespace

template <class Loop>
class MainQueueTest : public testing::Test
{
};

using Loops = testing::Types<PlainLoop, QtLoop>;
TYPED_TEST_SUITE(MainQueueTest, Loops);

TYPED_TEST(MainQueueTest, KeepsTheOrderOfWorkHandedOverByAnotherThread)
{
    TypeParam loop;
    std::vector<int> order;
    std::thread::id thread;
    std::thread([&] {
        for (int i = 0; i < 100; ++i)
            loop.queue.async([&order, i] { order.push_back(i); });
        loop.queue.async([&] {
            thread = std::this_thread::get_id();
            loop.quit();
        });
    }).join();
    loop.run();
    ASSERT_EQ(order.size(), 100U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TYPED_TEST(MainQueueTest, DelayedWorkComesAfterWorkWithoutDelay)
{
    TypeParam loop;
    std::vector<int> order;
    loop.queue.after(milliseconds(2), [&] {
        order.push_back(2);
        loop.quit();
    });
    loop.queue.async([&] { order.push_back(1); });
    loop.run();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST(PlainMainQueue, QuitThatComesBeforeTheLoopEndsItAtOnce)
{
    PlainMainQueue queue;
    bool hasRun = false;
    queue.quit();
    queue.run();
    queue.async([&] {
        hasRun = true;
        queue.quit();
    });
    queue.run();
    EXPECT_TRUE(hasRun) << "an earlier quit counts once";
}

} // namespace orvana
