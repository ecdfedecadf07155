// The steps between the click on Start and the first erased disk.

#include "app/WindowFixture.h"

#include "foundation/NotificationNames.h"
#include "ui/SystemColor.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest/QTest>

#include <future>
#include <utility>

namespace orvana
{

namespace
{

class StartTest : public WindowTest
{
protected:
    /// Two volumes on the disk in bay A.
    void putTwoVolumesInBayA()
    {
        bay(0)["volumes"] = Json::array();
        for (const char *name : {"One", "Two"})
            bay(0)["volumes"].push_back(
                {{"name", name}, {"capacity", 400000}, {"content", {{{"path", "film"}, {"bytes", 5000}}}}});
    }

    /// Expects that no command was run on the disk that was in bay A, and that bay A still has two volumes.
    void expectBayAIsWhole()
    {
        const auto machine = Json::parse(m_tree.read("machine.json"));
        const auto &disk = machine["enclosures"][0]["bays"][0];
        EXPECT_EQ(disk["volumes"].size(), 2U) << disk.dump();
        for (const auto &tool : tools())
            EXPECT_NE(tool.back(), m_bayA) << "a command was run on the source's disk";
    }

    void startWithSource(const std::string &title)
    {
        startWithEnclosure();
        chooseSource(title);
        setErase(true);
        m_bayA = window().ScanDevice().tbArray()[0]->hddArray()[0]->devPath().value();
    }

    void answerEverySheet()
    {
        for (int i = 0; i < 200; ++i) {
            pass(std::chrono::milliseconds(50));
            const auto message = sheetMessage();
            if (!message.empty())
                pressSheet(message == "Erase" ? "Erase" : message == "File Copy Completed" ? "Done" : "OK");
            if (!window().isBusy() && message.empty() && i > 40)
                return;
        }
    }

    /// Holds a count until `letGo` is called.
    class HeldCount
    {
    public:
        explicit HeldCount(NotificationCenter &center)
            : m_subscription(center.subscribe(notification::FileSizeChange,
                                              [go = m_go.get_future().share()](const auto &) { go.wait(); }))
        {
        }
        void letGo() const { m_go.set_value(); }

    private:
        mutable std::promise<void> m_go;
        NotificationCenter::Subscription m_subscription;
    };

    bool nothingHappened() const { return tools().empty() && !hasLog() && title() == "Start"; }

