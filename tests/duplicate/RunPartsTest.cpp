// The smaller parts of a run: report, relay, census.

#include "EngineFixture.h"

#include "duplicate/CopyCensus.h"
#include "duplicate/RunRelay.h"
#include "foundation/NotificationNames.h"
#include "log/LogData.h"

#include <atomic>

namespace orvana
{

using Lines = std::vector<std::string>;

class RunReportTest : public test::EngineTest
{
};

TEST_F(RunReportTest, SecondReportOfTheSameSecondGetsANumber)
{
    runJob({});
    EXPECT_EQ(m_report->path(), m_tree.path("reports/stamp-Report.json"));
    runJob({});
    EXPECT_EQ(m_report->path(), m_tree.path("reports/stamp-Report-2.json"));
    EXPECT_EQ(test::treeOf(m_tree.path("reports")), (Lines{"stamp-Report-2.json", "stamp-Report.json"}));
}

TEST_F(RunReportTest, HoldsCountsBytesAndTimes)
{
    m_tree.file("source/docs/one", "12345");
    m_tree.file("source/docs/two", "123");
    m_engine.setBVerifyFiles(true);
    runJob({"docs"}, {"a", "b"}, 2);
    const auto report = this->report();
    EXPECT_EQ(report["version"], 2);
    EXPECT_EQ(report["outcome"], "finished");
    EXPECT_EQ(report["source"], source());
    EXPECT_EQ(report["filesStarted"], 2);
    EXPECT_EQ(report["sourceBytes"], 8);
    EXPECT_EQ(report["problems"].size(), 0U);
    for (const auto &destination : report["destinations"]) {
        EXPECT_EQ(destination["copied"], 2);
        EXPECT_EQ(destination["verified"], 2);
        EXPECT_EQ(destination["bytes"], 8);
        EXPECT_EQ(destination["onDisk"], true);
    }
    EXPECT_TRUE(m_report->allDone());
}

TEST_F(RunReportTest, PathsThatAreNotTextCarryTheirBytes)
{
    m_tree.file("source/x\xFF", "data");
    m_tree.folder("a/x\xFF");
    runJob({"x\xFF"});
    const auto problem = report()["problems"][0];
    EXPECT_EQ(problem["file"], source("x\\xFF"));
    EXPECT_EQ(problem["fileBytes"], base64(source("x\xFF")));
    EXPECT_FALSE(m_report->allDone());
}

TEST_F(RunReportTest, WithoutAFolderTheReportIsLostAndNothingElse)
{
    m_tree.file("source/x");
    setJob({"x"});
    m_report = std::make_shared<RunReport>(m_tree.path("nowhere"), "stamp", m_clock);
    m_engine.setReport(m_report);
    m_engine.StartBackup();
    EXPECT_EQ(m_report->path(), "");
    EXPECT_TRUE(m_report->allDone());
    EXPECT_EQ(m_recorder.count("BackupFinish"), 1U);
}

TEST_F(RunReportTest, ReportIsWrittenBeforeBackupFinishIsPosted)
{
    bool wasThere = false;
    m_recorder.onEach([&](const std::string &line) {
        if (line == "TotalProgress 1")
            wasThere = m_tree.exists("reports/stamp-Report.json");
    });
    runJob({});
    EXPECT_TRUE(wasThere);
}

TEST_F(RunReportTest, VerifyingFromTheCacheIsSaid)
{
    const test::TemporaryTree memory("/dev/shm");
    if (m_host.volumeFiles()
            .openFolder(memory.root(), platform::Reach::Beneath)
            .value()
            ->traits()
            .readsBackFromDisk)
        GTEST_SKIP() << "/dev/shm is no memory file system here";
    m_tree.file("source/x");
    m_engine.SetBackupDiskValue({source("x")}, source(), {memory.root()});
    m_engine.setBVerifyFiles(true);
    useReport();
    m_engine.StartBackup();
    EXPECT_EQ(report()["destinations"][0]["verifiedFrom"], "cache");
}

namespace
{

struct DisplayRecorder final : RunDisplay
{
    Lines lines;
    void setProgressMsg(const std::string &message) override { lines.push_back("msg " + message); }
    void setFileProgerss(float percent) override { lines.push_back("file " + std::to_string(percent)); }
    void setTotalProgerss(float fraction) override { lines.push_back("total " + std::to_string(fraction)); }
    void BackupFinish() override { lines.emplace_back("finish"); }
};

Notification message(const std::string &text)
{
    return {notification::FileCopyMessage, std::pair(std::string(notification::key::MessageInfo), text)};
}

} // namespace

class RunRelayTest : public testing::Test
{
protected:
    RunRelayTest() { m_log.initLogFile(); }

    std::string logged() const
    {
        return m_home.exists("20261121-102030-Log.txt") ? test::contentOf(m_log.logFilePath()) : "";
    }
    static std::string record(const std::string &text) { return "[2026/11/21 10:20:30]: " + text + "\n"; }

