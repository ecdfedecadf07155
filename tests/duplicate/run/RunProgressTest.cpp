#include "duplicate/run/RunProgress.h"

#include "support/StoppedClock.h"

#include <gtest/gtest.h>

namespace orvana
{

class RunProgressTest : public testing::Test
{
protected:
    RunProgressTest() { m_report->begin("/source", {"/fast", "/slow"}, true); }

    test::StoppedClock m_clock;
    std::shared_ptr<RunReport> m_report = std::make_shared<RunReport>("", "stamp", m_clock);
};

TEST_F(RunProgressTest, SlowestDestinationIsHowFarTheRunIs)
{
    const RunProgress progress(3, 1000, false, m_report);
    m_report->destination(0).bytes = 900;
    m_report->destination(1).bytes = 250;
    EXPECT_EQ(progress.workDone(), 250U);
    EXPECT_EQ(progress.totalWork(), 1000U);
    EXPECT_EQ(progress.bytesOf(0), 900U);
    EXPECT_EQ(progress.totalFiles(), 3);
}

TEST_F(RunProgressTest, BytesReadBackCountLikeBytesWritten)
{
    const RunProgress progress(1, 1000, true, m_report);
    m_report->destination(0).bytes = 400;
    m_report->destination(1).bytes = 400;
    m_report->blockCompared(100);
    EXPECT_EQ(progress.workDone(), 500U);
    EXPECT_EQ(progress.totalWork(), 2000U);
}

TEST_F(RunProgressTest, NothingIsSaidOfTheTimeLeftBeforeThereIsAPace)
{
    const RunProgress progress(1, 1000, false, m_report);
    EXPECT_EQ(progress.secondsLeft(), std::nullopt);
    EXPECT_EQ(progress.secondsLeftOf(0), std::nullopt);
    m_report->destination(0).bytes = 1000;
    EXPECT_EQ(progress.secondsLeftOf(0), 0.0);
}

TEST(RunProgressText, PercentIsWholeAndNeverAboveAHundred)
{
    EXPECT_EQ(percentText(0, 0), "100%");
    EXPECT_EQ(percentText(1, 3), "33%");
    EXPECT_EQ(percentText(7, 3), "100%");
}

TEST(RunProgressText, DurationHasHoursOnlyWhenThereAreSome)
{
    EXPECT_EQ(durationText(std::nullopt), "--:--");
    EXPECT_EQ(durationText(0), "0:00");
    EXPECT_EQ(durationText(75), "1:15");
    EXPECT_EQ(durationText(3723), "1:02:03");
}

} // namespace orvana
