#include "duplicate/engine/EngineFixture.h"
#include "duplicate/report/ReportJson.h"
#include "support/StoppedClock.h"

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
    EXPECT_TRUE(isAllDone(m_report->summary()));
}

TEST_F(RunReportTest, PathsThatAreNotTextCarryTheirBytes)
{
    m_tree.file("source/x\xFF", "data");
    m_tree.folder("a/x\xFF");
    runJob({"x\xFF"});
    const auto problem = report()["problems"][0];
    EXPECT_EQ(problem["file"], source("x\\xFF"));
    EXPECT_EQ(problem["fileBytes"], base64(source("x\xFF")));
    EXPECT_FALSE(isAllDone(m_report->summary()));
}

TEST_F(RunReportTest, WithoutAFolderTheReportIsLostAndNothingElse)
{
    m_tree.file("source/x");
    setJob({"x"});
    m_report = std::make_shared<RunReport>(m_tree.path("nowhere"), "stamp", m_clock);
    m_engine.setReport(m_report);
    m_engine.StartBackup();
    EXPECT_EQ(m_report->path(), "");
    EXPECT_TRUE(isAllDone(m_report->summary()));
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

TEST(RunReport, DestinationWithoutADiskIsSaidToBeInMemory)
{
    const test::StoppedClock clock;
    RunReport report({}, {}, clock);
    report.begin("/source", {"/a", "/b", "/c"}, false);
    report.inMemory(0);
    report.onDisk(1);
    const auto list = destinationsJson(report.summary());
    EXPECT_EQ(list[0]["onDisk"], "memory");
    EXPECT_EQ(list[1]["onDisk"], true);
    EXPECT_EQ(list[2]["onDisk"], false);
    EXPECT_EQ(list[2]["reason"], "not known to be on disk: the run ended before the final sync");
}

TEST(RunReport, SlowestOfSeveralDestinationsIsTheOneThatTookLongest)
{
    const test::StoppedClock clock;
    RunReport report({}, {}, clock);
    report.begin("/source", {"/a", "/b", "/c"}, false);
    report.destination(0).addWriteTime(std::chrono::seconds(2));
    report.destination(1).addWriteTime(std::chrono::seconds(1));
    report.destination(1).syncNanoseconds = 2'000'000'000;
    const auto all = report.summary().destinations;
    EXPECT_FALSE(all[0].isSlowest);
    EXPECT_TRUE(all[1].isSlowest);
    EXPECT_FALSE(all[2].isSlowest);
    RunReport single({}, {}, clock);
    single.begin("/source", {"/a"}, false);
    EXPECT_FALSE(single.summary().destinations[0].isSlowest);
}

TEST(RunReport, CopiesReadFromMemoryOnceAreNotCalledReadFromTheDisk)
{
    const test::StoppedClock clock;
    RunReport report({}, {}, clock);
    report.begin("/source", {"/a"}, true);
    EXPECT_EQ(report.summary().destinations[0].verifiedFrom, VerifiedFrom::None);
    report.verifiedFrom(0, VerifiedFrom::Disk);
    EXPECT_EQ(report.summary().destinations[0].verifiedFrom, VerifiedFrom::Disk);
    report.verifiedFrom(0, VerifiedFrom::Cache);
    report.verifiedFrom(0, VerifiedFrom::Disk);
    EXPECT_EQ(report.summary().destinations[0].verifiedFrom, VerifiedFrom::Cache);
}

} // namespace orvana
