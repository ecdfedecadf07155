// Faults of the source, hard trees, and runs that are cut off.

#include "faults/FaultFixture.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace orvana::test
{

namespace
{

constexpr std::size_t MiB = 1'048'576;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long MemoryLimitKilobytes = 1'000'000; // the sanitizers' own memory is many times the program's
#else
constexpr long MemoryLimitKilobytes = 32 * 1024;
#endif

} // namespace

class SourceFault : public FaultTest
{
protected:
    void SetUp() override
    {
        FaultTest::SetUp();
        if (IsSkipped())
            return;
        m_a = destination("a");
        m_b = destination("b");
    }

    std::string m_a;
    std::string m_b;
};

INSTANTIATE_TEST_SUITE_P(As, SourceFault, testing::Values(User::Root, User::Ordinary),
                         [](const auto &user) { return user.param == User::Root ? "Root" : "User"; });

TEST_P(SourceFault, ReadErrorInTheMiddle)
{
    sourceFile("docs/bad", patternOf(6 * MiB));
    sourceFile("good", "whole");
    m_faults = [this](TestHost &host) {
        host.faults().volume(source("docs")).readErrorAfter = static_cast<std::int64_t>(3 * MiB);
    };
    EXPECT_EQ(run({"docs", "good"}, {m_a, m_b}), 1);
    for (const auto &to : {m_a, m_b}) {
        EXPECT_EQ(cannotDuplicate("docs/bad", to), 1);
        EXPECT_EQ(reason("docs/bad", to), "Input/output error");
        EXPECT_EQ(contentOf(to + "/docs/bad"), patternOf(6 * MiB).substr(0, 3 * MiB));
        expectIntact("good", to);
    }
}

TEST_P(SourceFault, PipeSocketAndDeviceInTheSourceAreSourcesThatCannotBeOpened)
{
    sourceFile("docs/file", "whole");
    ASSERT_EQ(::mkfifo(source("docs/pipe").c_str(), 0666), 0);
    const bool hasDevice =
        ::mknod(source("docs/zero").c_str(), S_IFCHR | 0666, static_cast<dev_t>(0x105)) == 0;
    sourceFile("docs/other", "whole");
    EXPECT_EQ(run({"docs"}, {m_a, m_b}), 1);
    EXPECT_EQ(logged("Can`t Duplicate"), 0);
    EXPECT_EQ(reason("docs/pipe", m_a), "The source cannot be opened: Not a regular file");
    EXPECT_EQ(report()["destinations"][1]["failed"], hasDevice ? 2 : 1);
    EXPECT_FALSE(pathExists(m_a + "/docs/pipe"));
    expectIntact("docs/file", m_b);
    expectIntact("docs/other", m_b);
}

TEST_P(SourceFault, SourceGrowsWhileItIsRead)
{
    sourceFile("grows", patternOf(6 * MiB));
    const auto more = patternOf(2 * MiB, 2); // made before: it must be there before the old end is read
    m_faults = [this](TestHost &host) { host.faults().volume(m_a).delayMilliseconds = 100; };
    start({"grows"}, {m_a, m_b});
    ASSERT_TRUE(waitForSize(m_a + "/grows", 2 * MiB));
    std::ofstream(source("grows"), std::ios::app) << more;
    EXPECT_EQ(wait(), 1);
    EXPECT_EQ(report()["problems"][0]["kind"], "sourceChanged");
    EXPECT_EQ(report()["destinations"][0]["copied"], 0);
    for (const auto &to : {m_a, m_b})
        expectIntact("grows", to);
}

TEST_P(SourceFault, SourceWithTimesOfWholeSecondsIsWrittenToWhileItIsRead)
{
    const auto setTime = [&](const timespec &time) {
        const timespec times[] = {{time.tv_sec, 0}, {time.tv_sec, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, source("young").c_str(), times, 0), 0);
    };
    sourceFile("young", patternOf(16 * MiB));
    m_faults = [this](TestHost &host) { host.faults().volume(m_a).delayMilliseconds = 30; };
    timespec now{};
    do // starts early in a second: without a wait, everything would happen within it
        ::clock_gettime(CLOCK_REALTIME, &now);
    while (now.tv_nsec > 100'000'000);
    setTime(now);
    start({"young"}, {m_a, m_b});
    ASSERT_TRUE(waitForSize(m_a + "/young", 2 * MiB));
    const int file = ::open(source("young").c_str(), O_WRONLY);
    ASSERT_EQ(::pwrite(file, "changed", 7, 100), 7);
    ::close(file);
    ::clock_gettime(CLOCK_REALTIME, &now);
    setTime(now);
    EXPECT_EQ(wait(), 1);
    EXPECT_EQ(report()["problems"][0]["kind"], "sourceChanged");
}

TEST_P(SourceFault, SourceShrinksWhileItIsRead)
{
    sourceFile("shrinks", patternOf(8 * MiB));
    sourceFile("good", "whole");
    m_faults = [this](TestHost &host) { host.faults().volume(m_a).delayMilliseconds = 30; };
    start({"shrinks", "good"}, {m_a, m_b});
    ASSERT_TRUE(waitForSize(m_a + "/shrinks", 2 * MiB));
    ASSERT_EQ(::truncate(source("shrinks").c_str(), 4 * MiB), 0);
    EXPECT_EQ(wait(), 1) << "what there was to read was copied, and is no copy of the source";
    EXPECT_EQ(report()["problems"][0]["kind"], "sourceChanged");
    const auto copied = contentOf(m_a + "/shrinks");
    EXPECT_GE(copied.size(), 4 * MiB);
    EXPECT_EQ(copied, patternOf(8 * MiB).substr(0, copied.size()));
    EXPECT_EQ(contentOf(m_b + "/shrinks"), copied);
    expectIntact("good", m_b);
}

TEST_P(SourceFault, SourceVanishesWhileItIsRead)
{
    sourceFile("docs/1-vanishes", patternOf(6 * MiB));
    m_faults = [this](TestHost &host) { host.faults().volume(m_a).delayMilliseconds = 30; };
    m_verify = true;
    start({"docs"}, {m_a, m_b});
    ASSERT_TRUE(waitForSize(m_a + "/docs/1-vanishes", 2 * MiB));
    ASSERT_EQ(::unlink(source("docs/1-vanishes").c_str()), 0);
    EXPECT_EQ(wait(), 1) << "the copy is whole and could not be compared";
    EXPECT_EQ(contentOf(m_b + "/docs/1-vanishes"), patternOf(6 * MiB));
    EXPECT_EQ(report()["destinations"][0]["copied"], 1);
    EXPECT_EQ(report()["destinations"][0]["unverified"], 1);
}

TEST_P(SourceFault, ReadOnlyFilesAndFoldersAndAParentThatIsNotTicked)
{
    sourceFile("docs/locked/file", "bytes");
    sourceFile("other/deep/file", "bytes");
    ::chmod(source("docs/locked/file").c_str(), 0444);
    ::chmod(source("docs/locked").c_str(), 0555);
    ::chmod(source("other/deep/file").c_str(), 0444);
    EXPECT_EQ(run({"docs", "other/deep/file"}, {m_a, m_b}), 0) << errors();
    for (const auto &to : {m_a, m_b}) {
        expectIntact("docs/locked/file", to);
        expectIntact("other/deep/file", to);
        struct stat status{};
        ASSERT_EQ(::stat((to + "/docs/locked").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0555U);
        ASSERT_EQ(::stat((to + "/other/deep").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0555U);
    }
}

TEST_P(SourceFault, ThousandLevelsFarBeyondTheLongestPath)
{
    const std::string name(40, 'n');
    std::string relative = "docs";
    TestHost host(m_tree.path("home"));
    const auto base = host.volumeFiles().openFolder(m_tree.path("source"), platform::Reach::Beneath).value();
    const platform::Attributes folder{.permissions = 0755};
    ASSERT_TRUE(base->makeFolder(relative, folder));
    for (int level = 0; level < 1000; ++level) {
        relative += "/" + name;
        ASSERT_TRUE(base->makeFolder(relative, folder));
    }
    const std::string content = "at the bottom";
    const auto file = base->createFile(relative + "/file", {.permissions = 0644}).value();
    ASSERT_TRUE(file->write(std::as_bytes(std::span(content)), 0));
    ASSERT_GT(relative.size(), 40'000U);
    m_verify = true;
    EXPECT_EQ(run({"docs"}, {m_a, m_b}), 0) << errors();
    for (const auto &to : {m_a, m_b}) {
        const auto copied = host.volumeFiles().openFolder(to, platform::Reach::Beneath).value();
        const auto opened = copied->openFile(relative + "/file", platform::Access::Read);
        ASSERT_TRUE(opened);
        EXPECT_EQ((*opened)->attributes()->size, content.size());
    }
    EXPECT_EQ(report()["destinations"][1]["verified"], 1);
}

TEST_P(SourceFault, NameOf255Bytes)
{
    const std::string name(255, 'x');
    sourceFile("docs/" + name, "long");
    EXPECT_EQ(run({"docs"}, {m_a, m_b}), 0);
    expectIntact("docs/" + name, m_b);
}

TEST_P(SourceFault, TwoTickedItemsOneInsideTheOther)
{
    sourceFile("docs/file", "twice");
    EXPECT_EQ(run({"docs", "docs/file"}, {m_a, m_b}), 0);
    EXPECT_EQ(logged("Duplicating " + source("docs/file")), 2);
    expectIntact("docs/file", m_a);
}

TEST_P(SourceFault, KilledInMidRunAndRunAgain)
{
    sourceFile("1/first", "whole");
    sourceFile("2/second", patternOf(8 * MiB));
    m_faults = [this](TestHost &host) { host.faults().volume(m_a).delayMilliseconds = 30; };
    start({"1", "2"}, {m_a, m_b});
    ASSERT_TRUE(waitForSize(m_a + "/2/second", 3 * MiB));
    ::kill(m_child, SIGKILL);
    EXPECT_EQ(wait(), 1000 + SIGKILL);
    expectIntact("1/first", m_a);
    EXPECT_EQ(outputOf("ls " + m_tree.path("logs") + " | grep -c Report"), "0") << "no half report is left";
    m_faults = [](TestHost &) {};
    forgetRun();
    EXPECT_EQ(run({"1", "2"}, {m_a, m_b}), 0) << errors();
    for (const auto &to : {m_a, m_b}) {
        expectIntact("1/first", to);
        expectIntact("2/second", to);
    }
}

TEST_P(SourceFault, SignalCancelsAndLeavesLogAndReportClosed)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        forgetRun();
        sourceFile("big", patternOf(16 * MiB));
        m_faults = [this](TestHost &host) { host.faults().volume(m_a).delayMilliseconds = 30; };
        start({"big"}, {m_a, m_b});
        ASSERT_TRUE(waitForSize(m_a + "/big", 2 * MiB));
        ::kill(m_child, signal);
        EXPECT_EQ(wait(), 130);
        EXPECT_EQ(logged("User Cancel"), 1);
        EXPECT_EQ(logged("Finish !!!"), 0);
        EXPECT_EQ(report()["outcome"], "cancelled");
        ::unlink((m_a + "/big").c_str());
        ::unlink((m_b + "/big").c_str());
    }
}

class LargeFile : public testing::Test
{
protected:
    TemporaryTree m_tree;
};

TEST_F(LargeFile, BeyondFourGigabytes)
{
    struct statvfs space{};
    ASSERT_EQ(::statvfs(m_tree.root().c_str(), &space), 0);
    if (space.f_bavail * space.f_frsize < std::uint64_t{6} << 30U)
        GTEST_SKIP() << "needs 6 GB of free space";
    constexpr off_t Size = (off_t{4} << 30) + 3 * static_cast<off_t>(MiB) + 5;
    m_tree.file("source/sparse", "begins");
    ASSERT_EQ(::truncate(m_tree.path("source/sparse").c_str(), Size - 4), 0);
    std::ofstream(m_tree.path("source/sparse"), std::ios::app) << "ends";
    m_tree.folder("a");
    m_tree.folder("logs");
    const std::string command = std::string(PLURIMOCTL) + " copy " + m_tree.path("source/sparse") + " --to " +
                                m_tree.path("a") + " --log-dir " + m_tree.path("logs");
    EXPECT_EQ(shell("/usr/bin/time -f %M -o " + m_tree.path("memory") + " " + command + " >/dev/null"), 0);
    EXPECT_EQ(shell("cmp " + m_tree.path("source/sparse") + " " + m_tree.path("a/sparse")), 0);
    EXPECT_LT(std::stol(m_tree.read("memory")), MemoryLimitKilobytes) << "kilobytes at the peak";
}

} // namespace orvana::test
