#include "app/WindowFixture.h"

#include "filetree/view/FileTreeView.h"
#include "ui/SystemColor.h"

#include <QApplication>
#include <QIcon>
#include <QStyle>

namespace orvana
{

namespace
{

Json volumes(std::initializer_list<const char *> names)
{
    Json list = Json::array();
    for (const char *name : names)
        list.push_back({{"name", name}, {"capacity", 300000}});
    return list;
}

QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(32, 32).toImage();
}

} // namespace

TEST_F(WindowTest, BayAIsTheSourceAndTheBaysAreFilled)
{
    startWithEnclosure();
    EXPECT_EQ(slots().Source(), "Master");
    EXPECT_TRUE(slots().SlotAisSource());
    EXPECT_EQ(slots().SlotB(), "COPY1");
    EXPECT_EQ(slots().SlotC(), "COPY2");
    EXPECT_EQ(slots().ModelOfSlotB->text(), QStringLiteral("MB"));
    EXPECT_EQ(files().totalFiles(), 4);
    EXPECT_EQ(slots().SourcePopup->currentText(), QStringLiteral("Master"));
    EXPECT_EQ(slots().ModelOfSource->palette().color(QPalette::WindowText),
              SystemColor::blue().shadeFor(slots().palette()));
}

TEST_F(WindowTest, EmptyBayAMakesTheHomeFolderTheSourceWhichCannotBeEjected)
{
    bay(0)["attached"] = false;
    startWithEnclosure();
    EXPECT_EQ(slots().Source(), "anna");
    EXPECT_EQ(slots().SourcePopup->currentText(), QStringLiteral("anna"));
    const auto home = QIcon::fromTheme(QStringLiteral("user-home"),
                                       QApplication::style()->standardIcon(QStyle::SP_DirHomeIcon));
    EXPECT_EQ(imageOf(slots().SourcePopup->itemIcon(0)), imageOf(home));
    EXPECT_NE(imageOf(slots().SourcePopup->itemIcon(1)), imageOf(home)) << "the USB disk is no home";
    EXPECT_FALSE(slots().EjectSourceDiskBtn->isEnabled());
    EXPECT_EQ(files().totalFiles(), 1);
}

TEST_F(WindowTest, UnformattedBayAMakesTheHomeFolderTheSource)
{
    bay(0).erase("volumes");
    bay(0)["formatted"] = false;
    startWithEnclosure();
    EXPECT_EQ(slots().Source(), "anna");
    EXPECT_FALSE(slots().SlotAisSource());
}

TEST_F(WindowTest, UnformattedDestinationTurnsEraseOnByItself)
{
    startWithEnclosure();
    EXPECT_EQ(slots().SlotD(), "Unformatted");
    EXPECT_TRUE(actions().EraseDiskCheckBox->isChecked());
    EXPECT_FALSE(slots().SlotBVolume->isReadOnly());
}

TEST_F(WindowTest, RowsOfEmptyBaysStayAtNoneWithHiddenLabels)
{
    bay(2)["attached"] = false;
    startWithEnclosure();
    EXPECT_EQ(slots().SlotC(), "None");
    EXPECT_TRUE(slots().ModelOfSlotC->isHidden());
    EXPECT_FALSE(slots().ModelOfSlotB->isHidden());
}

TEST_F(WindowTest, DiskInNoKnownBayIsExplainedBesideThePicker)
{
    bay(2)["bridge"] = 5;
    start();
    auto *button = window().myTBDeviceViewController().remarksBtn;
    EXPECT_TRUE(button->isVisible());
    button->click();
    EXPECT_EQ(sheetMessage(), "Not used");
    EXPECT_EQ(sheetText(),
              "MC (SC) in Orvana Storage sits in none of the bays that are known; it is neither copied "
              "to nor erased");
    pressSheet("OK");
    move("detach", "1/C");
    until([&] { return !button->isVisible(); });
}

TEST_F(WindowTest, StartupDiskInTheEnclosureIsRefusedAndStartDisabled)
{
    m_machine["internalDisks"] = Json::array();
    bay(1)["volumes"][0]["startup"] = true;
    bay(2).erase("volumes");
    bay(2)["formatted"] = false;
    startWithEnclosure();
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_EQ(sheetText(), "This device cannot be selected when it's used as a startup disk.");
    EXPECT_FALSE(actions().StartBtn->isEnabled());
    EXPECT_FALSE(slots().SourcePopup->isEnabled());
    EXPECT_EQ(window().layoutState(), 1) << "it stays selected and shown";
}

