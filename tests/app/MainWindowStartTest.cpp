// The steps between the click on Start and the first erased disk.

#include "app/StartFixture.h"

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

} // namespace

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
