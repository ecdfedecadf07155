#include "duplicate/run/RunMonitor.h"

#include <gtest/gtest.h>

namespace orvana
{

class RunMonitorTest : public testing::Test
{
protected:
    /// Looks at a run of 1,000 bytes and ten files.
    RunStatus look(RunReading reading, bool verify = false)
    {
        return m_monitor.look(std::move(reading), 10, 1000, verify);
    }

    static RunReading reading(double seconds, const std::vector<RunReading::Destination> &destinations,
                              std::uint64_t compared = 0)
    {
        return {seconds, 1, compared, false, destinations};
    }

    RunMonitor m_monitor;
};

TEST_F(RunMonitorTest, RateIsThatOfTheLastFiveSeconds)
{
    for (int second = 1; second <= 10; ++second)
        look(reading(second, {{static_cast<std::uint64_t>(10 * second)}}));
    RunStatus status;
    for (int second = 11; second <= 15; ++second)
        status = look(reading(second, {{static_cast<std::uint64_t>(100 + 50 * (second - 10))}}));
    EXPECT_DOUBLE_EQ(status.destinations[0].bytesPerSecond, 50);
    EXPECT_DOUBLE_EQ(status.bytesPerSecond, 50);
}

TEST_F(RunMonitorTest, RateOfAYoungRunCountsFromItsBegin)
{
    EXPECT_DOUBLE_EQ(look(reading(0.5, {{20}})).destinations[0].bytesPerSecond, 40);
}

TEST_F(RunMonitorTest, NothingMovedYetHasNoTimeLeft)
{
    const auto status = look(reading(1, {{0}}));
    EXPECT_EQ(status.secondsLeft, std::nullopt);
    EXPECT_EQ(status.destinations[0].secondsLeft, std::nullopt);
    EXPECT_EQ(status.destinations[0].fraction, 0);
}

TEST_F(RunMonitorTest, TimeLeftGoesByTheLastHalfMinute)
{
    RunStatus status;
    for (int second = 1; second <= 60; ++second)
        status = look(
            reading(second, {{static_cast<std::uint64_t>(second <= 30 ? second : 30 + 5 * (second - 30))}}));
    EXPECT_DOUBLE_EQ(status.destinations[0].fraction, 0.18);
    EXPECT_DOUBLE_EQ(status.secondsLeft.value(), 820.0 / 5);
}

TEST_F(RunMonitorTest, BytesReadBackAreHalfOfTheWorkWithVerify)
{
    const auto status = look(reading(1, {{400}, {400}}, 100), true);
    EXPECT_DOUBLE_EQ(status.fraction, 0.25);
    EXPECT_DOUBLE_EQ(status.destinations[1].fraction, 0.25);
    EXPECT_DOUBLE_EQ(status.destinations[1].bytesPerSecond, 500);
}

TEST_F(RunMonitorTest, DiskThatDiedDoesNotHoldBackTheRun)
{
    look(reading(1, {{100}, {100}}));
    const auto status = look(reading(40, {{900}, {100, 0, 3}}));
    EXPECT_DOUBLE_EQ(status.fraction, 0.9);
    EXPECT_TRUE(status.secondsLeft);
    EXPECT_EQ(status.destinations[1].secondsLeft, std::nullopt);
    EXPECT_EQ(status.destinations[1].failed, 3);
}

TEST_F(RunMonitorTest, DiskThatIsWorkedOnMostOfTheTimeIsWaitedFor)
{
    look(reading(1, {{10, 0.1}, {10, 0.9}, {10, 0.2}}));
    const auto status = look(reading(6, {{60, 0.6}, {60, 5.4}, {60, 1.2}}));
    EXPECT_EQ(status.waitingFor, 1U);
}

TEST_F(RunMonitorTest, EquallySlowDisksAreNotWaitedFor)
{
    EXPECT_EQ(look(reading(5, {{10, 4.9}, {10, 4.5}})).waitingFor, std::nullopt);
}

TEST_F(RunMonitorTest, NoDiskIsWaitedForWhileTheSourceIsSlow)
{
    EXPECT_EQ(look(reading(5, {{10, 1.9}, {10, 0.1}})).waitingFor, std::nullopt);
}

TEST_F(RunMonitorTest, OnlyDiskIsNeverWaitedFor)
{
    EXPECT_EQ(look(reading(5, {{10, 5}})).waitingFor, std::nullopt);
}

TEST_F(RunMonitorTest, DiskThatWasSlowSixSecondsAgoIsNotWaitedForNow)
{
    for (int second = 1; second <= 5; ++second)
        look(reading(second, {{1, 0.9 * second}, {1, 0}}));
    RunStatus status;
    for (int second = 6; second <= 11; ++second)
        status = look(reading(second, {{1, 4.5}, {1, 0}}));
    EXPECT_EQ(status.waitingFor, std::nullopt);
}

TEST_F(RunMonitorTest, StagesAreNamed)
{
    EXPECT_EQ(look(reading(1, {{10}})).stage, RunStage::Copying);
    EXPECT_EQ(look(reading(3, {{10}}, 10)).stage, RunStage::Verifying);
    EXPECT_EQ(look(reading(5, {{20}}, 15)).stage, RunStage::CopyingAndVerifying);
    EXPECT_EQ(look(reading(7, {{20}}, 15)).stage, RunStage::CopyingAndVerifying); // nothing moves
    auto last = reading(9, {{20}}, 20);
    last.isSyncing = true;
    EXPECT_EQ(look(last).stage, RunStage::WritingOut);
}

TEST_F(RunMonitorTest, NextRunStartsAnew)
{
    look(reading(50, {{900}}));
    EXPECT_DOUBLE_EQ(look(reading(1, {{100}})).destinations[0].bytesPerSecond, 100);
}

TEST_F(RunMonitorTest, DestinationsThatComeLateAreCountedFromTheBegin)
{
    EXPECT_TRUE(look(reading(0.2, {})).destinations.empty());
    EXPECT_DOUBLE_EQ(look(reading(1, {{100}})).destinations[0].bytesPerSecond, 100);
}

TEST_F(RunMonitorTest, NothingToCopyIsDone)
{
    EXPECT_DOUBLE_EQ(m_monitor.look(reading(1, {{0}}), 0, 0, false).fraction, 1);
}

TEST(FilePace, SaysHowLongALargeFileStillTakes)
{
    FilePace pace;
    EXPECT_EQ(pace.secondsLeft(10, 100), std::nullopt);
    EXPECT_EQ(pace.secondsLeft(20, 100.5), std::nullopt) << "too early to tell";
    EXPECT_DOUBLE_EQ(pace.secondsLeft(30, 102).value(), 7);
    EXPECT_DOUBLE_EQ(pace.secondsLeft(100, 109).value(), 0);
    EXPECT_EQ(pace.secondsLeft(5, 110), std::nullopt) << "the next file";
    EXPECT_EQ(pace.secondsLeft(5, 120), std::nullopt) << "nothing moves";
}

TEST(BusyTime, WorkThatHasNotEndedCounts)
{
    BusyTime time;
    EXPECT_EQ(time.seconds(), 0);
    {
        const BusyTime::Work work(time);
        const auto first = time.seconds();
        while (time.seconds() == first) {
        }
        EXPECT_GT(time.seconds(), first);
    }
    const auto end = time.seconds();
    EXPECT_GT(end, 0);
    EXPECT_EQ(time.seconds(), end);
}

} // namespace orvana