TEST_F(WindowTest, LastPartitionedDiskDecidesAboutTheStartupDisk)
{
    m_machine["internalDisks"] = Json::array();
    bay(1)["volumes"][0]["startup"] = true;
    startWithEnclosure();
    EXPECT_FALSE(slots().hasBootDisk()) << "bay C comes after it";
    EXPECT_EQ(sheetMessage(), "");
    pressStart();
    EXPECT_EQ(sheetText(), "This device cannot be selected when it's used as a startup disk.")
        << "Start looks at all disks";
    EXPECT_FALSE(window().isBusy());
    EXPECT_EQ(title(), "Start");
}

TEST_F(WindowTest, RaidSetIsRefusedAndOnlyStartDisabled)
{
    bay(2)["raid"] = true;
    startWithEnclosure();
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_EQ(sheetText(), "This device cannot be selected, because it includes a RAID set.");
    EXPECT_FALSE(actions().StartBtn->isEnabled());
    EXPECT_TRUE(slots().SourcePopup->isEnabled());
}

TEST_F(WindowTest, AcceptableEnclosureDoesNotEnableStartAgain)
{
    auto second = m_machine["enclosures"][0];
    second["uid"] = 8;
    second["route"] = 2;
    for (auto &disk : second["bays"])
        disk["serial"] = "2" + disk["serial"].get<std::string>();
    second["bays"][0]["volumes"][0]["name"] = "Other";
    second["bays"][1]["volumes"][0]["name"] = "OTHER1";
    second["bays"][2]["volumes"][0]["name"] = "OTHER2";
    m_machine["enclosures"].push_back(second);
    bay(2)["raid"] = true;
    startWithEnclosure();
    pressSheet("OK");
    chooseEnclosure(2);
    untilCounted();
    EXPECT_EQ(slots().Source(), "Other");
    EXPECT_FALSE(actions().StartBtn->isEnabled());
}

TEST_F(WindowTest, SeveralVolumesInBayAShowTheLastInTheRowAndTheFirstInTheTree)
{
    bay(0)["volumes"] = volumes({"One", "Two"});
    startWithEnclosure();
    EXPECT_EQ(slots().SourcePopup->currentText(), QStringLiteral("One"));
    EXPECT_EQ(slots().Source(), "Two");
    EXPECT_TRUE(FileSystemItem::repoRoot()->ends_with("/One"));
}

TEST_F(WindowTest, ChoosingAnotherSourceFillsTheRowAndTheTreeAndShowsBayA)
{
    startWithEnclosure();
    chooseSource("STICK");
    EXPECT_EQ(slots().Source(), "STICK");
    EXPECT_TRUE(FileSystemItem::repoRoot()->ends_with("/STICK"));
    EXPECT_EQ(files().totalFiles(), 1);
    EXPECT_FALSE(slots().SlotAisSource());
    EXPECT_FALSE(slots().SlotAVolume->isHidden());
    EXPECT_TRUE(slots().EjectSourceDiskBtn->isEnabled());
    chooseSource("anna");
    EXPECT_FALSE(slots().EjectSourceDiskBtn->isEnabled());
}

TEST_F(WindowTest, PlaceholderClearsAndCollapses)
{
    startWithEnclosure();
    window().myTBDeviceViewController().tbDevicePopup->setCurrentIndex(0);
    window().tbDevSelectionChange();
    EXPECT_EQ(window().layoutState(), 0);
    EXPECT_EQ(slots().SlotB(), "Destination Disk (Slot-B)");
    EXPECT_EQ(*FileSystemItem::repoRoot(), "");
}

TEST_F(WindowTest, ReselectingTheEnclosureKeepsWhatWasTicked)
{
    startWithEnclosure();
    untick("Read me.txt");
    EXPECT_EQ(files().totalFiles(), 3);
    chooseEnclosure(1);
    untilCounted();
    EXPECT_EQ(files().totalFiles(), 3) << "the volume's path is the same object";
}

TEST_F(WindowTest, UnmountMountAndRenameOfAVolumeEachCollapseTheWindowToThePicker)
{
    startWithEnclosure();
    const auto expectCollapse = [this] {
        until([this] { return window().layoutState() == 0; });
        EXPECT_EQ(window().myTBDeviceViewController().tbDevicePopup->currentIndex(), 0);
        EXPECT_EQ(*FileSystemItem::repoRoot(), "");
        chooseEnclosure(1);
        untilCounted();
        ASSERT_EQ(window().layoutState(), 1);
    };
    move("unmount", "STICK");
    expectCollapse();
    move("mount", "STICK");
    expectCollapse();
    move("rename", "STICK", "OTHER");
    expectCollapse();
}

} // namespace orvana
