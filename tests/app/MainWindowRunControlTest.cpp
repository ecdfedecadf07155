#include "app/RunControlFixture.h"

#include "foundation/NotificationNames.h"
#include "ui/SystemColor.h"

#include <QCloseEvent>

#include <filesystem>
#include <fstream>
#include <mutex>
#include <vector>

namespace orvana
{

TEST_F(RunTest, TypicalRunCopiesToEveryBay)
{
    startWithEnclosure();
    pressStart();
    untilCompleted();
    EXPECT_EQ(filesOn("COPY1").size(), 5U);
    EXPECT_EQ(filesOn("COPY2").size(), 5U);
    EXPECT_EQ(title(), "Start");
    EXPECT_EQ(window().layoutState(), 1);
    EXPECT_FALSE(actions().isDuplicating());
    EXPECT_TRUE(slots().SourcePopup->isEnabled());
    EXPECT_EQ(reportWindows(), 0) << "nothing failed";
    pressSheet("Done");
    EXPECT_EQ(sheetMessage(), "");
    EXPECT_NE(log().find("Start Duplicating Files from "), std::string::npos);
    EXPECT_TRUE(log().ends_with("Finish !!!\n"));
}

TEST_F(RunTest, TotalProgressIsAFractionOfTheCountedFiles)
{
    startWithEnclosure();
    std::mutex mutex;
    std::vector<float> values;
    const auto heard = m_center.subscribe(notification::TotalProgress, [&](const Notification &notification) {
        const std::lock_guard lock(mutex); // the copy thread posts
        values.push_back(notification.number(notification::key::TotalProrgress));
    });
    pressStart();
    untilCompleted();
    EXPECT_EQ(values, (std::vector<float>{0.25F, 0.5F, 0.75F, 1.0F, 1.0F}));
}

TEST_F(RunTest, FreeSpaceIsReadAgainAtTheEnd)
{
    startWithEnclosure();
    const auto before = slots().AvailableOfSlotB->text();
    pressStart();
    untilCompleted();
    EXPECT_NE(slots().AvailableOfSlotB->text(), before);
}

TEST_F(RunTest, VerifiedRunSaysSoInTheReport)
{
    startWithEnclosure();
    setVerify(true);
    pressStart();
    untilCompleted();
    EXPECT_EQ(report()["destinations"][0]["verified"], 4);
    EXPECT_EQ(report()["destinations"][1]["mismatched"], 0);
}

TEST_F(RunTest, StartLooksLikeCancelAndTheWindowLikeARunWhileItGoesOn)
{
    makeSlow(1);
    startWithEnclosure();
    pressStart();
    EXPECT_EQ(title(), "Cancel");
    EXPECT_TRUE(actions().StartBtn->isEnabled());
    EXPECT_EQ(window().layoutState(), 2);
    EXPECT_FALSE(slots().EjectTargetDiskBtn->isEnabled());
    EXPECT_EQ(wakeHolds(), 1);
    untilCompleted();
    until([this] { return wakeHolds() == 0; });
}

TEST_F(RunTest, CancelEndsTheRunWithoutACompletion)
{
    makeSlow(1);
    startWithEnclosure();
    pressStart();
    until([this] { return !filesOn("COPY1").empty(); });
    pressStart();
    EXPECT_EQ(title(), "Start");
    EXPECT_EQ(window().layoutState(), 1);
    until([this] { return !window().isBusy(); });
    pass(std::chrono::seconds(1));
    EXPECT_EQ(sheetMessage(), "");
    EXPECT_NE(log().find("User Cancel\n"), std::string::npos);
    EXPECT_EQ(report()["outcome"], "cancelled");
}

TEST_F(RunTest, EndThatWasOnItsWayWhenTheUserCancelledShowsNoCompletion)
{
    makeSlow(1);
    startWithEnclosure();
    pressStart();
    m_center.post(notification::BackupFinish);
    pressStart();
    until([this] { return !window().isBusy(); });
    pass(std::chrono::seconds(1));
    EXPECT_EQ(sheetMessage(), "");
}

TEST_F(RunTest, OpenFoldersAreSpokenForByTheirRows)
{
    startWithEnclosure();
    untick("Read me.txt");
    pressStart();
    untilCompleted();
    EXPECT_EQ(filesOn("COPY1").size(), 4U);
    for (const auto &file : filesOn("COPY1"))
        EXPECT_NE(file, "Read me.txt");
}

TEST_F(RunTest, HomeFolderIsCopiedWhenItIsTheSource)
{
    startWithEnclosure();
    chooseSource("anna");
    pressStart();
    untilCompleted();
    EXPECT_EQ(filesOn("COPY1"), (Files{"Letters/Offer.txt", "old1"}));
    EXPECT_EQ(filesOn("Master").size(), 5U) << "bay A is a destination now";
}

TEST_F(RunTest, UsbDiskIsCopiedWhenItIsTheSource)
{
    startWithEnclosure();
    chooseSource("STICK");
    pressStart();
    untilCompleted();
    EXPECT_EQ(filesOn("COPY2"), (Files{"old2", "song.mp3"}));
}

TEST_F(RunTest, FailedFilesKeepTheTextAndOpenTheReport)
{
    bay(1)["volumes"][0]["faults"] = {{"writeErrorAfter", 1000}};
    startWithEnclosure();
    pressStart();
    untilCompleted();
    EXPECT_EQ(reportWindows(), 1);
    EXPECT_EQ(filesOn("COPY2").size(), 5U);
}

TEST_F(RunTest, NoDestinationLeftOpensTheReportAndStartsNothing)
{
    bay(1)["attached"] = false;
    bay(2)["attached"] = false;
    startWithEnclosure();
    pressStart();
    EXPECT_EQ(reportWindows(), 1);
    EXPECT_EQ(report()["note"], "no destination");
    EXPECT_FALSE(window().isBusy());
    EXPECT_EQ(title(), "Start");
    EXPECT_EQ(sheetMessage(), "");
}

TEST_F(RunTest, EnclosurePulledInMidRunEndsItWithAWarning)
{
    auto &stick = m_machine["usbDisks"][0]["volumes"][0];
    stick["content"] = Json::array({{{"path", "Music"}, {"bytes", 200'000}, {"files", 400}}});
    stick["faults"] = {{"delayMilliseconds", 20}};
    startWithEnclosure();
    chooseSource("STICK");
    pressStart();
    until([this] { return filesOn("COPY1").size() > 2; });
    move("detach", "1");
    untilSheet("Warning");
    EXPECT_EQ(window().layoutState(), 0);
    EXPECT_EQ(title(), "Start");
    until([this] { return !window().isBusy(); });
    EXPECT_EQ(report()["outcome"], "cancelled");
}

TEST_F(RunTest, EnclosurePulledWhileASheetIsOpenStartsNothing)
{
    startWithEnclosure();
    slots().setTextColor("Slot-C", SystemColor::red());
    pressStart();
    move("detach", "1");
    until([this] { return window().layoutState() == 0; });
    pressSheet("OK");
    pass(std::chrono::seconds(1));
    EXPECT_FALSE(window().isBusy());
}

TEST_F(RunTest, VolumeMountedInMidRunChangesNothing)
{
    makeSlow(1);
    startWithEnclosure();
    pressStart();
    move("unmount", "STICK");
    untilCompleted();
    EXPECT_EQ(window().layoutState(), 1);
}

TEST_F(RunTest, ClosingDuringARunAsksFirst)
{
    makeSlow(1);
    startWithEnclosure();
    pressStart();
    window().close();
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(sheetMessage(), "Warning");
    pressSheet("Go On");
    EXPECT_TRUE(window().isVisible());
    window().close();
    pressSheet("Quit");
    EXPECT_FALSE(window().isVisible());
    EXPECT_NE(log().find("User Cancel\n"), std::string::npos);
}

TEST_F(RunTest, ClosingWithoutARunDoesNotAsk)
{
    startWithEnclosure();
    actions().setIsDuplicating(true); // the flag alone is no run
    window().close();
    EXPECT_FALSE(window().isVisible());
}

TEST_F(RunTest, TwoHundredRunsInARowLeaveNothingBehind)
{
    for (const std::size_t copy : {1U, 2U}) // a file that is written again takes up space again
        bay(copy)["volumes"][0]["capacity"] = 900'000'000;
    startWithEnclosure();
    const auto kilobytes = [] {
        std::ifstream status("/proc/self/status");
        std::string word;
        while (status >> word && word != "VmRSS:") {
        }
        long size = 0;
        status >> size;
        return size;
    };
    const auto entriesOf = [](const char *folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    };
    const auto threads = [&] { return entriesOf("/proc/self/task"); };
    const auto handles = [&] { return entriesOf("/proc/self/fd"); };
    std::ptrdiff_t threadsBefore = 0;
    std::ptrdiff_t handlesBefore = 0;
    long kilobytesBefore = 0;
    for (int run = 0; run < 200; ++run) {
        pressStart();
        untilCompleted();
        pressSheet("Done");
        until([this] { return !window().isBusy(); });
        if (run == 20) { // by then every cache is warm
            threadsBefore = threads();
            handlesBefore = handles();
            kilobytesBefore = kilobytes();
        }
    }
    pass(std::chrono::milliseconds(10));
    EXPECT_TRUE(window().findChildren<QMessageBox *>().isEmpty());
    EXPECT_EQ(reportWindows(), 0);
    EXPECT_LE(threads(), threadsBefore + 1);
    EXPECT_LE(handles(), handlesBefore + 1);
#ifdef __SANITIZE_ADDRESS__ // the sanitizer keeps freed memory for a while
    constexpr long MayGrow = 1'048'576;
#else
    constexpr long MayGrow = 4096;
#endif
    EXPECT_LE(kilobytes(), kilobytesBefore + MayGrow);
}

} // namespace orvana
