#include "app/WindowFixture.h"

#include "ui/SystemColor.h"

namespace orvana
{

namespace
{

class DisksTest : public WindowTest
{
protected:
    void untilCompleted() { untilSheet("File Copy Completed"); }
};

} // namespace

TEST_F(DisksTest, TypicalRunWithEraseNamesTheBlankDiskUntitled)
{
    startWithEnclosure();
    startErase();
    EXPECT_FALSE(actions().StartBtn->isEnabled()) << "an erase cannot be cancelled";
    EXPECT_TRUE(actions().isErasing());
    EXPECT_EQ(window().totalProgress->kind(), ProgressIndicator::Kind::Indeterminate);
    EXPECT_FALSE(window().messageText->text().isEmpty()) << "the window says so before it blocks";
    untilCompleted();
    ASSERT_EQ(tools().size(), 3U);
    EXPECT_EQ(tools()[0][0], "eraseDisk");
    EXPECT_EQ(tools()[0][1], "JHFS+");
    EXPECT_EQ(tools()[0][2], "COPY1");
    EXPECT_EQ(tools()[2][2], "Untitled");
    EXPECT_EQ(filesOn("COPY1").size(), 4U) << "what was there is gone";
    EXPECT_EQ(filesOn("Untitled").size(), 4U);
    EXPECT_EQ(slots().SlotD(), "Untitled");
    EXPECT_EQ(filesOn("Master").size(), 4U) << "the source keeps everything";
}

TEST_F(DisksTest, TypedNamesAreTheNewNames)
{
    startWithEnclosure();
    typeName(slots().SlotBVolume, "SHOW-B");
    startErase();
    untilCompleted();
    EXPECT_EQ(filesOn("SHOW-B").size(), 4U);
    EXPECT_FALSE(isMounted("COPY1"));
}

TEST_F(DisksTest, RefusedNameIsToldBeforeAnythingIsTouched)
{
    startWithEnclosure();
    typeName(slots().SlotBVolume, "a name that is far too long for the format");
    pressStart();
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_NE(sheetText().find("Slot-B"), std::string::npos);
    pressSheet("OK");
    pass(std::chrono::seconds(1));
    EXPECT_TRUE(tools().empty());
    EXPECT_FALSE(hasLog());
    EXPECT_EQ(title(), "Start");
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(DisksTest, WithBayAAsSourceItsDiskIsNeitherErasedNorEjectedWithTheDestinations)
{
    startWithEnclosure();
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    for (const auto &tool : tools())
        EXPECT_NE(tool.back(), window().ScanDevice().tbArray().front()->hddArray().front()->devPath());
    EXPECT_TRUE(isMounted("Master"));
    EXPECT_FALSE(isMounted("COPY1"));
    EXPECT_FALSE(isMounted("COPY2"));
    EXPECT_TRUE(slots().EjectTargetDiskBtn->isEnabled());
    EXPECT_TRUE(actions().StartBtn->isEnabled());
}

TEST_F(DisksTest, StartCanBePressedAgainAfterAnEraseAndAfterAnEject)
{
    startWithEnclosure();
    startErase();
    EXPECT_FALSE(actions().StartBtn->isEnabled());
    until([this] { return !actions().isErasing(); });
    EXPECT_TRUE(actions().StartBtn->isEnabled()) << "it is Cancel while the copy goes on";
    EXPECT_EQ(title(), "Cancel");
    untilCompleted();
    pressSheet("Done");
    EXPECT_TRUE(actions().StartBtn->isEnabled());
    for (auto *eject : {slots().EjectTargetDiskBtn, slots().EjectSourceDiskBtn}) {
        actions().StartBtn->setEnabled(false);
        QMetaObject::invokeMethod(eject, "click");
        EXPECT_TRUE(actions().StartBtn->isEnabled());
    }
}

TEST_F(DisksTest, VolumeThatIsUnmountedBetweenTheLastScanAndTheCopyIsNoDestination)
{
    startWithEnclosure();
    bool isErased = false;
    m_beforeTool = [&](const Files &) { isErased = true; };
    m_afterListing = [&] {
        if (isErased && isMounted("COPY2"))
            move("unmount", "COPY2");
    };
    startErase();
    untilSheet("Warning");
    EXPECT_EQ(sheetText(), "Slot-C (COPY2): its volume is not mounted");
    pressSheet("OK");
    untilCompleted();
    EXPECT_EQ(filesOn("COPY1").size(), 4U);
    EXPECT_EQ(report()["destinations"].size(), 2U);
}

TEST_F(DisksTest, SourceIsEjectedAloneAndTheColoursStay)
{
    startWithEnclosure();
    slots().setTextColor("Slot-B", SystemColor::red());
    QMetaObject::invokeMethod(slots().EjectSourceDiskBtn, "click");
    EXPECT_FALSE(isMounted("Master"));
    EXPECT_TRUE(isMounted("COPY1"));
    EXPECT_TRUE(slots().isOverSize_SlotB());
}

TEST_F(DisksTest, EjectOfDestinationsMakesTheBaysBlackAgain)
{
    startWithEnclosure();
    slots().setTextColor("Slot-B", SystemColor::red());
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    EXPECT_FALSE(slots().isOverSize_SlotB());
}

TEST_F(DisksTest, SourceOutsideTheEnclosureIsEjected)
{
    startWithEnclosure();
    chooseSource("STICK");
    QMetaObject::invokeMethod(slots().EjectSourceDiskBtn, "click");
    EXPECT_FALSE(isMounted("STICK"));
    EXPECT_TRUE(isMounted("Master"));
}

TEST_F(DisksTest, HomeFolderCannotBeEjectedAfterTheDestinationsWereEither)
{
    bay(0)["attached"] = false;
    startWithEnclosure();
    ASSERT_EQ(slots().Source(), "anna");
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    EXPECT_FALSE(isMounted("COPY1"));
    EXPECT_TRUE(slots().EjectTargetDiskBtn->isEnabled());
    EXPECT_FALSE(slots().EjectSourceDiskBtn->isEnabled());
}

TEST_F(DisksTest, NothingToEjectGivesTheButtonsBack)
{
    bay(1)["attached"] = false;
    bay(2)["attached"] = false;
    startWithEnclosure();
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    EXPECT_TRUE(tools().empty());
    EXPECT_TRUE(slots().EjectTargetDiskBtn->isEnabled());
    EXPECT_TRUE(slots().EjectSourceDiskBtn->isEnabled());
}

TEST_F(DisksTest, EjectRightAfterCancelWaitsForTheLastBlock)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 40}};
    startWithEnclosure();
    pressStart();
    until([this] { return !filesOn("COPY1").empty(); });
    pressStart();
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    m_beforeTool = [this](const Files &) { EXPECT_FALSE(window().isBusy()); };
    until([this] { return !isMounted("COPY1"); });
    EXPECT_FALSE(tools().empty());
}

