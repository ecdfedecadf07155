#include "duplicate/engine/EngineFixture.h"

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

} // namespace orvana
