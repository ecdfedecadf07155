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

TEST_F(RunProgressTest, ReadingHasTheCountsOfEachDestination)
{
    const RunProgress progress(3, 1000, true, m_report);
    m_report->destination(0).bytes = 900;
    m_report->destination(1).bytes = 250;
    m_report->destination(1).failed = 2;
    m_report->fileStarted(900);
    m_report->blockCompared(100);
    m_report->syncStarts();
    const auto reading = progress.reading();
    EXPECT_EQ(reading.destinations, (std::vector<RunReading::Destination>{{900, 0, 0}, {250, 0, 2}}));
    EXPECT_EQ(reading.filesStarted, 1);
    EXPECT_EQ(reading.comparedBytes, 100U);
    EXPECT_TRUE(reading.isSyncing);
    EXPECT_EQ(progress.bytesOf(0), 900U);
    EXPECT_EQ(progress.totalFiles(), 3);
}

TEST(RunProgressText, PercentIsWholeAndNeverAboveAHundred)
{
    EXPECT_EQ(percentText(0), "0%");
    EXPECT_EQ(percentText(1.0 / 3), "33%");
    EXPECT_EQ(percentText(0.9999), "99%");
    EXPECT_EQ(percentText(7.0 / 3), "100%");
}

TEST(RunProgressText, DurationHasHoursOnlyWhenThereAreSome)
{
    EXPECT_EQ(durationText(std::nullopt), "--:--");
    EXPECT_EQ(durationText(0), "0:00");
    EXPECT_EQ(durationText(75), "1:15");
    EXPECT_EQ(durationText(3723), "1:02:03");
}

} // namespace orvana
