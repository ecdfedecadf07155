#include "panels/SlotPanelFixture.h"

namespace orvana
{

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

TEST_F(SlotPanel, EveryRowShowsEachValueInItsPlace)
{
    for (const auto &row : rows()) {
        const std::string name = row.name;
        panel.setDiskInfo(name, "V" + name, "M" + name, "S" + name, "F" + name, "C" + name, false, false);
    }
    EXPECT_EQ(panel.Source() + panel.SlotA() + panel.SlotB() + panel.SlotC() + panel.SlotD(),
              "VSourceVSlot-AVSlot-BVSlot-CVSlot-D");
    for (const auto &row : rows()) {
        for (std::size_t i = 0; i < row.values.size(); ++i)
            EXPECT_EQ(row.values[i]->text().toStdString(), std::string(1, "MSFC"[i]) + row.name);
    }
}

TEST_F(SlotPanel, InitialisingPutsEveryRowBack)
{
    for (const auto &row : rows())
        panel.setDiskInfo(row.name, "name", "model", "serial", "free", "capacity", false, false);
    panel.SourcePopup->addTitle("STICK");
    panel.setTargetDiskVolumeEditable(true);
    panel.initDiskVolume();
    panel.initDiskInfo("none");
    EXPECT_EQ(panel.SourcePopup->count(), 1);
    EXPECT_EQ(panel.Source(), "Source Disk (Slot-A)");
    EXPECT_EQ(panel.SlotA(), "Destination Disk (Slot-A)");
    EXPECT_EQ(panel.SlotD(), "Destination Disk (Slot-D)");
    EXPECT_TRUE(panel.SourceVolume->isHidden());
    for (const auto &row : rows()) {
        EXPECT_TRUE(row.volume->isReadOnly()) << row.name;
        for (const auto *value : row.values)
            EXPECT_EQ(value->text(), QStringLiteral("none")) << row.name;
    }
}

TEST_F(SlotPanel, HiddenDetailsAreValuesAndCaptionsOfEveryRowAndNoNames)
{
    for (const bool isHidden : {true, false}) {
        panel.hiddenDiskInfo(isHidden);
        for (const auto &row : rows()) {
            for (std::size_t i = 0; i < row.values.size(); ++i) {
                EXPECT_EQ(row.values[i]->isHidden(), isHidden) << row.name;
                EXPECT_EQ(row.captions[i]->isHidden(), isHidden) << row.name;
            }
        }
        EXPECT_FALSE(panel.SlotBVolume->isHidden());
    }
}

TEST_F(SlotPanel, DetailsOfTheSourceAreHiddenWhenItsRowSaysSo)
{
    for (const bool isHidden : {true, false}) {
        panel.setDiskInfo("Source", "Master", "m", "s", "1", "2", isHidden, false);
        EXPECT_EQ(panel.ModelOfSource->isHidden(), isHidden);
        EXPECT_EQ(panel.Label_Capacity_Source->isHidden(), isHidden);
    }
}

TEST_F(SlotPanel, NamesOfAllBaysBecomeEditableAndThatOfTheSourceDoesNot)
{
    for (const bool isEditable : {true, false}) {
        panel.setTargetDiskVolumeEditable(isEditable);
        for (const auto &row : rows())
            EXPECT_EQ(row.volume->isReadOnly(), !isEditable || row.volume == panel.SourceVolume) << row.name;
    }
}

TEST_F(SlotPanel, DisablingTakesButtonsPopupAndNamesAndGivesThemBack)
{
    for (const bool isDisabled : {true, false}) {
        panel.DisabledItem(isDisabled);
        for (const QWidget *widget :
             {static_cast<QWidget *>(panel.EjectTargetDiskBtn),
              static_cast<QWidget *>(panel.EjectSourceDiskBtn), static_cast<QWidget *>(panel.SourcePopup)})
            EXPECT_EQ(widget->isEnabled(), !isDisabled);
        for (const auto &row : rows())
            EXPECT_EQ(row.volume->isEnabled(), !isDisabled) << row.name;
    }
}

} // namespace orvana