namespace
{

/// A disk of three volumes in bay A, one of which is the source.
class SharedSourceDisk : public DisksTest, public testing::WithParamInterface<const char *>
{
};

} // namespace

TEST_P(SharedSourceDisk, KeepsEveryByteWhicheverOfItsVolumesIsTheSource)
{
    bay(0)["volumes"] = Json::array();
    for (const char *name : {"One", "Two", "Three"})
        bay(0)["volumes"].push_back(
            {{"name", name}, {"capacity", 300000}, {"content", {{{"path", "file"}, {"bytes", 100}}}}});
    startWithEnclosure();
    chooseSource(GetParam());
    setErase(true);
    pressStart();
    until([this] { return !sheetMessage().empty(); });
    if (sheetMessage() == "Warning")
        pressSheet("OK");
    pressSheet("Erase");
    untilCompleted();
    for (const char *name : {"One", "Two", "Three"})
        EXPECT_EQ(filesOn(name), Files{"file"});
    for (const auto &tool : tools())
        EXPECT_NE(tool.back(), window().ScanDevice().tbArray().front()->hddArray().front()->devPath());
    EXPECT_EQ(filesOn("COPY1"), Files{"file"});
}

INSTANTIATE_TEST_SUITE_P(Volumes, SharedSourceDisk, testing::Values("One", "Two", "Three"));

TEST_F(DisksTest, SourceInAnotherBayIsToldAndTheRestGoesOn)
{
    // The user's USB disk is chosen, and one of its namesakes sits in bay C.
    bay(2)["volumes"][0]["name"] = "anna";
    startWithEnclosure();
    chooseSource("anna");
    setErase(true);
    pressStart();
    untilSheet("Warning");
    EXPECT_NE(sheetText().find("Slot-C"), std::string::npos);
    pressSheet("OK");
    pressSheet("Erase");
    untilCompleted();
    for (const auto &tool : tools())
        EXPECT_NE(tool[2], "anna");
    EXPECT_EQ(filesOn("anna"), Files{"old2"});
}

