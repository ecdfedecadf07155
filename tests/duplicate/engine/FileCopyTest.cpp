// The job, its worker thread and its end.

#include "duplicate/engine/EngineFixture.h"

#include "foundation/NotificationNames.h"

#include <atomic>
#include <sys/stat.h>

namespace orvana
{

using Lines = std::vector<std::string>;
using std::chrono::seconds;

class FileCopyThread : public test::EngineTest
{
protected:
    static constexpr seconds Patience{20};
};

TEST_F(FileCopyThread, RunThatFindsNoMemoryEndsAndIsNotCalledDone)
{
    m_tree.file("source/x");
    const auto message = m_center.subscribe(notification::FileCopyMessage,
                                            [](const Notification &) { throw std::bad_alloc(); });
    runJob({"x"});
    EXPECT_FALSE(isAllDone(m_report->summary()));
    EXPECT_EQ(report()["note"], "the run ended early: std::bad_alloc");
    EXPECT_EQ(report()["destinations"][0]["failed"], 1);
}

TEST_F(FileCopyThread, EndOfARunIsToldThoughThereWasNoMemoryForItAtFirst)
{
    m_tree.file("source/x");
    int told = 0;
    const auto end = m_center.subscribe(notification::BackupFinish, [&](const Notification &) {
        if (++told == 1)
            throw std::bad_alloc();
    });
    runJob({"x"});
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(isAllDone(m_report->summary()));
}

TEST_F(FileCopyThread, EngineThatIsDestroyedAfterItsRunLeavesNothingBehind)
{
    m_tree.file("source/x");
    const test::LogLines log;
    {
        NotificationCenter center;
        FileCopy engine(m_host, center);
        engine.SetBackupDiskValue({source("x")}, m_tree.path("source"), {m_tree.folder("a")});
        engine.startCopyThread();
        EXPECT_TRUE(engine.waitForEnd(std::chrono::seconds(10)));
    }
    EXPECT_EQ(log.all(), Lines());
}

TEST_F(FileCopyThread, NewEngineIsEmpty)
{
    EXPECT_EQ(m_engine.totalFiles(), 0);
    EXPECT_FALSE(m_engine.bVerifyFiles());
    EXPECT_FALSE(m_engine.bHiddenFiles());
    EXPECT_FALSE(m_engine.isRunning());
}

TEST_F(FileCopyThread, SettingAJobSetsItsCountToZero)
{
    m_engine.setTotalFiles(5);
    m_engine.SetBackupDiskValue({}, "", {});
    EXPECT_EQ(m_engine.totalFiles(), 0);
}

TEST_F(FileCopyThread, RunEndsWithBackupFinishAndACleanJob)
{
    m_tree.file("source/x", "data");
    setJob({"x"}, {"a"}, 1);
    m_engine.setBVerifyFiles(true);
    m_engine.startCopyThread();
    ASSERT_TRUE(m_recorder.waitFor("BackupFinish"));
    ASSERT_TRUE(m_engine.waitForEnd(Patience));
    EXPECT_EQ(m_engine.totalFiles(), 0);
    EXPECT_TRUE(m_engine.bVerifyFiles()) << "the flags stay";
    EXPECT_EQ(m_tree.read("a/x"), "data");
}

TEST_F(FileCopyThread, EngineKeepsItsOwnCopyOfTheJob)
{
    m_tree.file("source/x");
    setJob({"x"});
    m_engine.startCopyThread();
    setJob({}, {"b"});
    ASSERT_TRUE(m_recorder.waitFor("BackupFinish"));
    EXPECT_TRUE(m_tree.exists("a/x"));
}

TEST_F(FileCopyThread, CancelInALargeFileLeavesAShorterCopyAndNoBackupFinish)
{
    m_tree.file("source/big", test::patternOf(8 * BlockSize));
    setJob({"big"}, {"a", "b"});
    useReport();
    // The copy thread is held at its first block until the test has cancelled it.
    std::atomic<bool> isHeld{false};
    std::atomic<bool> isCancelled{false};
    m_recorder.onEach([&](const std::string &line) {
        isHeld = line.starts_with("FileProgress");
        while (isHeld && !isCancelled)
            std::this_thread::yield();
    });
    m_engine.startCopyThread();
    while (!isHeld)
        std::this_thread::yield();
    m_engine.stopCopyThread();
    isCancelled = true;
    ASSERT_TRUE(m_engine.waitForEnd(Patience));
    EXPECT_EQ(m_recorder.count("FileProgress"), 1U);
    EXPECT_EQ(m_recorder.count("BackupFinish"), 0U);
    EXPECT_EQ(m_engine.totalFiles(), 1) << "the job is not cleaned";
    EXPECT_EQ(m_tree.read("a/big"), test::patternOf(8 * BlockSize).substr(0, BlockSize));
    EXPECT_EQ(m_tree.read("b/big").size(), BlockSize);
    EXPECT_EQ(report()["outcome"], "cancelled");
    EXPECT_EQ(report()["destinations"][0]["onDisk"], false);
}

TEST_F(FileCopyThread, SecondRunStartedWhileTheFirstEndsIsTheOnlyOneThatPosts)
{
    m_tree.file("source/big", test::patternOf(4 * BlockSize));
    m_tree.file("source/small", "second");
    faultsOf("a").delayMilliseconds = 20;
    setJob({"big"}, {"a"});
    m_engine.startCopyThread();
    ASSERT_TRUE(m_recorder.waitFor("FileProgress"));
    setJob({"small"}, {"b"});
    m_engine.stopCopyThread();
    const auto before = static_cast<std::ptrdiff_t>(m_recorder.all().size());
    m_engine.startCopyThread();
    ASSERT_TRUE(m_recorder.waitFor("BackupFinish"));
    ASSERT_TRUE(m_engine.waitForEnd(Patience));
    auto lines = m_recorder.all();
    lines.erase(lines.begin(), lines.begin() + before);
    // One notification of the first run may have been under way when it was cancelled.
    std::erase_if(lines,
                  [](const auto &line) { return line == "FileProgress 50" || line == "FileProgress 75"; });
    EXPECT_EQ(lines, (Lines{"FileCopyMessage Duplicating " + source("small"), "TotalProgress 1",
                            "FileProgress 100", "TotalProgress 1", "BackupFinish"}));
    EXPECT_EQ(m_tree.read("b/small"), "second");
}

TEST_F(FileCopyThread, JobThatIsSetWhileARunEndsIsLeftAlone)
{
    m_tree.file("source/x");
    setJob({"x"});
    // This is the last moment before the ending run would clear its job.
    m_recorder.onEach([this](const std::string &line) {
        if (line == "TotalProgress 1" && m_recorder.count("TotalProgress") == 1)
            setJob({"x"}, {"b"}, 7);
    });
    m_engine.StartBackup();
    EXPECT_EQ(m_engine.totalFiles(), 7);
}

TEST_F(FileCopyThread, CancelBetweenTheLastTwoNotificationsPostsNoBackupFinish)
{
    setJob({});
    std::atomic<bool> isPosting{false};
    std::atomic<bool> isCancelled{false};
    m_recorder.onEach([&](const std::string &) {
        isPosting = true;
        while (!isCancelled)
            std::this_thread::yield();
    });
    m_engine.startCopyThread();
    while (!isPosting)
        std::this_thread::yield();
    m_engine.stopCopyThread();
    isCancelled = true;
    ASSERT_TRUE(m_engine.waitForEnd(Patience));
    EXPECT_EQ(m_recorder.all(), (Lines{"TotalProgress 1"}));
    EXPECT_EQ(m_recorder.count("BackupFinish"), 0U);
}

TEST_F(FileCopyThread, FoldersAreClosedToTheirOwnerAlsoWhenARunIsCancelled)
{
    m_tree.file("source/docs/inner/file", test::patternOf(3 * BlockSize));
    ASSERT_EQ(::chmod(source("docs/inner").c_str(), 0555), 0);
    setJob({"docs"});
    std::atomic<bool> isCancelled{false};
    m_recorder.onEach([&](const std::string &line) {
        while (line.starts_with("FileProgress") && !isCancelled)
            std::this_thread::yield();
    });
    m_engine.startCopyThread();
    ASSERT_TRUE(m_recorder.waitFor("TotalProgress"));
    m_engine.stopCopyThread();
    isCancelled = true;
    ASSERT_TRUE(m_engine.waitForEnd(Patience));
    struct stat status{};
    ASSERT_EQ(::stat(copy("a", "docs/inner").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0555U);
}

TEST_F(FileCopyThread, CancelInAComparisonEndsItAtTheBlockInHand)
{
    m_tree.file("source/big", test::patternOf(3 * BlockSize));
    setJob({"big"});
    useReport();
    m_engine.setBVerifyFiles(true);
    std::atomic<bool> isComparing{false};
    std::atomic<bool> isCancelled{false};
    m_recorder.onEach([&, isVerifying = false](const std::string &line) mutable {
        isVerifying = isVerifying || line == "FileCopyMessage Verifying File ...";
        if (!isVerifying || !line.starts_with("FileProgress"))
            return;
        isComparing = true;
        while (!isCancelled)
            std::this_thread::yield();
    });
    m_engine.startCopyThread();
    while (!isComparing)
        std::this_thread::yield();
    m_engine.stopCopyThread();
    isCancelled = true;
    ASSERT_TRUE(m_engine.waitForEnd(Patience));
    EXPECT_EQ(report()["outcome"], "cancelled");
    EXPECT_EQ(report()["destinations"][0]["verified"], 0);
    EXPECT_EQ(m_report->comparedBytes(), BlockSize);
    EXPECT_EQ(m_recorder.count("BackupFinish"), 0U);
}

TEST_F(FileCopyThread, DestructionCancelsAndWaits)
{
    m_tree.file("source/big", test::patternOf(8 * BlockSize));
    faultsOf("a").delayMilliseconds = 5;
    m_tree.folder("a");
    {
        FileCopy engine(m_host, m_center);
        engine.SetBackupDiskValue({source("big")}, source(), {m_tree.path("a")});
        engine.startCopyThread();
        EXPECT_TRUE(engine.isRunning());
    }
    EXPECT_EQ(m_recorder.count("BackupFinish"), 0U);
}

TEST_F(FileCopyThread, RandomStartsAndCancelsAreSafe)
{
    for (int i = 0; i < 20; ++i)
        m_tree.file("source/docs/f" + std::to_string(i), test::patternOf(100'000));
    unsigned state = 7;
    for (int i = 0; i < 60; ++i) {
        setJob({"docs"}, {"a", "b"}, 20);
        m_engine.setBVerifyFiles((state & 1U) != 0);
        m_engine.startCopyThread();
        state = state * 1103515245U + 12345U;
        for (unsigned k = 0; k < (state >> 16U) % 200; ++k)
            std::this_thread::yield();
        if ((state & 4U) != 0)
            m_engine.stopCopyThread();
    }
    m_engine.stopCopyThread();
    EXPECT_TRUE(m_engine.waitForEnd(Patience));
}

TEST_F(FileCopyThread, CancelledWorkersHangingWriteNeverLandInTheNextRun)
{
    m_tree.file("source/x", "first run");
    m_tree.file("other/x", "second run");
    setJob({"x"}, {"a"});
    faultsOf("a").delayMilliseconds = 1500;
    m_engine.startCopyThread();
    ASSERT_TRUE(m_recorder.waitFor("FileCopyMessage"));
    m_engine.stopCopyThread();
    faultsOf("a").delayMilliseconds = 0;
    m_engine.SetBackupDiskValue({m_tree.path("other/x")}, m_tree.path("other"), {m_tree.path("a")});
    m_engine.startCopyThread();
    ASSERT_TRUE(m_recorder.waitFor("BackupFinish"));
    ASSERT_TRUE(m_engine.waitForEnd(Patience));
    EXPECT_EQ(m_tree.read("a/x"), "second run");
}

TEST_F(FileCopyThread, DestinationThatAnotherProgramHoldsGetsNothing)
{
    m_tree.file("source/x", "data");
    setJob({"x"}, {"a", "b"});
    const auto other = m_host.volumeFiles().lockFolder(m_tree.path("a"), platform::Sharing::Exclusive);
    ASSERT_TRUE(other);
    useReport();
    m_engine.StartBackup();
    EXPECT_FALSE(m_tree.exists("a/x"));
    EXPECT_EQ(m_tree.read("b/x"), "data");
    EXPECT_FALSE(isAllDone(m_report->summary()));
    EXPECT_EQ(report()["problems"][0]["reason"], "Another run is at work there");
}

} // namespace orvana
