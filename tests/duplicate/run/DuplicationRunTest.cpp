#include "duplicate/run/RunFixture.h"
#include "duplicate/run/RunMonitor.h"

namespace orvana
{

TEST_F(DuplicationRunTest, WholeRunWithEraseVerifyAndAFailingDiskIsToldInThisOrder)
{
    m_machine["failing"] = {"eraseDisk C"};
    start();
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(
        everythingTold(),
        (Lines{"Erasing, look at all", //
               "Erasing, message: Erasing /dev/disk3 & Mount to /Volumes/COPY1", "Erasing, tool eraseDisk",
               "Erasing, message: Erasing /dev/disk4 & Mount to /Volumes/COPY2", "Erasing, tool eraseDisk",
               "Erasing, message: Erasing /dev/disk5 & Mount to /Volumes/COPY3",
               "Erasing, tool eraseDisk", //
               "Looking, look at enclosures", "Looking, something to copy?",
               "Looking, left out: Slot-C (COPY2): its erase did not succeed",
               "Looking, left out: no more", //
               "Looking, copy starts",       //
               "Copying, message: Duplicating /Volumes/Master/Read me.txt",
               "Copying, total 1", //
               "Copying, message: Verifying File ...",
               "Copying, message: Verifying File ... Succeeded", //
               "Syncing, total 1", "Syncing, copy thread ends", "Ended, ended: copied"}));
    std::string log;
    for (const char *record :
         {"\n\n", "Erasing /dev/disk3 & Mount to /Volumes/COPY1",
          "Erasing /dev/disk4 & Mount to /Volumes/COPY2", "Erasing /dev/disk5 & Mount to /Volumes/COPY3",
          "Start Duplicating Files from /Volumes/Master to /Volumes/COPY1 /Volumes/COPY3",
          "Duplicating /Volumes/Master/Read me.txt", "Verifying File ... Succeeded", "Finish !!!"})
        log += std::string("[2026/11/21 10:20:30]: ") + record + "\n";
    EXPECT_EQ(withoutRoot(test::contentOf(m_log->logFilePath())), log);
    EXPECT_EQ(m_ends, 1);
    EXPECT_TRUE(m_summary.hasErased);
    EXPECT_TRUE(m_summary.isRecorded);
    EXPECT_FALSE(isAllDone(m_summary));
    EXPECT_EQ(report()["disks"][1]["outcome"], "eraseFailed");
    EXPECT_EQ(report()["destinations"][1]["verified"], 1);
}

TEST_F(DuplicationRunTest, ProgramsOwnReasonNotToCopyEndsTheRunWithIt)
{
    start();
    m_refusal = EnclosureRefusal::RaidSet;
    m_run->start(order(true));
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_TRUE(told("Looking, refused: " + refusalText(EnclosureRefusal::RaidSet)));
    EXPECT_FALSE(test::pathExists(volume("COPY1/Read me.txt")));
}

TEST_F(DuplicationRunTest, RunThatComesToNothingEndsOnceAndSaysWhy)
{
    start();
    m_hasSomethingToCopy = false;
    m_run->start(order(false));
    EXPECT_EQ(m_summary.ending, RunEnding::NothingToCopy);
    m_hasSomethingToCopy = true;

    auto elsewhere = order(false);
    elsewhere.choice.enclosure.uid = 4711;
    m_run->start(std::move(elsewhere));
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_TRUE(told("Looking, refused: " + refusalText(EnclosureRefusal::AnotherOne)));

    auto otherSource = order(false);
    otherSource.source.folder = FolderIdentity{1, 1};
    m_run->start(std::move(otherSource));
    EXPECT_EQ(m_summary.ending, RunEnding::Refused);
    EXPECT_TRUE(told("Looking, refused: " + refusalText(OrderRefusal::SourceGone)));

    auto nowhere = order(false);
    nowhere.destinations = {};
    m_run->start(std::move(nowhere));
    EXPECT_EQ(m_summary.ending, RunEnding::NoDestination);
    EXPECT_EQ(m_summary.note, "no destination");
    untilEnded();
    EXPECT_EQ(m_ends, 4);
    EXPECT_FALSE(test::pathExists(volume("COPY1/Read me.txt")));
}

TEST_F(DuplicationRunTest, SecondStartIsIgnoredWhileOneIsOn)
{
    start();
    m_run->start(order(false));
    const auto number = m_run->number();
    m_run->start(order(true));
    EXPECT_EQ(m_run->number(), number);
    untilEnded();
    EXPECT_EQ(m_ends, 1);
    EXPECT_TRUE(test::pathExists(volume("COPY1/old1")));
}

TEST_F(DuplicationRunTest, NextRunMayStartInTheEndOfTheOneBefore)
{
    start();
    at("ended: copied", [this] { m_run->start(order(false)); });
    m_run->start(order(false));
    until([this] { return m_ends == 2; });
    EXPECT_EQ(m_summary.ending, RunEnding::Copied);
}

TEST_F(DuplicationRunTest, EnclosureThatIsUnpluggedEndsTheRunAndNoOtherDoes)
{
    start();
    m_host->faults(volume("COPY1")).syncDelayMilliseconds = 300;
    m_run->start(order(false));
    m_run->endIfEnclosureIsLost();
    EXPECT_EQ(m_ends, 0);
    m_scanner->resetArray("All");
    m_run->endIfEnclosureIsLost();
    EXPECT_EQ(m_ends, 1);
    EXPECT_EQ(m_summary.ending, RunEnding::EnclosureLost);
    untilEnded();
    EXPECT_EQ(m_ends, 1);
}

TEST_F(DuplicationRunTest, ProgressCountsWhatTheReportCounts)
{
    start();
    m_run->start(order(false));
    untilEnded();
    EXPECT_EQ(m_run->progress().totalFiles(), 1);
    EXPECT_EQ(m_run->progress().filesStarted(), 1);
    EXPECT_EQ(m_run->progress().bytesOf(0), 120U);
    EXPECT_EQ(RunMonitor().look(m_run->progress()).fraction, 1);
}

TEST_F(DuplicationRunTest, ReportNamesTheDiskOfEachDestination)
{
    start();
    m_run->start(order(false));
    untilEnded();
    ASSERT_FALSE(m_summary.destinations.empty());
    const auto &planned = m_run->destinations().front();
    const auto &disk = m_summary.destinations.front().disk;
    EXPECT_EQ(disk.bay, slotNameOf(planned.bay));
    EXPECT_EQ(disk.name, planned.name);
    EXPECT_EQ(disk.model, planned.disk.diskModule);
    EXPECT_EQ(disk.serial, planned.disk.diskSN);
    EXPECT_FALSE(disk.serial.empty());
    EXPECT_GT(disk.size.value(), 0U);
}

TEST_F(DuplicationRunTest, RunIntoFoldersAsksForNoDevices)
{
    start();
    RunOrder order;
    order.selection = {volume("Master/Read me.txt")};
    order.folders = FolderJob{
        boundToFolders(*m_host, {order.selection, volume("Master"), {m_tree.folder("there")}, {}, 0}),
        nullptr};
    m_run->start(std::move(order));
    untilEnded();
    EXPECT_EQ(m_summary.ending, RunEnding::Copied);
    EXPECT_TRUE(isAllDone(m_summary));
    EXPECT_TRUE(m_tree.exists("there/Read me.txt"));
    EXPECT_FALSE(told("Looking, something to copy?"));
}

} // namespace orvana