    test::TemporaryTree m_home;
    test::StoppedClock m_clock;
    LogData m_log{m_home.root(), m_clock};
    DisplayRecorder m_display;
    RunRelay m_relay{m_log, m_display};
};

TEST_F(RunRelayTest, MessageIsShownAndLogged)
{
    m_relay.relay(message("Duplicating /x"));
    EXPECT_EQ(m_display.lines, (Lines{"msg Duplicating /x"}));
    EXPECT_EQ(logged(), record("Duplicating /x"));
}

TEST_F(RunRelayTest, CantDuplicateAnywhereInTheTextIsLoggedAndNotShown)
{
    m_relay.relay(message("Duplicating /Can`t Duplicate/x"));
    EXPECT_TRUE(m_display.lines.empty());
    EXPECT_EQ(logged(), record("Duplicating /Can`t Duplicate/x"));
}

TEST_F(RunRelayTest, VerifyingIsShownAndNotLoggedButItsResultIs)
{
    m_relay.relay(message("Verifying File ..."));
    EXPECT_EQ(m_display.lines, (Lines{"msg Verifying File ..."}));
    EXPECT_EQ(logged(), "");
    m_relay.relay(message("Verifying File ... Failed"));
    EXPECT_EQ(logged(), record("Verifying File ... Failed"));
}

TEST_F(RunRelayTest, ProgressIsReadUnderItsOddKey)
{
    m_relay.relay({notification::TotalProgress, std::pair(std::string("TotalProrgress"), 0.5F)});
    m_relay.relay({notification::FileProgress, std::pair(std::string("FileProgress"), 50.0F)});
    EXPECT_EQ(m_display.lines, (Lines{"total 0.500000", "file 50.000000"}));
    EXPECT_EQ(logged(), "");
}

TEST_F(RunRelayTest, DiskMessageIsShownAndLogged)
{
    m_relay.relay(
        {notification::DiskMessage, std::pair(std::string("DiskMsgInfo"), std::string("Eject /Volumes/A"))});
    EXPECT_EQ(m_display.lines, (Lines{"msg Eject /Volumes/A"}));
    EXPECT_EQ(logged(), record("Eject /Volumes/A"));
}

TEST_F(RunRelayTest, BackupFinishIsPassedOnAndOthersAreIgnored)
{
    m_relay.relay({notification::BackupFinish, std::nullopt});
    m_relay.relay({notification::TBDeviceAttached, std::nullopt});
    EXPECT_EQ(m_display.lines, (Lines{"finish"}));
    EXPECT_EQ(logged(), "");
}

TEST_F(RunRelayTest, RunControlWritesItsFourRecords)
{
    m_relay.runStarts();
    m_relay.jobHandedOver("/Volumes/Source", {"/Volumes/COPY 1", "/Volumes/COPY\n2"});
    m_relay.userCancelled();
    m_relay.runFinished();
    EXPECT_EQ(
        logged(),
        record("\n\n") +
            record("Start Duplicating Files from /Volumes/Source to /Volumes/COPY 1 /Volumes/COPY\\x0A2") +
            record("User Cancel") + record("Finish !!!"));
}

TEST_F(RunRelayTest, NothingOfTheRunIsLoggedAfterUserCancel)
{
    m_relay.runStarts();
    m_relay.userCancelled();
    m_relay.relay(message("Duplicating /late"));
    EXPECT_EQ(logged(), record("\n\n") + record("User Cancel"));
    EXPECT_EQ(m_display.lines, (Lines{"msg Duplicating /late"}));
    m_relay.runStarts();
    m_relay.relay(message("Duplicating /next"));
    EXPECT_TRUE(logged().ends_with(record("Duplicating /next")));
}

class CopyCensusTest : public test::EngineTest
{
protected:
    CopyCensus census(const std::vector<std::string> &items)
    {
        CopyJob job;
        for (const auto &item : items)
            job.SrcFileArray.push_back(source(item));
        return takeCensus(m_host, job, [] { return false; });
    }
};

TEST_F(CopyCensusTest, CountsWhatTheRunWillCopy)
{
    m_tree.file("source/docs/one", "12345");
    m_tree.file("source/docs/.hidden", "12");
    m_tree.file("source/docs/sub/two", "123");
    m_tree.file("source/docs/sub/.dot/three", "1");
    m_tree.file("source/docs/sub/Temporary Items/left out", "1234567");
    m_tree.link("source/docs/sub/link", "two");
    m_tree.link("source/docs/link", "sub");
    const auto counted = census({"docs"});
    runJob({"docs"}, {"a"}, counted.files);
    EXPECT_EQ(counted.files, report()["filesStarted"]);
    EXPECT_EQ(counted.bytes, report()["sourceBytes"]);
}

TEST_F(CopyCensusTest, EndsEarlyWhenCancelled)
{
    for (int i = 0; i < 10; ++i)
        m_tree.file("source/docs/f" + std::to_string(i));
    CopyJob job;
    job.SrcFileArray = {source("docs")};
    int asked = 0;
    EXPECT_LT(takeCensus(m_host, job, [&] { return ++asked > 3; }).files, 10);
}

} // namespace orvana
