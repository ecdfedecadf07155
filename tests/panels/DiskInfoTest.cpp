#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "panels/DiskInfoViewController.h"
#include "panels/SystemColor.h"

#include <QLabel>
#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

class SlotPanel : public testing::Test
{
protected:
    SlotPanel()
    {
        window.resize(300, 500);
        panel.setGeometry(0, 0, 300, 500);
        window.show();
    }

    // Bay A holds the source: the pop-up's first item is its volume.
    void makeBayATheSource()
    {
        panel.SourcePopup->clear();
        panel.SourcePopup->addTitle("Master");
        panel.SourcePopup->addTitle("STICK");
        panel.setDiskInfo("Source", "Master", "m", "s", "1", "2", false, false);
        panel.setDiskInfo("Slot-A", "Master", "m", "s", "1", "2", false, false);
        panel.setSlotAisSource();
        panel.changeLocation();
    }

    void makeStickTheSource()
    {
        panel.SourcePopup->setCurrentIndex(1);
        panel.selectSourceDiksPopup();
    }

    void color(const SystemColor &color, std::initializer_list<const char *> rows)
    {
        for (const char *row : rows)
            panel.setTextColor(row, color);
    }

    // y of the widget's bottom, counted from the panel's bottom.
    static int base(const QWidget *widget) { return 500 - widget->geometry().bottom() - 1; }

    NotificationCenter center;
    QWidget window;
    DiskInfoViewController panel{center, &window};
};

const auto &Red = SystemColor::red();
const auto &Black = SystemColor::black();

} // namespace

TEST_F(SlotPanel, FreshPanelShowsItsPlaceholders)
{
    EXPECT_EQ(panel.SourcePopup->count(), 1);
    EXPECT_EQ(panel.SourcePopup->currentText(), QStringLiteral("Source Disk (Slot-A)"));
    EXPECT_EQ(panel.Source(), "Source Disk (Slot-A)");
    EXPECT_EQ(panel.SlotA(), "Destination Disk (Slot-A)");
    EXPECT_EQ(panel.SlotB(), "Destination Disk (Slot-B)");
    EXPECT_EQ(panel.SlotC(), "Destination Disk (Slot-C)");
    EXPECT_EQ(panel.SlotD(), "Destination Disk (Slot-D)");
    EXPECT_TRUE(panel.SlotAisSource());
    EXPECT_TRUE(panel.SourceVolume->isHidden());
    EXPECT_TRUE(panel.SlotAVolume->isHidden());
    EXPECT_TRUE(panel.ModelOfSlotB->isHidden()) << "bay B's details start hidden";
    EXPECT_FALSE(panel.ModelOfSlotC->isHidden());
    EXPECT_TRUE(panel.SlotBVolume->isReadOnly());
}

TEST_F(SlotPanel, AllDisksAreTooSmallWhenBToDAreRed)
{
    makeBayATheSource();
    color(Red, {"Slot-B", "Slot-C", "Slot-D"});
    EXPECT_TRUE(panel.isOverSize_AllDisks());
    EXPECT_TRUE(panel.isOverSize_SomeDisks());
}

TEST_F(SlotPanel, RedBayAAsDestinationIsSomeAndNeverAll)
{
    makeBayATheSource();
    makeStickTheSource();
    color(Red, {"Slot-A"});
    color(Black, {"Slot-B", "Slot-C", "Slot-D"});
    EXPECT_FALSE(panel.isOverSize_AllDisks());
    EXPECT_TRUE(panel.isOverSize_SomeDisks());
}

TEST_F(SlotPanel, RedBayAAsSourceIsNotAmongSome)
{
    makeBayATheSource();
    color(Red, {"Slot-A"});
    EXPECT_FALSE(panel.isOverSize_SomeDisks());
}

TEST_F(SlotPanel, BlackTakesTheFlagBack)
{
    color(Red, {"Slot-C"});
    EXPECT_TRUE(panel.isOverSize_SlotC());
    color(Black, {"Slot-C"});
    EXPECT_FALSE(panel.isOverSize_SlotC());
}

TEST_F(SlotPanel, RaidDiskInBayACountsEvenAsSourceButItsMarkerStaysHidden)
{
    makeBayATheSource();
    panel.setDiskInfo("Slot-A", "Master", "m", "s", "1", "2", false, true);
    EXPECT_TRUE(panel.has_RAIDDisk());
    EXPECT_TRUE(panel.Label_RaidDisk_SlotA->isHidden());
    makeStickTheSource();
    EXPECT_FALSE(panel.Label_RaidDisk_SlotA->isHidden());
}

