#include "panels/BayRunView.h"

#include "panels/SlotPanelFixture.h"
#include "ui/ElidedLabel.h"
#include "ui/ProgressIndicator.h"

namespace orvana
{

class BayRunViewTest : public testing::Test
{
protected:
    BayRunViewTest() { window.show(); }

    QStringList heard() const
    {
        QStringList names;
        for (const auto *label : view.findChildren<ElidedLabel *>()) {
            if (label->isVisible())
                names += label->accessibleName();
        }
        return names;
    }

    QWidget window;
    BayRunView view{QStringLiteral("bay B"), &window};
};

TEST_F(BayRunViewTest, ShowsNothingAtFirstAndAfterClear)
{
    EXPECT_FALSE(view.isVisible());
    view.showVerdict(QStringLiteral("Complete"), QString());
    view.clear();
    EXPECT_FALSE(view.isVisible());
}

TEST_F(BayRunViewTest, EveryNumberIsHeard)
{
    view.showProgress(0.45, QStringLiteral("45%"), QStringLiteral("41 MB/s"), QStringLiteral("1:02 left"));
    EXPECT_EQ(heard(),
              (QStringList{QStringLiteral("State of bay B: 45%"), QStringLiteral("Rate of bay B: 41 MB/s"),
                           QStringLiteral("Time left for bay B: 1:02 left")}));
    const auto *bar = view.findChild<ProgressIndicator *>();
    EXPECT_EQ(bar->accessibleName(), QStringLiteral("Progress of bay B"));
    EXPECT_NEAR(bar->doubleValue(), 0.45, 1e-6);
}

TEST_F(BayRunViewTest, VerdictHasNoBar)
{
    view.showVerdict(QStringLiteral("\u2717 Differs"), QStringLiteral("2 differ"));
    EXPECT_FALSE(view.findChild<ProgressIndicator *>()->isVisible());
    EXPECT_EQ(heard().first(), QStringLiteral("State of bay B: \u2717 Differs"));
    EXPECT_EQ(heard().size(), 1);
    const auto labels = view.findChildren<QLabel *>();
    const auto *detail = labels.back();
    EXPECT_EQ(detail->text(), QStringLiteral("2 differ"));
}

TEST_F(BayRunViewTest, LongWordBecomesSmallerAndALongReasonIsInTheToolTip)
{
    const auto reason = QStringLiteral("could not be erased: the disk utility says that the disk is in use");
    view.showVerdict(QStringLiteral("\u2717 Not complete at all"), reason);
    const auto *word = view.findChildren<ElidedLabel *>().front();
    EXPECT_EQ(word->shownText(), word->text());
    const auto *detail = view.findChildren<QLabel *>().back();
    EXPECT_TRUE(detail->text().endsWith(QChar(0x2026)));
    EXPECT_TRUE(detail->toolTip().contains(reason));
    EXPECT_EQ(detail->accessibleName(), reason);
}

TEST_F(SlotPanel, RunOfABayKeepsClearOfItsMarkersAndItsValues)
{
    makeBayATheSource();
    makeStickTheSource();
    color(Red, {"Slot-A", "Slot-B", "Slot-C", "Slot-D"});
    for (const char *row : {"Slot-A", "Slot-B", "Slot-C", "Slot-D"}) {
        auto *run = panel.runOf(row);
        run->showProgress(1, QStringLiteral("100%"), QString(), QString());
        EXPECT_TRUE(panel.rect().contains(run->geometry())) << row;
        for (const auto *other : panel.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            EXPECT_TRUE(other == run || !other->geometry().intersects(run->geometry()))
                << row << ": " << other->objectName().toStdString();
    }
    EXPECT_EQ(panel.runOf("Source"), nullptr);
    EXPECT_EQ(panel.runOf("Slot-E"), nullptr);
}

TEST_F(SlotPanel, RaidDiskIsNotSaidToBeTooSmallAndItsEmptyNameIsNotBlank)
{
    panel.setDiskInfo("Slot-B", "", "Array HD", "1", "1", "1", false, true);
    color(Red, {"Slot-B"});
    EXPECT_TRUE(panel.Label_OverSize_SlotB->isHidden());
    EXPECT_FALSE(panel.Label_RaidDisk_SlotB->isHidden());
    EXPECT_EQ(panel.SlotBVolume->placeholderText(), QStringLiteral("(no name)"));
    EXPECT_EQ(panel.SlotB(), "") << "the name itself stays empty";
}

TEST_F(SlotPanel, EachValueIsHeardWithItsMeaning)
{
    panel.setDiskInfo("Slot-B", "COPY1", "Copy HD", "B-2002", "1.00 TB", "1.82 TB", false, false);
    EXPECT_EQ(panel.ModelOfSlotB->accessibleName(), QStringLiteral("Model of bay B: Copy HD"));
    EXPECT_EQ(panel.SNOfSlotB->accessibleName(), QStringLiteral("Serial number of bay B: B-2002"));
    EXPECT_EQ(panel.AvailableOfSlotB->accessibleName(), QStringLiteral("Free space of bay B: 1.00 TB"));
    EXPECT_EQ(panel.CapacityOfSlotB->accessibleName(), QStringLiteral("Capacity of bay B: 1.82 TB"));
}

} // namespace orvana
