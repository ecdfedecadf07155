#include "panels/ProgressBarViewController.h"
#include "support/Recorder.h"
#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

TEST(ProgressPanel, FreshPanelHidesBothBarsAndSaysNothing)
{
    ProgressBarViewController panel;
    panel.show();
    EXPECT_TRUE(panel.fileProgress->isHidden());
    EXPECT_TRUE(panel.totalProgress->isHidden());
    EXPECT_TRUE(panel.TextLabel->text().isEmpty());
    EXPECT_EQ(panel.fileProgress->maxValue(), 100.0);
    EXPECT_EQ(panel.totalProgress->maxValue(), 1.0);
}

TEST(ProgressPanel, MinusOneHidesABarAndZeroShowsAnEmptyOne)
{
    ProgressBarViewController panel;
    panel.show();
    panel.setFileStep(0.0F);
    panel.setTotalStep(0.0F);
    EXPECT_FALSE(panel.fileProgress->isHidden());
    EXPECT_EQ(panel.fileProgress->value(), panel.fileProgress->minimum());
    EXPECT_FALSE(panel.totalProgress->isHidden());
    panel.setFileStep(-1.0F);
    EXPECT_TRUE(panel.fileProgress->isHidden());
    EXPECT_FALSE(panel.totalProgress->isHidden());
}

TEST(ProgressPanel, StepsDriveTheBarsAndNotTheProperties)
{
    ProgressBarViewController panel;
    panel.setFileStep(50.0F);
    panel.setTotalStep(0.25F);
    EXPECT_EQ(panel.fileProgress->doubleValue(), 50.0);
    EXPECT_EQ(panel.totalProgress->doubleValue(), 0.25);
    EXPECT_EQ(panel.FileStep(), 0.0F);
    EXPECT_EQ(panel.TotalStep(), 0.0F);
}

TEST(ProgressPanel, EraseMovesTheTotalBarWithoutAnEndAndCopyGivesItOneAgain)
{
    ProgressBarViewController panel;
    panel.show();
    panel.setTotalStep(0.5F);
    panel.setViewForErase();
    EXPECT_EQ(panel.totalProgress->kind(), ProgressIndicator::Kind::Indeterminate);
    EXPECT_EQ(panel.totalProgress->doubleValue(), 0.0);
    EXPECT_TRUE(panel.fileProgress->isHidden());
    EXPECT_FALSE(panel.totalProgress->isHidden());
    panel.setViewForCopy();
    EXPECT_EQ(panel.totalProgress->kind(), ProgressIndicator::Kind::Determinate);
    EXPECT_FALSE(panel.fileProgress->isHidden());
    EXPECT_FALSE(panel.TextLabel->isHidden());
}

TEST(ProgressPanel, MessageIsShownAndWrittenToTheSystemLogTwice)
{
    ProgressBarViewController panel;
    const test::LogLines log;
    panel.setMsgText("Erasing");
    EXPECT_EQ(panel.TextLabel->text(), QStringLiteral("Erasing"));
    EXPECT_EQ(log.all(),
              (std::vector<std::string>{"aString=Erasing", "[self.TextLabel stringValue] = Erasing"}));
}

} // namespace orvana
