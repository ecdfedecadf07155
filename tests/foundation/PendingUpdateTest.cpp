#include "foundation/PendingUpdate.h"

#include "support/ManualMainQueue.h"

#include <gtest/gtest.h>
#include <thread>

namespace orvana
{

using std::chrono::milliseconds;

TEST(PendingUpdate, ManyRequestsRunTheWorkOnceAnInterval)
{
    test::ManualMainQueue queue;
    int runs = 0;
    PendingUpdate update(queue, milliseconds(40), [&] { ++runs; });
    for (int i = 0; i < 1000; ++i)
        update.request();
    queue.advance(milliseconds(39));
    EXPECT_EQ(runs, 0);
    queue.advance(milliseconds(1));
    EXPECT_EQ(runs, 1);
    queue.advance(milliseconds(1000));
    EXPECT_EQ(runs, 1) << "nobody asked again";
}

TEST(PendingUpdate, RequestAfterTheWorkRunsItOnceMore)
{
    test::ManualMainQueue queue;
    int runs = 0;
    PendingUpdate update(queue, milliseconds(40), [&] { ++runs; });
    std::thread([&] { update.request(); }).join();
    queue.advance(milliseconds(40));
    update.request();
    queue.advance(milliseconds(40));
    EXPECT_EQ(runs, 2);
}

TEST(PendingUpdate, DestroyedUpdateRunsNoMore)
{
    test::ManualMainQueue queue;
    int runs = 0;
    {
        PendingUpdate update(queue, milliseconds(40), [&] { ++runs; });
        update.request();
    }
    queue.advance(milliseconds(100));
    EXPECT_EQ(runs, 0);
}

} // namespace orvana
