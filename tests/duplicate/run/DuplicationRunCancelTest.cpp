#include "duplicate/run/RunFixture.h"

namespace orvana
{

TEST_F(DuplicationRunTest, EndsOnceWhenCancelledBeforeTheErase)
{
    start();
    m_run->start(order(true));
    EXPECT_EQ(m_run->phase(), RunPhase::Erasing);
    m_run->cancel();
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(everythingTold(), (Lines{"Ended, ended: cancelled"}));
    EXPECT_EQ(report()["outcome"], "cancelled");
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));
}

TEST_F(DuplicationRunTest, EraseThatIsCancelledStopsBeforeTheNextDisk)
{
    start();
    at("tool eraseDisk", [this] { m_run->requestCancel(); });
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    EXPECT_FALSE(told("Looking, copy starts"));
    EXPECT_FALSE(told("Looking, look at enclosures")) << "no window is laid out for a copy that never comes";
    EXPECT_TRUE(test::pathExists(volume("COPY2/old2")));
    EXPECT_EQ(report()["disks"][0]["outcome"], "erased");
    EXPECT_EQ(report()["disks"][1]["reason"], "the erase was stopped before it");
}

TEST_F(DuplicationRunTest, CancelFromWithinTheEraseStopsBeforeTheNextDiskAndEndsOnce)
{
    start();
    at("message: Erasing /dev/disk3 & Mount to /Volumes/COPY1", [this] { m_run->cancel(); });
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    EXPECT_FALSE(told("Looking, copy starts"));
    EXPECT_TRUE(test::pathExists(volume("COPY2/old2")));
    EXPECT_TRUE(test::contentOf(m_log->logFilePath()).ends_with(" User Cancel\n"));
}

TEST_F(DuplicationRunTest, CancelWhileTheDevicesAreLookedAtErasesNothing)
{
    start();
    at("look at all", [this] { m_run->cancel(); });
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_FALSE(told("Erasing, tool eraseDisk"));
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));
}

TEST_F(DuplicationRunTest, CancelThatIsRequestedBeforeTheStartTouchesNothing)
{
    start();
    for (const bool isErase : {false, true}) {
        m_ends = 0;
        m_run->requestCancel();
        m_run->start(order(isErase));
        EXPECT_EQ(m_ends, 1);
        EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    }
    untilEnded();
    EXPECT_TRUE(m_summary.destinations.empty());
    EXPECT_FALSE(told("Erasing, tool eraseDisk"));
    EXPECT_FALSE(test::pathExists(volume("COPY1/Read me.txt")));
    m_ends = 0;
    m_run->start(order(false));
    untilEnded();
    EXPECT_EQ(m_summary.ending, RunEnding::Copied) << "a request counts for one run";
}

TEST_F(DuplicationRunTest, EndsOnceWhenCancelledInAnyMomentOfLooking)
{
    start();
    for (const char *moment :
         {"look at enclosures", "something to copy?", "left out: no more", "copy starts"}) {
        SCOPED_TRACE(moment);
        m_ends = 0;
        at(moment, [this] { m_run->cancel(); });
        m_run->start(order(true));
        untilEnded();
        EXPECT_EQ(m_ends, 1);
        EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
        EXPECT_FALSE(test::pathExists(volume("COPY1/Read me.txt")));
    }
}

TEST_F(DuplicationRunTest, EndsOnceWhenCancelledWhileCopying)
{
    m_machine["enclosures"][0]["bays"][0]["volumes"][0]["content"][1]["bytes"] = 400'000;
    start();
    m_host->faults(volume("COPY1")).delayMilliseconds = 50;
    m_run->start(order(false));
    ASSERT_EQ(m_run->phase(), RunPhase::Copying);
    m_run->cancel();
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    EXPECT_EQ(report()["outcome"], "cancelled");
    EXPECT_TRUE(test::contentOf(m_log->logFilePath()).ends_with("User Cancel\n"));
}

TEST_F(DuplicationRunTest, EndsOnceWhenCancelledWhileSyncing)
{
    start();
    m_host->faults(volume("COPY1")).syncDelayMilliseconds = 300;
    m_run->start(order(false));
    until([this] { return m_run->phase() == RunPhase::Syncing; });
    m_run->cancel();
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Cancelled);
    EXPECT_FALSE(told("Ended, copy thread ends"));
}

TEST_F(DuplicationRunTest, CancelThatComesWithTheEndOfTheCopyThreadEndsItOnce)
{
    start();
    at("copy thread ends", [this] { m_run->requestCancel(); });
    m_run->start(order(false));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
}

TEST_F(DuplicationRunTest, CancelOfARunThatHasEndedIsLoggedAndEndsNothing)
{
    start();
    m_run->start(order(false));
    untilEnded();
    m_run->cancel();
    m_run->requestCancel();
    m_queue.advance(std::chrono::seconds(1));
    EXPECT_EQ(m_ends, 1);
    EXPECT_TRUE(test::contentOf(m_log->logFilePath()).ends_with("User Cancel\n"));
}

TEST_F(DuplicationRunTest, DestroyedWhileErasingOrCopyingItTellsNoEndAndLeavesNothingAtWork)
{
    start();
    m_run->start(order(true));
    m_run.reset();
    m_queue.advance(std::chrono::seconds(20));
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));

    makeRun();
    m_host->faults(volume("COPY1")).syncDelayMilliseconds = 200;
    m_run->start(order(false));
    m_run.reset();
    m_queue.advance(std::chrono::seconds(20));
    EXPECT_EQ(m_ends, 0);
    EXPECT_EQ(report()["outcome"], "cancelled");
}

} // namespace orvana
