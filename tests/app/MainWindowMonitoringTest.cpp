#include "app/WindowFixture.h"

#include "foundation/NotificationNames.h"
#include "ui/SystemColor.h"

namespace orvana
{

namespace
{

class MonitoringTest : public WindowTest
{
protected:
    void postMessage(const std::string &text)
    {
        m_center.post(notification::FileCopyMessage, notification::key::MessageInfo, text);
    }

    // Bytes that are ticked, by one file of that size on the source.
    void startWithSelection(std::int64_t bytes)
    {
        bay(0)["volumes"][0]["content"] = Json::array({{{"path", "file"}, {"bytes", bytes}}});
        bay(0)["volumes"][0]["capacity"] = 100'000'000;
        startWithEnclosure();
        pass(std::chrono::milliseconds(10));
    }
};

} // namespace

TEST_F(MonitoringTest, MountDuringARunOrAnEraseTriggersNoRescan)
{
    startWithEnclosure();
    actions().setIsDuplicating(true);
    move("unmount", "STICK");
    pass(std::chrono::seconds(5));
    EXPECT_EQ(window().layoutState(), 1);
    actions().setIsDuplicating(false);
    actions().setIsErasing(true);
    move("mount", "STICK");
    pass(std::chrono::seconds(5));
    EXPECT_EQ(window().layoutState(), 1);
    actions().setIsErasing(false);
}

TEST_F(MonitoringTest, MountThatCameDuringAnEraseTriggersNoRescanAfterItEither)
{
    startWithEnclosure();
    for (const auto set :
         {&CopyActionViewController::setIsErasing, &CopyActionViewController::setIsDuplicating}) {
        (actions().*set)(true);
        m_volumeCenter.post(notification::DidMount);
        (actions().*set)(false);
        pass(std::chrono::seconds(5));
        EXPECT_EQ(window().layoutState(), 1);
    }
}

TEST_F(MonitoringTest, ChangeOfTheSelectionColoursTheBays)
{
    startWithEnclosure();
    slots().setTextColor("Slot-B", SystemColor::red());
    m_center.post(notification::UpdateDiskInfoColor);
    pass(std::chrono::milliseconds(10));
    EXPECT_FALSE(slots().isOverSize_SlotB());
}

TEST_F(MonitoringTest, ThunderboltAttachDuringARunStillRescans)
{
    startWithEnclosure();
    actions().setIsDuplicating(true);
    m_center.post(notification::TBDeviceAttached);
    pass(std::chrono::milliseconds(499));
    EXPECT_EQ(window().layoutState(), 1);
    pass(std::chrono::milliseconds(1));
    EXPECT_EQ(window().layoutState(), 0);
    actions().setIsDuplicating(false);
}

TEST_F(MonitoringTest, UnknownVolumeNotificationIsIgnored)
{
    startWithEnclosure();
    m_volumeCenter.post("NSWorkspaceSomethingElse");
    pass(std::chrono::seconds(5));
    EXPECT_EQ(window().layoutState(), 1);
}

TEST_F(MonitoringTest, CannotDuplicateIsLoggedAndNotShown)
{
    startWithEnclosure();
    window().displayDialog(2, false);
    postMessage("Duplicating a");
    postMessage("x Can`t Duplicate a to b");
    EXPECT_EQ(window().messageText->text(), QStringLiteral("Duplicating a"));
    EXPECT_NE(log().find("x Can`t Duplicate a to b"), std::string::npos);
}

TEST_F(MonitoringTest, VerifyingIsShownAndNotLogged)
{
    startWithEnclosure();
    window().displayDialog(2, false);
    postMessage("Verifying File ...");
    EXPECT_EQ(window().messageText->text(), QStringLiteral("Verifying File ..."));
    EXPECT_FALSE(hasLog());
    postMessage("Verifying File ... twice");
    EXPECT_NE(log().find("Verifying File ... twice"), std::string::npos);
}

TEST_F(MonitoringTest, DiskMessageIsShownAndLogged)
{
    startWithEnclosure();
    window().displayDialog(2, false);
    m_center.post(notification::DiskMessage, notification::key::DiskMsgInfo, std::string("Eject /Volumes/x"));
    EXPECT_EQ(window().messageText->text(), QStringLiteral("Eject /Volumes/x"));
    EXPECT_NE(log().find("Eject /Volumes/x"), std::string::npos);
}

TEST_F(MonitoringTest, EraseFinishWithoutAnEraseDoesNothing)
{
    startWithEnclosure();
    m_center.post(notification::EraseDiskFinish);
    EXPECT_FALSE(actions().isDuplicating());
    EXPECT_FALSE(window().isBusy());
    EXPECT_FALSE(hasLog());
}

TEST_F(MonitoringTest, EraseOffRestoresTheNamesAndEraseOnMakesThemEditable)
{
    bay(3)["attached"] = false;
    startWithEnclosure();
    EXPECT_TRUE(slots().SlotBVolume->isReadOnly());
    setErase(true);
    typeName(slots().SlotBVolume, "TYPED");
    EXPECT_EQ(slots().SlotB(), "TYPED");
    setErase(false);
    EXPECT_EQ(slots().SlotB(), "COPY1");
    EXPECT_TRUE(slots().SlotBVolume->isReadOnly());
}

TEST_F(MonitoringTest, EraseOnComparesWithCapacityInsteadOfFreeSpace)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["content"] = Json::array({{{"path", "old"}, {"bytes", 600'000}}});
    startWithSelection(500'000);
    EXPECT_TRUE(slots().isOverSize_SlotB());
    EXPECT_FALSE(slots().isOverSize_SlotC());
    setErase(true);
    EXPECT_FALSE(slots().isOverSize_SlotB());
    setErase(false);
    EXPECT_TRUE(slots().isOverSize_SlotB());
}

TEST_F(MonitoringTest, SelectionOfExactlyTheBoundFits)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["capacity"] = 512'000;
    bay(1)["volumes"][0].erase("content");
    startWithSelection(506'880); // 0.99 of 512,000
    setErase(true);
    EXPECT_FALSE(slots().isOverSize_SlotB());
}

TEST_F(MonitoringTest, SelectionOneByteOverTheBoundDoesNotFit)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["capacity"] = 512'000;
    bay(1)["volumes"][0].erase("content");
    startWithSelection(506'881);
    setErase(true);
    EXPECT_TRUE(slots().isOverSize_SlotB());
}

TEST_F(MonitoringTest, SelectionOfExactlyTheFreeSpaceFits)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["capacity"] = 512'000;
    bay(1)["volumes"][0].erase("content");
    startWithSelection(512'000);
    EXPECT_FALSE(slots().isOverSize_SlotB());
}

TEST_F(MonitoringTest, DiskWithoutVolumesKeepsItsColour)
{
    startWithEnclosure();
    slots().setTextColor("Slot-D", SystemColor::red());
    window().setTargetDiskInfoColor();
    pass(std::chrono::milliseconds(10));
    EXPECT_TRUE(slots().isOverSize_SlotD());
}

TEST_F(MonitoringTest, RescanWhileAnotherEnclosureTookThePlaceColoursNothing)
{
    startWithEnclosure();
    slots().setTextColor("Slot-B", SystemColor::red());
    window().ScanDevice().resetArray("TBBay4");
    window().setTargetDiskInfoColor();
    pass(std::chrono::milliseconds(10));
    EXPECT_TRUE(slots().isOverSize_SlotB());
}

} // namespace orvana
