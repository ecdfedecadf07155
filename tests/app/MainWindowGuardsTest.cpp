#include "app/WindowFixture.h"

#include "foundation/NotificationNames.h"
#include "ui/SystemColor.h"

#include <algorithm>
#include <thread>

namespace orvana
{

namespace
{

/// The things that must not happen, whatever the user chose and whichever disks came or went meanwhile.
class GuardsTest : public WindowTest
{
protected:
    bool wasErased(const std::string &name) const
    {
        return std::any_of(tools().begin(), tools().end(),
                           [&](const Files &tool) { return tool[0] == "eraseDisk" && tool[2] == name; });
    }

    bool wasAnythingErased() const { return !tools().empty(); }

    /// Cancels a run whose worker goes on reading until `endTheReading`.
    void cancelARunThatReads()
    {
        bay(3)["attached"] = false;
        bay(0)["volumes"][0]["faults"] = {{"delayMilliseconds", 60'000}};
        startWithEnclosure();
        pressStart();
        ASSERT_TRUE(window().isBusy());
        // A worker that is cancelled before its first read ends at once.
        until([this] { return isWaitingFor("Master"); });
        pressStart();
    }

    void endTheReading()
    {
        bay(0)["volumes"][0].erase("faults");
        m_tree.file("machine.json", m_machine.dump());
        pass(std::chrono::seconds(1)); // the machine looks at its file
    }

    void makeSourceSlow()
    {
        auto &volume = bay(0)["volumes"][0];
        volume["content"] = Json::array({{{"path", "Music"}, {"bytes", 200'000}, {"files", 200}}});
        volume["faults"] = {{"delayMilliseconds", 20}};
    }
};

} // namespace

TEST_F(GuardsTest, PickerBackOnItsPlaceholderErasesCopiesAndEjectsNothing)
{
    startWithEnclosure();
    setErase(true);
    window().myTBDeviceViewController().tbDevicePopup->setCurrentIndex(0);
    window().EjectTargetDisks();
    window().EjectSourceDisk();
    pressStart();
    pass(std::chrono::seconds(5));
    EXPECT_FALSE(wasAnythingErased());
    EXPECT_FALSE(window().isBusy());
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(GuardsTest, DiskThatIsNoLongerTheOneThatWasShownIsNotErased)
{
    startWithEnclosure();
    // Start is faster than the rescan, which comes half a second after the change.
    move("detach", "1/B");
    pass(std::chrono::milliseconds(210));
    move("attach", "1/B");
    pass(std::chrono::milliseconds(210));
    ASSERT_EQ(window().layoutState(), 1);
    pressStart();
    untilSheet("Warning");
    pressSheet("OK");
    pressSheet("Erase");
    until([this] { return !actions().isErasing(); });
    EXPECT_FALSE(wasErased("COPY1"));
    EXPECT_TRUE(wasErased("COPY2"));
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(GuardsTest, DiskPluggedInDuringAnEraseIsNotWrittenTo)
{
    startWithEnclosure();
    actions().setIsDuplicating(true);
    move("detach", "1/C");
    pass(std::chrono::seconds(5));
    actions().setIsDuplicating(false);
    window().setTargetDiskInfo();
    m_beforeTool = [this, plugged = false](const Files &) mutable {
        if (!std::exchange(plugged, true))
            move("attach", "1/C");
    };
    startErase();
    until([this] { return !actions().isErasing() && !window().isBusy(); });
    EXPECT_EQ(filesOn("COPY2"), Files{"old2"});
}

TEST_F(GuardsTest, ChoicesAreLockedUntilTheEraseIsDone)
{
    startWithEnclosure();
    startErase();
    EXPECT_FALSE(window().myTBDeviceViewController().tbDevicePopup->isEnabled());
    EXPECT_FALSE(actions().EraseDiskCheckBox->isEnabled());
    EXPECT_FALSE(files().sourceFileListView->isEnabled());
    untilSheet("File Copy Completed");
    EXPECT_TRUE(window().myTBDeviceViewController().tbDevicePopup->isEnabled());
    EXPECT_TRUE(actions().EraseDiskCheckBox->isEnabled());
    EXPECT_TRUE(files().sourceFileListView->isEnabled());
}

TEST_F(GuardsTest, MountJustBeforeStartDoesNotDisturbTheRun)
{
    bay(3)["attached"] = false;
    makeSourceSlow();
    startWithEnclosure();
    m_volumeCenter.post(notification::DidMount);
    pressStart();
    pass(std::chrono::seconds(1));
    EXPECT_EQ(window().layoutState(), 2);
    EXPECT_EQ(title(), "Cancel");
    pressStart();
    until([this] { return !window().isBusy(); });
}

TEST_F(GuardsTest, QuestionThatStoodThroughARescanStartsNothing)
{
    bay(3)["attached"] = false;
    startWithEnclosure();
    slots().setTextColor("Slot-C", SystemColor::red());
    pressStart();
    move("unmount", "STICK");
    until([this] { return window().layoutState() == 0; });
    pressSheet("OK");
    EXPECT_FALSE(actions().isDuplicating());
    EXPECT_FALSE(hasLog());
    EXPECT_EQ(title(), "Start");
}

TEST_F(GuardsTest, EjectThatWaitedIsDroppedWhenANewRunBegan)
{
    cancelARunThatReads();
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    pressStart();
    endTheReading();
    pass(std::chrono::seconds(2));
    pressStart();
    until([this] { return !window().isBusy(); });
    pass(std::chrono::seconds(2)); // time for an eject that still waits
    EXPECT_TRUE(tools().empty());
    EXPECT_TRUE(isMounted("COPY1"));
}

TEST_F(GuardsTest, RaidSetThatCameWhileAQuestionStoodRefusesTheStart)
{
    bay(2)["volumes"][0]["capacity"] = 1000;
    bay(3) = {{"bay", "D"}, {"size", 1000}, {"raid", true}, {"attached", false}};
    startWithEnclosure();
    setErase(false);
    pressStart();
    untilSheet("Insufficient Disk Space");
    actions().setIsDuplicating(true); // so that the window does not react to the change in the bay
    move("attach", "1/D");
    pass(std::chrono::seconds(1));
    actions().setIsDuplicating(false);
    ASSERT_EQ(window().layoutState(), 1);
    pressSheet("OK");
    EXPECT_EQ(sheetText(), "This device cannot be selected, because it includes a RAID set.");
    EXPECT_FALSE(hasLog());
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(GuardsTest, EraseThatWaitsInVainForACancelledRunIsToldAndErasesNothing)
{
    cancelARunThatReads();
    setErase(true);
    pressStart();
    pressSheet("Erase");
    ASSERT_TRUE(actions().isErasing());
    const auto letLooksPass = [this](int count) {
        for (int i = 0; i < count; ++i)
            pass(std::chrono::milliseconds(100));
    };
    letLooksPass(90);
    EXPECT_TRUE(actions().isErasing());
    letLooksPass(15);
    EXPECT_EQ(sheetText(), "A disk of the run before does not answer. Nothing was erased.");
    EXPECT_FALSE(wasAnythingErased());
    EXPECT_FALSE(actions().isErasing());
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
    endTheReading();
}

TEST_F(GuardsTest, EraseWaitsForTheLastBlockOfACancelledRun)
{
    cancelARunThatReads();
    setErase(true);
    pressStart();
    pressSheet("Erase");
    pass(std::chrono::seconds(1)); // in the window's time; almost no real time
    EXPECT_FALSE(wasAnythingErased());
    endTheReading();
    // The cancelled run writes its report when its worker ends. Meanwhile the window's time stands still.
    const auto isReported = [this] {
        const auto names = test::treeOf(m_tree.path("logs"));
        return std::any_of(names.begin(), names.end(),
                           [](const auto &name) { return name.ends_with("-Report.json"); });
    };
    for (int i = 0; i < 3000 && !isReported(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    ASSERT_TRUE(isReported());
    until([this] { return wasErased("COPY1"); });
}

TEST_F(GuardsTest, EjectThatWaitsTakesTheDiskOfTheClick)
{
    bay(3)["attached"] = false;
    makeSourceSlow();
    startWithEnclosure();
    pressStart();
    until([this] { return filesOn("COPY1").size() > 1; });
    pressStart(); // cancel
    QMetaObject::invokeMethod(slots().EjectSourceDiskBtn, "click");
    if (isMounted("Master"))
        chooseSource("STICK");
    until([this] { return !isMounted("Master"); });
    EXPECT_TRUE(isMounted("STICK"));
}

TEST_F(GuardsTest, ChoosingTheEnclosureAgainDuringARunKeepsCancelAndTheBars)
{
    bay(3)["attached"] = false;
    makeSourceSlow();
    startWithEnclosure();
    pressStart();
    until([this] { return filesOn("COPY1").size() > 1; });
    chooseEnclosure(1);
    EXPECT_EQ(window().layoutState(), 2);
    EXPECT_TRUE(actions().StartBtn->isEnabled());
    EXPECT_FALSE(slots().EjectTargetDiskBtn->isEnabled());
    pressStart();
    until([this] { return !window().isBusy(); });
    EXPECT_NE(log().find("User Cancel\n"), std::string::npos);
}

TEST_F(GuardsTest, StartUpDiskInABayIsNeverErased)
{
    m_machine["internalDisks"] = Json::array();
    bay(1)["volumes"][0]["startup"] = true;
    startWithEnclosure();
    setErase(true);
    pressStart();
    pass(std::chrono::seconds(5));
    EXPECT_FALSE(wasAnythingErased());
    EXPECT_FALSE(window().isBusy());
}

} // namespace orvana