TEST_F(DisksTest, FailedEraseIsInTheReportAndOpensIt)
{
    m_machine["failing"] = Json::array({"eraseDisk C"});
    startWithEnclosure();
    startErase();
    untilSheet("Warning");
    EXPECT_EQ(sheetText(), "Slot-C (COPY2): its erase did not succeed");
    pressSheet("OK");
    untilCompleted();
    EXPECT_EQ(filesOn("COPY2"), Files{"old2"});
    EXPECT_EQ(reportWindows(), 1);
    int failed = 0;
    const auto account = report();
    for (const auto &disk : account["disks"])
        failed += disk["outcome"] == "eraseFailed" ? 1 : 0;
    EXPECT_EQ(failed, 1);
}

TEST_F(DisksTest, EnclosurePulledDuringAnEraseEndsWithAWarning)
{
    startWithEnclosure();
    m_beforeTool = [this, pulled = false](const Files &) mutable {
        if (!std::exchange(pulled, true))
            move("detach", "1");
    };
    startErase();
    untilSheet("Warning");
    EXPECT_FALSE(actions().isErasing());
    EXPECT_FALSE(window().isBusy());
    EXPECT_EQ(title(), "Start");
}

TEST_F(DisksTest, EnclosureWithoutDisksStillFinishesTheErase)
{
    for (std::size_t i = 0; i < 4; ++i)
        bay(i)["attached"] = false;
    startWithEnclosure();
    setErase(true);
    pressStart();
    until([this] { return !actions().isErasing(); });
    EXPECT_TRUE(tools().empty());
    EXPECT_EQ(reportWindows(), 1) << "there is no destination";
}

TEST_F(DisksTest, WhatIsInBaysAndNotMountedIsMounted)
{
    bay(1)["volumes"][0]["mounted"] = false;
    bay(2)["volumes"][0]["mounted"] = false;
    startWithEnclosure();
    ASSERT_TRUE(window().mayMountDisks());
    window().mountDisks();
    EXPECT_TRUE(isMounted("COPY1"));
    EXPECT_TRUE(isMounted("COPY2"));
    ASSERT_EQ(tools().size(), 2U);
    EXPECT_EQ(tools()[0][0], "mountDisk");
    EXPECT_EQ(sheetMessage(), "");
    until([this] { return window().layoutState() == 0; }); // the mount sets off a rescan
    chooseEnclosure(1);
    EXPECT_EQ(slots().SlotB(), "COPY1");
}

TEST_F(DisksTest, NothingToMountIsTold)
{
    startWithEnclosure();
    window().mountDisks();
    EXPECT_EQ(sheetMessage(), "Nothing to mount");
    EXPECT_EQ(sheetText(), "No disk in a bay has a volume that is not mounted.");
    EXPECT_TRUE(tools().empty());
}

TEST_F(DisksTest, FailedMountIsToldAndTheOthersAreMounted)
{
    bay(1)["volumes"][0]["mounted"] = false;
    bay(2)["volumes"][0]["mounted"] = false;
    m_machine["failing"] = Json::array({"mountDisk B"});
    startWithEnclosure();
    window().mountDisks();
    EXPECT_FALSE(isMounted("COPY1"));
    EXPECT_TRUE(isMounted("COPY2"));
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_EQ(sheetText(), "MB, serial number SB, was not mounted: Error: the disk could not be mounted");
}

TEST_F(DisksTest, EachFailedMountHasItsOwnLine)
{
    bay(1)["volumes"][0]["mounted"] = false;
    bay(2)["volumes"][0]["mounted"] = false;
    m_machine["failing"] = Json::array({"mountDisk"});
    startWithEnclosure();
    window().mountDisks();
    const auto text = sheetText();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
}

TEST_F(DisksTest, NothingIsMountedWithoutAnEnclosureOrDuringARun)
{
    bay(1)["volumes"][0]["mounted"] = false;
    bay(2)["volumes"][0]["faults"] = {{"delayMilliseconds", 40}};
    bay(3)["attached"] = false;
    start();
    EXPECT_FALSE(window().mayMountDisks());
    window().mountDisks();
    EXPECT_TRUE(tools().empty());
    chooseEnclosure(1);
    untilCounted();
    pressStart();
    until([this] { return window().isBusy(); });
    EXPECT_FALSE(window().mayMountDisks());
    window().mountDisks();
    EXPECT_TRUE(tools().empty());
    EXPECT_FALSE(isMounted("COPY1"));
}

} // namespace orvana
