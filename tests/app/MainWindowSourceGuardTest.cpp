// Between the click on Start and the first erased disk: the source, and what became of it.

#include "app/StartFixture.h"

#include "foundation/NotificationNames.h"

namespace orvana
{

TEST_F(StartTest, SourceThatIsUnmountedRightBeforeStartIsNotErased)
{
    putTwoVolumesInBayA();
    startWithSource("Two");
    move("unmount", "Two");
    m_queue.advance(std::chrono::milliseconds(150)); // the machine has changed, the window has not rescanned
    pressStart();
    answerEverySheet();
    expectBayAIsWhole();
    EXPECT_TRUE(tools().empty()) << "nothing is erased for a source that is gone";
}

TEST_F(StartTest, SourceThatIsUnmountedInMidRunIsNotErasedByTheNextRun)
{
    startSlowCopyOfTwo();
    move("unmount", "Two");
    untilSheet("File Copy Completed");
    pressSheet("Done");
    setErase(true);
    pressStart();
    EXPECT_EQ(sheetMessage(), "Warning");
    answerEverySheet();
    expectBayAIsWhole();
    EXPECT_TRUE(tools().empty());
}

TEST_F(StartTest, SourceChosenAgainAfterANameWasTypedForItsBayIsNotErased)
{
    startWithEnclosure();
    m_bayA = window().ScanDevice().tbArray()[0]->hddArray()[0]->devPath().value();
    setErase(true);
    chooseSource("STICK");
    typeName(slots().SlotAVolume, "NEW");
    chooseSource("Master");
    move("unmount", "Master");
    m_queue.advance(std::chrono::milliseconds(150));
    pressStart();
    answerEverySheet();
    EXPECT_TRUE(tools().empty());
}

TEST_F(StartTest, SourceRenamedInMidRunIsNotEjectedWithTheDestinations)
{
    startSlowCopyOfTwo();
    move("rename", "Two", "Other");
    untilSheet("File Copy Completed");
    pressSheet("Done");
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    pass(std::chrono::seconds(2));
    EXPECT_FALSE(isMounted("COPY1"));
    for (const auto &tool : tools())
        EXPECT_NE(tool.back(), m_bayA);
    EXPECT_TRUE(isMounted("One"));
}

TEST_F(StartTest, LinkInATickedFolderProtectsTheDiskThatItLeadsTo)
{
    startWithEnclosure();
    m_tree.link("machine.json.volumes/Volumes/Master/Footage/elsewhere",
                m_tree.path("machine.json.volumes/Volumes/COPY1"));
    chooseSource("Master");
    untick("Read me.txt"); // the folder is a ticked item of its own now
    setErase(true);
    pressStart();
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_EQ(sheetText(), "Slot-B (COPY1): it carries the source");
    answerEverySheet();
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(StartTest, DiskWithTheSourcesSerialNumberAndSizeIsNotErased)
{
    bay(1)["serial"] = "SA";
    for (const std::size_t other : {2U, 3U})
        bay(other)["size"] = 2000000;
    startWithEnclosure();
    setErase(true);
    pressStart();
    EXPECT_EQ(sheetText(), "Slot-B (COPY1): it cannot be told from a disk of the source");
    answerEverySheet();
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(StartTest, SourceWithoutASerialNumberProtectsEveryDiskOfItsSize)
{
    m_machine["usbDisks"][0]["size"] = 1000000;
    startWithEnclosure();
    chooseSource("STICK");
    setErase(true);
    pressStart();
    answerEverySheet();
    EXPECT_TRUE(tools().empty());
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(StartTest, EraseForASourceThatIsGoneIsRefused)
{
    startWithSource("STICK");
    move("unmount", "STICK");
    m_queue.advance(std::chrono::milliseconds(150));
    pressStart();
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_NE(sheetText().find("The source is not there any more"), std::string::npos) << sheetText();
    pressSheet("OK");
    EXPECT_TRUE(nothingHappened());
}

TEST_F(StartTest, CopyFromASourceThatIsGoneIsRefusedToo)
{
    bay(3)["attached"] = false;
    startWithEnclosure();
    chooseSource("STICK");
    setErase(false);
    move("detach", "usb/1");
    m_queue.advance(std::chrono::milliseconds(150));
    pressStart();
    EXPECT_EQ(sheetMessage(), "Warning");
    pressSheet("OK");
    EXPECT_TRUE(nothingHappened());
}

TEST_F(StartTest, SourceThatIsLostDuringTheEraseIsNotSaidToHaveLeftAllUntouched)
{
    startWithSource("STICK");
    bool isPulled = false;
    const auto pull = m_center.subscribe(notification::DiskMessage, [&](const auto &) {
        if (!std::exchange(isPulled, true))
            move("detach", "usb/1");
    });
    pressStart();
    pressSheet("Erase");
    until([this] { return sheetMessage() == "Warning"; });
    EXPECT_EQ(sheetText().find("Nothing was touched"), std::string::npos) << sheetText();
    EXPECT_NE(sheetText().find("Nothing was copied; the report says which disks were erased."),
              std::string::npos)
        << sheetText();
}

} // namespace orvana
