#include "panels/SlotPanelFixture.h"

namespace orvana
{

TEST_F(SlotPanel, RedBayAlsoSaysThatItDoesNotFit)
{
    makeBayATheSource();
    panel.hiddenSlotBInfo(false);
    color(Red, {"Slot-A", "Slot-B"});
    EXPECT_FALSE(panel.Label_OverSize_SlotB->isHidden());
    EXPECT_TRUE(panel.Label_OverSize_SlotA->isHidden()) << "its row is not shown";
    EXPECT_TRUE(panel.Label_OverSize_SlotC->isHidden());
    makeStickTheSource();
    EXPECT_FALSE(panel.Label_OverSize_SlotA->isHidden());
}

TEST_F(SlotPanel, RowWithoutADiskSaysNothingOfFittingWhateverColourItKept)
{
    makeBayATheSource();
    color(Red, {"Slot-C"});
    panel.setDiskInfo("Slot-C", "None", "", "", "", "", true, false);
    EXPECT_TRUE(panel.isOverSize_SlotC());
    EXPECT_TRUE(panel.Label_OverSize_SlotC->isHidden());
}

TEST_F(SlotPanel, ColoursReachNameValuesAndCaptionsButNotTheRaidMarker)
{
    const auto marker = panel.Label_RaidDisk_SlotB->palette().color(QPalette::WindowText);
    panel.setTextColor("Slot-B", Red);
    const auto shade = Red.shadeFor(panel.palette());
    EXPECT_EQ(panel.SlotBVolume->palette().color(QPalette::Active, QPalette::Text), shade);
    for (const QWidget *label :
         {static_cast<QWidget *>(panel.ModelOfSlotB), static_cast<QWidget *>(panel.SNOfSlotB),
          static_cast<QWidget *>(panel.Label_Capacity_SlotB)})
        EXPECT_EQ(label->palette().color(QPalette::Active, QPalette::WindowText), shade);
    EXPECT_EQ(panel.Label_RaidDisk_SlotB->palette().color(QPalette::WindowText), marker);
}

TEST_F(SlotPanel, ColoursFollowADarkPalette)
{
    panel.setTextColor("Slot-B", Red);
    const auto light = panel.ModelOfSlotB->palette().color(QPalette::WindowText);
    auto dark = panel.palette();
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    window.setPalette(dark);
    EXPECT_NE(panel.ModelOfSlotB->palette().color(QPalette::WindowText), light);
    EXPECT_TRUE(panel.isOverSize_SlotB()) << "the flag is the colour's identity, not its shade";
}

TEST_F(SlotPanel, NothingOverlapsAndNothingIsCutOff)
{
    makeBayATheSource();
    for (const bool isBayATheSource : {true, false}) {
        if (!isBayATheSource)
            makeStickTheSource();
        color(Red, {"Slot-A", "Slot-B", "Slot-C", "Slot-D"});
        for (const char *row : {"Slot-A", "Slot-B", "Slot-C", "Slot-D"})
            panel.setDiskInfo(row, std::string(200, 'v'), std::string(200, 'm'), "s", "1", "2", false, true);
        QList<QWidget *> shown;
        for (auto *widget : panel.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (widget->isVisible())
                shown.append(widget);
        }
        for (auto *widget : shown) {
            EXPECT_TRUE(panel.rect().contains(widget->geometry())) << widget->objectName().toStdString();
            for (const auto *other : shown)
                EXPECT_TRUE(widget == other || !widget->geometry().intersects(other->geometry()))
                    << widget->objectName().toStdString() << " and " << other->objectName().toStdString();
            if (const auto *label = qobject_cast<QLabel *>(widget);
                label && !qobject_cast<ElidedLabel *>(widget)) {
                EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()) * 1.2, label->width())
                    << widget->objectName().toStdString();
            }
        }
    }
}

TEST_F(SlotPanel, EveryControlHasAnAccessibleName)
{
    for (const auto *widget : panel.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const bool saysItself = label && !label->text().isEmpty();
        EXPECT_TRUE(saysItself || !widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
}

} // namespace orvana