TEST_F(SlotPanel, RaidMarkerNeedsAShownRowAndARaidDisk)
{
    panel.setDiskInfo("Slot-B", "COPY", "m", "s", "1", "2", true, true);
    EXPECT_TRUE(panel.Label_RaidDisk_SlotB->isHidden());
    EXPECT_TRUE(panel.isRaidDisk_SlotB());
    panel.setDiskInfo("Slot-B", "COPY", "m", "s", "1", "2", false, true);
    EXPECT_FALSE(panel.Label_RaidDisk_SlotB->isHidden());
    panel.setDiskInfo("Slot-B", "COPY", "m", "s", "1", "2", false, false);
    EXPECT_TRUE(panel.Label_RaidDisk_SlotB->isHidden());
    EXPECT_FALSE(panel.has_RAIDDisk());
}

TEST_F(SlotPanel, TabFromAFreshPanelGoesToBAndCAndDAndAround)
{
    window.activateWindow();
    panel.setTargetDiskVolumeEditable(true);
    for (auto *field : {panel.SlotBVolume, panel.SlotCVolume, panel.SlotDVolume, panel.SlotBVolume}) {
        panel.changeTargetDiskFocus();
        EXPECT_EQ(window.focusWidget(), field);
    }
    EXPECT_EQ(panel.tabStep(), 1);
}

TEST_F(SlotPanel, UnknownRowNameIsIgnored)
{
    const auto before = panel.SlotB();
    for (const char *row : {"Slot-E", "slot-b", "", "SlotB"}) {
        panel.setDiskInfo(row, "x", "x", "x", "x", "x", false, true);
        panel.setTextColor(row, Red);
    }
    EXPECT_EQ(panel.SlotB(), before);
    EXPECT_FALSE(panel.has_RAIDDisk());
    EXPECT_EQ(panel.OverSizeVolume(), ".");
}

TEST_F(SlotPanel, NoFlagGivesAFullStopAlone)
{
    EXPECT_EQ(panel.OverSizeVolume(), ".");
}

TEST_F(SlotPanel, TooSmallBaysAreNamedInOrderAndBayAOnlyAsDestination)
{
    makeBayATheSource();
    panel.setSlotC("COPY C");
    color(Red, {"Slot-A", "Slot-C", "Slot-D"});
    EXPECT_EQ(panel.OverSizeVolume(), " COPY C Destination Disk (Slot-D).");
    makeStickTheSource();
    EXPECT_EQ(panel.OverSizeVolume(), " Master COPY C Destination Disk (Slot-D).");
}

TEST_F(SlotPanel, AnotherSourceMovesTheBaysDownARowAndShowsBayA)
{
    makeBayATheSource();
    EXPECT_EQ(base(panel.CapacityOfSlotD), 96);
    EXPECT_EQ(base(panel.CapacityOfSlotB), 96 + 188);
    EXPECT_TRUE(panel.SlotAVolume->isHidden());
    makeStickTheSource();
    EXPECT_FALSE(panel.SlotAisSource());
    EXPECT_EQ(base(panel.CapacityOfSlotD), 2);
    EXPECT_EQ(base(panel.CapacityOfSlotC), 96);
    EXPECT_EQ(base(panel.CapacityOfSlotA), 2 + 282);
    EXPECT_FALSE(panel.SlotAVolume->isHidden());
    EXPECT_FALSE(panel.ModelOfSlotA->isHidden());
}

TEST_F(SlotPanel, ElementsOfARowStandWhereTheyBelong)
{
    makeBayATheSource();
    const int b = 96;
    const auto frame = [](int x, int y, int width, int height) {
        return QRect(x, 500 - y - height, width, height);
    };
    EXPECT_EQ(panel.Label_Capacity_SlotD->geometry(), frame(0, b, 60, 15));
    EXPECT_EQ(panel.Label_Available_SlotD->geometry(), frame(0, b + 16, 60, 15));
    EXPECT_EQ(panel.Label_SN_SlotD->geometry(), frame(0, b + 32, 60, 15));
    EXPECT_EQ(panel.Label_Model_SlotD->geometry(), frame(0, b + 48, 60, 15));
    EXPECT_EQ(panel.ModelOfSlotD->geometry(), frame(72, b + 48, 120, 15));
    EXPECT_EQ(panel.SlotDVolume->geometry(), frame(72, b + 70, 120, 22));
    EXPECT_EQ(panel.Label_RaidDisk_SlotD->geometry(), frame(220, b, 60, 15));
}

TEST_F(SlotPanel, SourceIsBayAOnlyWhenTheFirstItemIsChosenAndTheNamesAreEqual)
{
    makeBayATheSource();
    EXPECT_TRUE(panel.SlotAisSource());
    panel.setSource("Other");
    panel.setSlotAisSource();
    EXPECT_FALSE(panel.SlotAisSource());
    panel.setSource("Master");
    panel.SourcePopup->setCurrentIndex(1);
    panel.setSlotAisSource();
    EXPECT_FALSE(panel.SlotAisSource());
}

