#include "foundation/WorkerThread.h"

#include "support/Recorder.h"

#include <atomic>
#include <gtest/gtest.h>
#include <pthread.h>
#include <stdexcept>
#include <thread>

namespace orvana
{

using std::chrono::milliseconds;

TEST(WorkerThread, CancelEndsTheThreadAtItsNextCheckAndDestroysWhatItHolds)
{
    std::atomic<bool> destroyed{false};
    std::atomic<bool> wentOn{false};
    struct Witness
    {
        std::atomic<bool> &flag;
        ~Witness() { flag = true; }
    };
    {
        WorkerThread thread([&] {
            const Witness witness{destroyed};
            while (true) {
                WorkerThread::exitIfCancelled();
                std::this_thread::yield();
            }
            wentOn = true;
        });
        thread.requestCancel();
        EXPECT_TRUE(thread.waitForEnd(milliseconds(10'000)));
    }
    EXPECT_TRUE(destroyed);
    EXPECT_FALSE(wentOn);
}

TEST(WorkerThread, NothingIsCancelledOutsideOfAWorker)
{
    EXPECT_FALSE(WorkerThread::isCancelled());
    WorkerThread::exitIfCancelled();
    EXPECT_FALSE(WorkerThread::currentToken().stop_requested());
}

TEST(WorkerThread, ExceptionEndsTheThreadAndNotTheProgram)
{
    const test::LogLines log;
    {
        const WorkerThread thread([] { throw std::runtime_error("out of order"); });
    }
    EXPECT_EQ(log.all(), (std::vector<std::string>{"worker thread ended: out of order"}));
}

TEST(WorkerThread, WithoutAThreadToBeHadTheJobRunsOnTheCallersOne)
{
    const test::LogLines log;
    pthread_attr_t before;
    ASSERT_EQ(::pthread_getattr_default_np(&before), 0);
    pthread_attr_t attributes;
    ::pthread_attr_init(&attributes);
    // The system cannot give a stack as large as the address space.
    ASSERT_EQ(::pthread_attr_setstacksize(&attributes, std::size_t{1} << 46U), 0);
    ASSERT_EQ(::pthread_setattr_default_np(&attributes), 0);
    std::thread::id job;
    {
        WorkerThread thread([&] { job = std::this_thread::get_id(); });
        EXPECT_TRUE(thread.hasEnded());
        thread.requestCancel();
        thread.abandon();
    }
    ::pthread_setattr_default_np(&before);
    ::pthread_attr_destroy(&attributes);
    ::pthread_attr_destroy(&before);
    EXPECT_EQ(job, std::this_thread::get_id());
    EXPECT_EQ(log.all().size(), 1U);
}

TEST(WorkerThread, WaitingForAThreadThatDoesNotEndGivesUp)
{
    std::atomic<bool> release{false};
    WorkerThread thread([&] {
        while (!release)
            std::this_thread::yield();
    });
    EXPECT_FALSE(thread.waitForEnd(milliseconds(1)));
    EXPECT_FALSE(thread.hasEnded());
    release = true;
    EXPECT_TRUE(thread.waitForEnd(milliseconds(10'000)));
}

TEST(RetiredThreads, ThreadThatDoesNotEndIsAbandonedAndTold)
{
    auto release = std::make_shared<std::atomic<bool>>(false);
    auto ended = std::make_shared<std::atomic<bool>>(false);
    RetiredThreads retired;
    retired.add(std::make_unique<WorkerThread>([release, ended] {
        while (!*release)
            std::this_thread::yield();
        *ended = true;
    }));
    EXPECT_FALSE(retired.allEnded());
    EXPECT_FALSE(retired.joinAll(milliseconds(1)));
    EXPECT_TRUE(retired.allEnded()) << "nothing is left to wait for";
    *release = true;
    while (!*ended)
        std::this_thread::yield();
}

} // namespace orvana
