// The bars, rates, times and verdicts beside the bays.

#include "app/WindowFixture.h"

#include "panels/BayRunView.h"
#include "ui/ElidedLabel.h"
#include "ui/ProgressIndicator.h"

#include <QEvent>

namespace orvana
{

namespace
{

/// Counts how often a widget was painted.
class PaintCount : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

class RunDisplayTest : public WindowTest
{
protected:
    RunDisplayTest() { bay(3)["attached"] = false; } // a blank disk would turn erase on

    BayRunView &run(const char *bay) { return *slots().runOf(bay); }

    // Returns the texts that the view of the bay shows, top down.
    QStringList shown(const char *bay)
    {
        QStringList texts;
        for (const auto *label : run(bay).findChildren<QLabel *>()) {
            if (label->isVisible() && !label->text().isEmpty())
                texts += label->text();
        }
        return texts;
    }

    QString firstOf(const char *bay) { return shown(bay).value(0); }

    void makeSlow(std::size_t bayNumber)
    {
        bay(bayNumber)["volumes"][0]["faults"] = {{"delayMilliseconds", 200}};
    }
};

TEST_F(RunDisplayTest, NothingIsShownBeforeARun)
{
    startWithEnclosure();
    for (const char *bay : {"Slot-A", "Slot-B", "Slot-C", "Slot-D"})
        EXPECT_FALSE(run(bay).isVisible()) << bay;
    EXPECT_FALSE(window().totalText->isVisible());
    EXPECT_FALSE(window().totalCaption->isVisible());
}

TEST_F(RunDisplayTest, BaysShowBarRateAndTimeWhileTheRunGoesOn)
{
    makeSlow(1);
    startWithEnclosure();
    pressStart();
    until(
        [&] { return shown("Slot-B").size() == 3 && !shown("Slot-B")[2].startsWith(QStringLiteral("--")); });
    EXPECT_TRUE(shown("Slot-B")[0].endsWith(QChar(u'%')));
    EXPECT_TRUE(shown("Slot-B")[1].endsWith(QStringLiteral("/s")));
    EXPECT_TRUE(shown("Slot-B")[2].endsWith(QStringLiteral(" left")));
    EXPECT_TRUE(run("Slot-B").findChild<ProgressIndicator *>()->isVisible());
    EXPECT_FALSE(run("Slot-A").isVisible()) << "bay A is the source";
    EXPECT_TRUE(window().totalText->isVisible());
    EXPECT_TRUE(window().totalText->text().contains(QStringLiteral("/s")));
    EXPECT_TRUE(window().fileText->isVisible());
    EXPECT_EQ(window().totalCaption->text(), QStringLiteral("All files"));
    EXPECT_EQ(window().fileCaption->text(), QStringLiteral("This file"));
    untilSheet("File Copy Completed");
}

TEST_F(RunDisplayTest, DiskThatHoldsUpTheOthersIsNamed)
{
    makeSlow(2);
    startWithEnclosure();
    pressStart();
    until([&] { return window().stageText->text().startsWith(QStringLiteral("Waiting for bay C: ")); });
    EXPECT_TRUE(window().stageText->text().endsWith(QStringLiteral("/s")));
    untilSheet("File Copy Completed");
    EXPECT_EQ(window().stageText->text(), QString());
}

TEST_F(RunDisplayTest, EachBayGetsItsVerdict)
{
    bay(1)["volumes"][0]["faults"] = {{"writeErrorAfter", 1000}};
    startWithEnclosure();
    pressStart();
    untilSheet("File Copy Completed");
    EXPECT_EQ(shown("Slot-B"),
              (QStringList{QStringLiteral("\u2717 Not complete"), QStringLiteral("3 failed")}));
    EXPECT_EQ(firstOf("Slot-C"), QStringLiteral("\u2713 Complete"));
    EXPECT_FALSE(run("Slot-C").findChild<ProgressIndicator *>()->isVisible());
    EXPECT_FALSE(run("Slot-D").isVisible()) << "it has no disk";
}

TEST_F(RunDisplayTest, VerifiedIsOnlySaidOfWhatCameFromTheDisk)
{
    startWithEnclosure();
    setVerify(true);
    pressStart();
    untilSheet("File Copy Completed");
    const auto from = report()["destinations"][0]["verifiedFrom"];
    EXPECT_EQ(firstOf("Slot-B"),
              from == "disk" ? QStringLiteral("\u2713 Verified") : QStringLiteral("\u2713 Complete"));
}

TEST_F(RunDisplayTest, CancelledRunHasFinishedNoDisk)
{
    makeSlow(1);
    startWithEnclosure();
    pressStart();
    until([&] { return run("Slot-B").isVisible(); });
    pressStart();
    EXPECT_EQ(firstOf("Slot-B"), QStringLiteral("\u2717 Not finished"));
    until([this] { return !window().isBusy(); });
    EXPECT_EQ(firstOf("Slot-B"), QStringLiteral("\u2717 Not finished"));
}

TEST_F(RunDisplayTest, BayThatIsTooSmallTookNoPart)
{
    bay(2)["volumes"][0]["capacity"] = 1000;
    startWithEnclosure();
    pressStart();
    pressSheet("OK");
    untilSheet("File Copy Completed");
    EXPECT_EQ(firstOf("Slot-C"), QStringLiteral("\u2013 No part"));
}

TEST_F(RunDisplayTest, VerdictGoesWithItsDisk)
{
    startWithEnclosure();
    pressStart();
    untilSheet("File Copy Completed");
    pressSheet("Done");
    ASSERT_TRUE(run("Slot-B").isVisible());
    chooseEnclosure(1);
    EXPECT_TRUE(run("Slot-B").isVisible()) << "the same disks";
    window().rescanDevice();
    EXPECT_FALSE(run("Slot-B").isVisibleTo(&slots())) << "no enclosure is chosen";
    chooseEnclosure(1);
    EXPECT_TRUE(run("Slot-B").isVisible()) << "the same disks once more";
    move("detach", "1/B");
    until([&] {
        window().rescanDevice();
        chooseEnclosure(1);
        return slots().SlotB() == "None";
    });
    EXPECT_FALSE(run("Slot-B").isVisible()) << "the bay is empty";
    EXPECT_TRUE(run("Slot-C").isVisible());
}

TEST_F(RunDisplayTest, NextRunStartsWithoutVerdicts)
{
    startWithEnclosure();
    pressStart();
    untilSheet("File Copy Completed");
    pressSheet("Done");
    pressStart();
    EXPECT_FALSE(firstOf("Slot-B").contains(QChar(u'\u2713')));
    untilSheet("File Copy Completed");
}

TEST_F(RunDisplayTest, EraseNamesDiskAndNumberAndIsPaintedBeforeEachCommand)
{
    startWithEnclosure();
    setErase(true);
    PaintCount paints;
    window().stageText->installEventFilter(&paints);
    QStringList stages;
    std::vector<int> counts;
    std::vector<QStringList> bays;
    m_beforeTool = [&](const Files &words) {
        if (words.front() != "eraseDisk")
            return;
        stages += window().stageText->text();
        counts.push_back(paints.count);
        bays.push_back({firstOf("Slot-B"), firstOf("Slot-C")});
    };
    startErase();
    untilSheet("File Copy Completed");
    EXPECT_EQ(stages, (QStringList{QStringLiteral("Erasing disk 1 of 2: bay B"),
                                   QStringLiteral("Erasing disk 2 of 2: bay C")}));
    ASSERT_EQ(counts.size(), 2U);
    EXPECT_GT(counts[0], 0);
    EXPECT_GT(counts[1], counts[0]);
    EXPECT_EQ(bays[0], (QStringList{QStringLiteral("Erasing..."), QStringLiteral("To be erased")}));
    EXPECT_EQ(bays[1], (QStringList{QStringLiteral("Erased"), QStringLiteral("Erasing...")}));
}

TEST_F(RunDisplayTest, NamesKeepTheirColourInARun)
{
    bay(2)["volumes"][0]["capacity"] = 1000;
    makeSlow(1);
    startWithEnclosure();
    const auto colorOf = [&](VolumeNameField *field, QPalette::ColorGroup group) {
        return field->palette().color(group, QPalette::Text);
    };
    pressStart();
    pressSheet("OK");
    until([&] { return run("Slot-B").isVisible(); });
    ASSERT_FALSE(slots().SlotCVolume->isEnabled());
    for (auto *field : {slots().SlotBVolume, slots().SlotCVolume})
        EXPECT_EQ(colorOf(field, QPalette::Disabled), colorOf(field, QPalette::Active));
    EXPECT_NE(colorOf(slots().SlotBVolume, QPalette::Disabled),
              colorOf(slots().SlotCVolume, QPalette::Disabled));
    untilSheet("File Copy Completed");
}

TEST_F(RunDisplayTest, CountOfAnotherTreeIsTakenAway)
{
    startWithEnclosure();
    ASSERT_FALSE(files().itemSizeLabel->text().isEmpty());
    files().showRoot(std::make_shared<const std::string>(m_tree.path("elsewhere")));
    until([&] { return files().itemSizeLabel->text().isEmpty(); });
}

} // namespace

} // namespace orvana