TEST_F(SlotPanel, BayAIgnoresTheCallersFlag)
{
    makeBayATheSource();
    panel.setDiskInfo("Slot-A", "Master", "m", "s", "1", "2", false, false);
    EXPECT_TRUE(panel.ModelOfSlotA->isHidden());
    makeStickTheSource();
    panel.setDiskInfo("Slot-A", "Master", "m", "s", "1", "2", true, false);
    EXPECT_FALSE(panel.ModelOfSlotA->isHidden());
}

TEST_F(SlotPanel, SourceChoiceIsPostedBeforeThePanelFollowsIt)
{
    makeBayATheSource();
    bool wasSource = false;
    const auto listen = center.subscribe(notification::SelectSourceDisk,
                                         [&](const Notification &) { wasSource = panel.SlotAisSource(); });
    makeStickTheSource();
    EXPECT_TRUE(wasSource);
    EXPECT_FALSE(panel.SlotAisSource());
}

TEST_F(SlotPanel, EjectButtonsPost)
{
    std::vector<std::string> posted;
    const auto keep = [&](const Notification &n) { posted.push_back(n.name); };
    const auto source = center.subscribe(notification::EjectSourceDisk, keep);
    const auto targets = center.subscribe(notification::EjectTargetDisks, keep);
    QTest::mouseClick(panel.EjectSourceDiskBtn, Qt::LeftButton);
    QTest::mouseClick(panel.EjectTargetDiskBtn, Qt::LeftButton);
    EXPECT_EQ(posted,
              (std::vector<std::string>{notification::EjectSourceDisk, notification::EjectTargetDisks}));
}

TEST_F(SlotPanel, WheelOverTheSourceChangesNothing)
{
    makeBayATheSource();
    int posted = 0;
    const auto listen =
        center.subscribe(notification::SelectSourceDisk, [&](const Notification &) { ++posted; });
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(panel.SourcePopup, &wheel);
    EXPECT_EQ(panel.SourcePopup->currentIndex(), 0);
    EXPECT_EQ(posted, 0);
}

TEST_F(SlotPanel, TypedNameIsWhatLaterReadersGet)
{
    panel.setSlotB("COPY1");
    panel.setTargetDiskVolumeEditable(true);
    panel.SlotBVolume->selectAll();
    QTest::keyClicks(panel.SlotBVolume, QStringLiteral("Fresh"));
    EXPECT_EQ(panel.SlotB(), "Fresh");
}

TEST_F(SlotPanel, NameIsNotTypedWhileEraseIsOff)
{
    panel.setSlotB("COPY1");
    panel.setTargetDiskVolumeEditable(true);
    panel.setTargetDiskVolumeEditable(false);
    QTest::keyClicks(panel.SlotBVolume, QStringLiteral("x"));
    EXPECT_EQ(panel.SlotB(), "COPY1");
    EXPECT_TRUE(panel.SourceVolume->isReadOnly());
}

TEST_F(SlotPanel, FieldGivesBackTheVolumesOwnBytes)
{
    const std::string longest(255, 'n');
    for (const std::string &name :
         {std::string("two\nlines"), std::string("\xff\xfe"), std::string("right \xe2\x80\xae to left"),
          std::string("<b>bold</b>"), longest}) {
        panel.setSlotC(name);
        EXPECT_EQ(panel.SlotC(), name);
        panel.setTargetDiskVolumeEditable(true);
        panel.setTargetDiskVolumeEditable(false);
        EXPECT_EQ(panel.SlotC(), name);
        EXPECT_FALSE(panel.SlotCVolume->text().contains(QLatin1Char('\n')));
    }
    EXPECT_FALSE(panel.grab().isNull());
}

TEST_F(SlotPanel, DisablingTakesButtonsPopupAndNamesAndGivesThemBack)
{
    panel.DisabledItem(true);
    for (QWidget *widget :
         {static_cast<QWidget *>(panel.EjectTargetDiskBtn), static_cast<QWidget *>(panel.EjectSourceDiskBtn),
          static_cast<QWidget *>(panel.SourcePopup), static_cast<QWidget *>(panel.SlotAVolume),
          static_cast<QWidget *>(panel.SlotDVolume), static_cast<QWidget *>(panel.SourceVolume)})
        EXPECT_FALSE(widget->isEnabled());
    panel.DisabledItem(false);
    EXPECT_TRUE(panel.SourcePopup->isEnabled());
    EXPECT_TRUE(panel.SlotDVolume->isEnabled());
}

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