    std::string m_bayA;
};

} // namespace

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
    putTwoVolumesInBayA();
    bay(3)["attached"] = false; // a blank disk switches erase on again
    bay(0)["volumes"][1]["faults"] = {{"delayMilliseconds", 20}};
    startWithEnclosure();
    chooseSource("Two");
    setErase(false);
    m_bayA = window().ScanDevice().tbArray()[0]->hddArray()[0]->devPath().value();
    pressStart();
    pressSheet("OK"); // the source's disk takes no part
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
    putTwoVolumesInBayA();
    bay(3)["attached"] = false; // a blank disk switches erase on again
    bay(0)["volumes"][1]["faults"] = {{"delayMilliseconds", 20}};
    startWithEnclosure();
    chooseSource("Two");
    setErase(false);
    m_bayA = window().ScanDevice().tbArray()[0]->hddArray()[0]->devPath().value();
    pressStart();
    pressSheet("OK");
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

TEST_F(StartTest, NothingTickedErasesNothing)
{
    startWithEnclosure();
    setErase(true);
    auto *view = files().sourceFileListView;
    view->setCurrentIndex(view->model()->index(0, 0));
    QTest::keyClick(view, Qt::Key_Space);
    untilCounted();
    pressStart();
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_EQ(sheetText(), "Nothing is selected to be copied, so no disk is erased.");
    pressSheet("OK");
    EXPECT_TRUE(nothingHappened());
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(StartTest, BayThatIsTooSmallIsNotErased)
{
    bay(1)["volumes"][0]["capacity"] = 1000;
    startWithEnclosure();
    setErase(true);
    pressStart();
    untilSheet("Insufficient Disk Space");
    pressSheet("OK");
    untilSheet("Erase");
    EXPECT_EQ(sheetText().find("Slot-B"), std::string::npos);
    pressSheet("Erase");
    untilSheet("File Copy Completed");
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
    EXPECT_EQ(tools().size(), 2U);
}

TEST_F(StartTest, QuestionBeforeAnEraseNamesEachDiskAndWhatItHolds)
{
    startWithEnclosure(); // the blank disk in bay D has switched erase on
    pressStart();
    ASSERT_EQ(sheetMessage(), "Erase");
    for (const char *line : {"Slot-B: MB, serial number SB, now COPY1, holds 1 file, will be COPY1",
                             "Slot-C: MC, serial number SC, now COPY2, holds 1 file, will be COPY2",
                             "Slot-D: MD, serial number SD, holds nothing, will be Untitled"})
        EXPECT_NE(sheetText().find(line), std::string::npos) << sheetText();
    EXPECT_EQ(window().sheets().current()->defaultButton()->text(), QStringLiteral("Cancel"));
}

TEST_F(StartTest, CancelledQuestionLeavesNoTrace)
{
    startWithEnclosure();
    pressStart();
    pressSheet("Cancel");
    pass(std::chrono::seconds(2));
    EXPECT_TRUE(nothingHappened());
    EXPECT_EQ(window().layoutState(), 1);
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
    pressStart();
    EXPECT_EQ(sheetMessage(), "Erase") << "and it can be asked again";
}

TEST_F(StartTest, EscapeOnTheQuestionIsCancel)
{
    startWithEnclosure();
    pressStart();
    QTest::keyClick(window().sheets().current(), Qt::Key_Escape);
    pass(std::chrono::seconds(2));
    EXPECT_TRUE(nothingHappened());
}

TEST_F(StartTest, BlankDisksAreErasedWithoutAQuestion)
{
    for (const std::size_t index : {1U, 2U})
        bay(index)["volumes"][0].erase("content");
    startWithEnclosure();
    pressStart();
    untilSheet("File Copy Completed");
    EXPECT_EQ(tools().size(), 3U);
}

TEST_F(StartTest, LostAndFoundAloneIsBlank)
{
    for (const std::size_t index : {1U, 2U})
        bay(index)["volumes"][0].erase("content");
    startWithEnclosure();
    m_tree.folder("machine.json.volumes/Volumes/COPY1/lost+found");
    pressStart();
    untilSheet("File Copy Completed");
}

TEST_F(StartTest, VolumeThatIsNotMountedCountsAsHoldingSomething)
{
    for (const std::size_t index : {1U, 2U})
        bay(index)["volumes"][0].erase("content");
    bay(1)["volumes"].push_back({{"name", "Hidden"}, {"capacity", 1000}, {"mounted", false}});
    startWithEnclosure();
    pressStart();
    ASSERT_EQ(sheetMessage(), "Erase");
    EXPECT_NE(sheetText().find("COPY1, holds something that is not mounted"), std::string::npos)
        << sheetText();
}

TEST_F(StartTest, DiskThatFilledUpWhileTheQuestionStoodIsAskedAboutAgain)
{
    bay(2)["volumes"][0].erase("content");
    startWithEnclosure();
    pressStart();
    ASSERT_NE(sheetText().find("COPY2, holds nothing"), std::string::npos) << sheetText();
    m_tree.file("machine.json.volumes/Volumes/COPY2/new", "precious");
    pressSheet("Erase");
    ASSERT_EQ(sheetMessage(), "Erase");
    EXPECT_NE(sheetText().find("COPY2, holds 1 file"), std::string::npos) << sheetText();
    pressSheet("Cancel");
    EXPECT_TRUE(tools().empty());
}

TEST_F(StartTest, DiskThatWasSwappedWhileTheQuestionStoodIsNotErased)
{
    startWithEnclosure();
    pressStart();
    ASSERT_EQ(sheetMessage(), "Erase");
    move("detach", "1/B");
    m_queue.advance(std::chrono::milliseconds(150));
    move("attach", "1/B");
    m_queue.advance(std::chrono::milliseconds(150));
    pressSheet("Erase");
    EXPECT_EQ(sheetMessage(), "Warning");
    answerEverySheet();
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(StartTest, StartWaitsForTheCountBeforeItErases)
{
    startWithEnclosure();
    const HeldCount held(m_center);
    files().startCountThread();
    pressStart();
    EXPECT_EQ(sheetMessage(), "One moment");
    pass(std::chrono::seconds(3));
    EXPECT_TRUE(tools().empty());
    held.letGo();
    untilSheet("Erase");
    EXPECT_EQ(files().totalFiles(), 4);
}

TEST_F(StartTest, StartThatWaitsForTheCountCanBeCalledOff)
{
    startWithEnclosure();
    const HeldCount held(m_center);
    files().startCountThread();
    pressStart();
    pressSheet("Cancel");
    held.letGo();
    pass(std::chrono::seconds(3));
    EXPECT_EQ(sheetMessage(), "");
    EXPECT_TRUE(nothingHappened());
}

TEST_F(StartTest, VolumeMountedReadOnlyIsToldBeforeAnythingStarts)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["faults"] = {{"readOnly", 1}};
    startWithEnclosure();
    setErase(false);
    pressStart();
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_EQ(sheetText(), "Slot-B (COPY1): its volume is mounted read-only");
    pressSheet("OK");
    untilSheet("File Copy Completed");
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
    EXPECT_EQ(filesOn("COPY2").size(), 5U);
}

TEST_F(StartTest, VolumeMountedReadOnlyMayBeErased)
{
    bay(1)["volumes"][0]["faults"] = {{"readOnly", 1}};
    startWithEnclosure();
    startErase();
    untilSheet("File Copy Completed");
    EXPECT_EQ(tools().size(), 3U);
}

TEST_F(StartTest, RescanBetweenStartAndEraseDoesNotEndTheRun)
{
    startWithEnclosure();
    m_center.post(notification::TBDeviceAttached);
    pass(std::chrono::milliseconds(450));
    startErase();
    until([this] { return !window().isBusy(); });
    until([this] { return sheetMessage() == "File Copy Completed"; });
    EXPECT_EQ(filesOn("COPY1").size(), 4U);
    EXPECT_EQ(filesOn("Untitled").size(), 4U);
}

TEST_F(StartTest, FailedEraseIsReportedAlsoWhenTheRunIsCancelled)
{
    m_machine["failing"] = Json::array({"eraseDisk C"});
    bay(0)["volumes"][0]["content"] = Json::array({{{"path", "Music"}, {"bytes", 200'000}, {"files", 200}}});
    bay(0)["volumes"][0]["faults"] = {{"delayMilliseconds", 20}};
    startWithEnclosure();
    startErase();
    until([this] { return actions().isDuplicating() && window().isBusy(); });
    while (sheetMessage() == "Warning")
        pressSheet("OK");
    pressStart(); // cancel
    EXPECT_EQ(reportWindows(), 1);
    until([this] { return !window().isBusy(); });
}

TEST_F(StartTest, QuitWhileAnEraseWaitsCallsItOff)
{
    startWithEnclosure();
    startErase();
    ASSERT_TRUE(actions().isErasing());
    window().endNow();
    pass(std::chrono::seconds(3));
    EXPECT_TRUE(tools().empty());
}

TEST_F(StartTest, NameOfADiskIsNeverMarkup)
{
    bay(1)["volumes"][0]["name"] = "<b>bold";
    startWithEnclosure();
    pressStart();
    ASSERT_EQ(sheetMessage(), "Erase");
    EXPECT_NE(sheetText().find("<b>bold"), std::string::npos);
    const auto *label =
        window().sheets().current()->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"));
    ASSERT_TRUE(label);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_F(StartTest, BayThatTookNoPartIsInTheSentenceOnTheRun)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["capacity"] = 1000;
    startWithEnclosure();
    pressStart();
    untilSheet("Insufficient Disk Space");
    pressSheet("OK");
    untilSheet("File Copy Completed");
    ASSERT_FALSE(notices().empty());
    EXPECT_EQ(notices().back().text,
              "The destination holds every file; Slot-B (COPY1) took no part: the selection "
              "does not fit.");
}

TEST_F(StartTest, DestinationThatIsNotEjectedIsTold)
{
    putTwoVolumesInBayA();
    bay(3)["attached"] = false;
    startWithEnclosure();
    chooseSource("Two");
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    EXPECT_EQ(sheetMessage(), "Warning");
    EXPECT_NE(sheetText().find("Slot-A (One): it carries the source"), std::string::npos) << sheetText();
}

TEST_F(StartTest, NoticeSaysWhichEjectedDisksCanBeTakenOut)
{
    m_machine["failing"] = Json::array({"eject C"});
    startWithEnclosure();
    QMetaObject::invokeMethod(slots().EjectTargetDiskBtn, "click");
    ASSERT_EQ(notices().size(), 1U);
    EXPECT_EQ(notices()[0].text, "These disks can be taken out: COPY1");
    EXPECT_NE(sheetText().find("COPY2 was not ejected: "), std::string::npos) << sheetText();
}

} // namespace orvana
