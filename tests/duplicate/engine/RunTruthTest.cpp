// Rules for counting a file as copied or verified. A report makes no file look better or worse than it is.

#include "duplicate/engine/EngineFixture.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

class RunTruth : public test::EngineTest
{
protected:
    /// Runs a job whose source is on another device than the destination. On the source's own device the
    /// engine never writes to an existing file that has several names.
    void runFromElsewhere(const std::vector<std::string> &items)
    {
        m_tree.folder("a");
        std::vector<std::string> selection;
        for (const auto &item : items)
            selection.push_back(m_elsewhere.path(item));
        m_engine.SetBackupDiskValue(selection, m_elsewhere.root(), {m_tree.path("a")});
        useReport();
        m_engine.StartBackup();
    }

    test::TemporaryTree m_elsewhere{"/dev/shm"};

    Json problem(std::size_t index = 0) { return report()["problems"][index]; }
    Json destination(std::size_t index = 0) { return report()["destinations"][index]; }

    /// Calls `change` once when the message comes.
    void at(const std::string &message, std::function<void()> change)
    {
        m_recorder.onEach(
            [message, change = std::move(change), done = false](const std::string &line) mutable {
                if (line == "FileCopyMessage " + message && !std::exchange(done, true))
                    change();
            });
    }
};

TEST_F(RunTruth, SecondNameOfAFileOfThisRunIsNotWrittenOver)
{
    m_elsewhere.file("docs/a", "first");
    m_elsewhere.file("docs/b", "second, and longer");
    m_tree.file("a/docs/a", "old");
    ASSERT_EQ(::link(m_tree.path("a/docs/a").c_str(), m_tree.path("a/docs/b").c_str()), 0);
    runFromElsewhere({"docs"});
    EXPECT_EQ(m_tree.read("a/docs/a"), m_tree.read("a/docs/b"));
    const auto kept = m_tree.read("a/docs/a");
    EXPECT_TRUE(kept == "first" || kept == "second, and longer") << "the first copy stays whole: " << kept;
    EXPECT_EQ(destination()["copied"], 1);
    EXPECT_EQ(destination()["failed"], 1);
    EXPECT_EQ(problem()["kind"], "sameFile");
    EXPECT_NE(problem()["reason"].get<std::string>().find(", called "), std::string::npos)
        << "both names are told";
}

TEST_F(RunTruth, LinkToAFileOfThisRunIsNotWrittenThrough)
{
    m_tree.file("source/docs/a", "first");
    m_tree.file("source/docs/b", "second");
    m_tree.file("a/docs/a", "old");
    m_tree.link("a/docs/b", "a");
    runJob({"docs/a", "docs/b"});
    EXPECT_EQ(m_tree.read("a/docs/a"), "first");
    EXPECT_EQ(problem()["kind"], "sameFile");
}

TEST_F(RunTruth, SecondRunFindsItAgain)
{
    m_elsewhere.file("a", "first");
    m_elsewhere.file("b", "second");
    m_tree.file("a/a", "old");
    ASSERT_EQ(::link(m_tree.path("a/a").c_str(), m_tree.path("a/b").c_str()), 0);
    for (int round = 0; round < 2; ++round) {
        runFromElsewhere({"a", "b"});
        EXPECT_EQ(m_tree.read("a/a"), "first");
        EXPECT_EQ(destination()["failed"], 1);
    }
}

TEST_F(RunTruth, SameSourceTickedTwiceIsNoOtherFile)
{
    m_elsewhere.file("docs/a", "content");
    m_tree.file("a/docs/a", "old");
    ASSERT_EQ(::link(m_tree.path("a/docs/a").c_str(), m_tree.path("a/other").c_str()), 0);
    runFromElsewhere({"docs", "docs/a"});
    EXPECT_TRUE(isAllDone(m_report->summary()));
    EXPECT_EQ(m_tree.read("a/docs/a"), "content");
}

TEST_F(RunTruth, FolderAndAReadOnlyFileInItBothTickedFailNowhere)
{
    m_tree.file("source/docs/a", "content");
    ASSERT_EQ(::chmod(source("docs/a").c_str(), 0444), 0);
    runJob({"docs", "docs/a"});
    EXPECT_TRUE(isAllDone(m_report->summary()));
    EXPECT_EQ(destination()["failed"], 0);
}

TEST_F(RunTruth, LongerCopyThatKeepsItsTailIsNotCopied)
{
    m_tree.file("source/x", "new");
    m_tree.file("a/x", "older content");
    m_tree.file("b/x", "old");
    runJob({"x"}, {"a", "b"});
    EXPECT_EQ(m_tree.read("a/x"), "newer content") << "it stays as it is";
    EXPECT_EQ(destination(0)["copied"], 0);
    EXPECT_EQ(destination(1)["copied"], 1);
    EXPECT_EQ(problem()["kind"], "keptTail");
    EXPECT_EQ(problem()["reason"], "The copy holds 10 bytes of an older file behind it");
    EXPECT_FALSE(isAllDone(m_report->summary()));
}

TEST_F(RunTruth, SourceWrittenToInPlaceWhileItIsReadHasChanged)
{
    m_tree.file("source/big", test::patternOf(4 * BlockSize));
    m_recorder.onEach([this, done = false](const std::string &line) mutable {
        if (!line.starts_with("FileProgress") || std::exchange(done, true))
            return;
        std::fstream file(source("big"));
        file.seekp(3 * BlockSize);
        file << "changed";
    });
    runJob({"big"});
    EXPECT_EQ(problem()["kind"], "sourceChanged");
    EXPECT_EQ(destination()["copied"], 0);
    EXPECT_FALSE(isAllDone(m_report->summary()));
}

TEST_F(RunTruth, SourceWrittenToBetweenCopyAndComparisonHasChanged)
{
    m_tree.file("source/x", "content");
    m_engine.setBVerifyFiles(true);
    at("Verifying File ...", [this] { m_tree.file("source/x", "content, longer"); });
    runJob({"x"});
    EXPECT_EQ(problem()["kind"], "sourceChanged");
    EXPECT_EQ(destination()["copied"], 0);
    EXPECT_EQ(destination()["verified"], 0);
    EXPECT_EQ(destination()["mismatched"], 0);
}

TEST_F(RunTruth, SourceWrittenToJustBeforeItsTurnIsCopiedAsItIsThen)
{
    for (const char *name : {"a", "b", "c", "d"})
        m_tree.file(std::string("source/docs/") + name, "old");
    m_recorder.onEach([](const std::string &line) {
        const std::string start = "FileCopyMessage Duplicating ";
        if (line.starts_with(start))
            std::ofstream(line.substr(start.size())) << "new and longer";
    });
    runJob({"docs"});
    for (const char *name : {"a", "b", "c", "d"})
        EXPECT_EQ(m_tree.read(std::string("a/docs/") + name), "new and longer");
    EXPECT_TRUE(isAllDone(m_report->summary()));
}

TEST_F(RunTruth, SourceThatGoesAwayBeforeItsTurnIsCopiedWholeOrTold)
{
    for (const char *name : {"a", "b", "c", "d"})
        m_tree.file(std::string("source/docs/") + name, "content");
    std::size_t turns = 0;
    m_recorder.onEach([&](const std::string &line) {
        if (line.starts_with("FileCopyMessage Duplicating ") && ++turns > 1)
            std::filesystem::remove(line.substr(std::string("FileCopyMessage Duplicating ").size()));
    });
    runJob({"docs"});
    const auto copied = destination()["copied"].get<int>();
    const auto failed = destination()["failed"].get<int>();
    EXPECT_EQ(copied + failed, 4);
    int whole = 0;
    for (const char *name : {"a", "b", "c", "d"})
        whole += m_tree.exists(std::string("a/docs/") + name) &&
                 m_tree.read(std::string("a/docs/") + name) == "content";
    EXPECT_EQ(whole, copied);
}

TEST_F(RunTruth, SourceThatGrowsWithoutEndIsCopiedToABound)
{
    m_tree.file("source/x", test::patternOf(2 * BlockSize));
    m_recorder.onEach([this](const std::string &line) {
        if (line.starts_with("FileProgress"))
            std::ofstream(source("x"), std::ios::app) << test::patternOf(BlockSize);
    });
    runJob({"x"});
    EXPECT_EQ(problem()["kind"], "sourceChanged");
    EXPECT_EQ(destination()["copied"], 0);
    EXPECT_LE(m_tree.read("a/x").size(), 67 * std::size_t{BlockSize});
}

TEST_F(RunTruth, SourceThatShrinksBeforeTheComparisonIsNotVerified)
{
    m_tree.file("source/x", test::patternOf(3 * BlockSize));
    m_engine.setBVerifyFiles(true);
    at("Verifying File ...", [this] { ASSERT_EQ(::truncate(source("x").c_str(), BlockSize), 0); });
    runJob({"x"});
    EXPECT_EQ(problem()["kind"], "sourceChanged");
    EXPECT_EQ(destination()["verified"], 0);
}

TEST_F(RunTruth, SourceThatCannotBeReadInTheComparisonIsUnverified)
{
    m_tree.file("source/x", test::patternOf(2 * BlockSize));
    m_engine.setBVerifyFiles(true);
    at("Verifying File ...", [this] { m_host.faults().volume(m_tree.path("source")).readErrorAfter = 100; });
    runJob({"x"});
    EXPECT_EQ(destination()["unverified"], 1);
    EXPECT_EQ(destination()["mismatched"], 0);
    EXPECT_EQ(problem()["reason"], "The source cannot be read: Input/output error");
}

TEST_F(RunTruth, EveryItemThatIsLeftOutIsNamedWithItsRule)
{
    m_tree.file("source/docs/inner/a", "content");
    m_tree.link("source/docs/inner/link", "a");
    m_tree.file("source/docs/Temporary Items/x", "content");
    runJob({"docs"});
    const auto items = report()["leftOutItems"];
    ASSERT_EQ(items.size(), 2U);
    std::vector<std::string> lines;
    for (const auto &item : items)
        lines.push_back(item["file"].get<std::string>() + ": " + item["reason"].get<std::string>());
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(lines[0], source("docs/Temporary Items") + ": its place is one that is never copied");
    EXPECT_EQ(lines[1], source("docs/inner/link") + ": it is a symbolic link");
    EXPECT_EQ(report()["leftOut"], 2);
    EXPECT_EQ(m_report->summary().leftOut, 2);
    EXPECT_TRUE(isAllDone(m_report->summary()));
}

TEST_F(RunTruth, ListingThatBreaksOffCopiesWhatWasReadAndIsReported)
{
    m_tree.file("source/docs/x", "content");
    m_tree.file("source/docs/y", "content");
    m_host.faults().volume(source("docs")).listErrorAfter = 1;
    runJob({"docs"});
    EXPECT_EQ(destination()["copied"], 1);
    EXPECT_EQ(destination()["failed"], 1);
    EXPECT_EQ(problem()["file"], source("docs"));
    EXPECT_EQ(problem()["reason"], "The folder cannot be read to its end: Input/output error");
    EXPECT_FALSE(isAllDone(m_report->summary()));
}

TEST_F(RunTruth, DestinationThatIsMovedAwayInMidRunDoesNotCount)
{
    m_tree.file("source/x", "content");
    m_tree.file("source/y", "content");
    at("Duplicating " + source("y"),
       [this] { ASSERT_EQ(::rename(m_tree.path("a").c_str(), m_tree.path("elsewhere").c_str()), 0); });
    runJob({"x", "y"});
    EXPECT_EQ(destination()["onDisk"], false);
    EXPECT_EQ(destination()["copied"], 0);
    EXPECT_NE(destination()["reason"].get<std::string>().find("was moved away in mid-run"),
              std::string::npos);
    EXPECT_FALSE(isAllDone(m_report->summary()));
}

TEST_F(RunTruth, FolderThatIsMovedAwayInMidRunIsNoticed)
{
    m_tree.file("source/docs/x", "content");
    m_tree.file("source/docs/y", "content");
    m_tree.file("source/z", "content");
    bool moved = false;
    m_recorder.onEach([this, &moved](const std::string &line) {
        if (line.starts_with("TotalProgress") && m_tree.exists("a/docs") && !std::exchange(moved, true))
            ::rename(m_tree.path("a/docs").c_str(), m_tree.path("moved").c_str());
    });
    runJob({"docs", "z"});
    ASSERT_TRUE(moved);
    EXPECT_FALSE(isAllDone(m_report->summary()));
}

TEST_F(RunTruth, VerifiedFromTheDiskIsNotSaidOfPagesThatStayInMemory)
{
    m_tree.file("source/x", test::patternOf(BlockSize));
    m_tree.file("a/x", test::patternOf(BlockSize));
    const int file = ::open(m_tree.path("a/x").c_str(), O_RDONLY);
    void *map = ::mmap(nullptr, BlockSize, PROT_READ, MAP_SHARED | MAP_POPULATE, file, 0);
    ASSERT_NE(map, MAP_FAILED);
    ASSERT_EQ(::mlock(map, BlockSize), 0);
    m_engine.setBVerifyFiles(true);
    runJob({"x"});
    EXPECT_EQ(destination()["verifiedFrom"], "cache");
    ::munmap(map, BlockSize);
    ::close(file);
}

TEST_F(RunTruth, CopyThatDiffersIsReportedOnceAndNotAgainAtTheEnd)
{
    m_tree.file("source/x", test::patternOf(1000));
    m_engine.setBVerifyFiles(true);
    at("Verifying File ...", [this] { m_tree.file("a/x", std::string(1000, 'z')); });
    runJob({"x"});
    EXPECT_EQ(destination()["mismatched"], 1);
    EXPECT_EQ(destination()["verified"], 0);
    EXPECT_EQ(report()["problems"].size(), 1U);
}

TEST_F(RunTruth, CopyThatDiffersAtTheEndOfTheRunIsNoLongerVerified)
{
    m_tree.file("source/x", test::patternOf(2 * BlockSize));
    m_tree.file("source/y", "content");
    m_engine.setBVerifyFiles(true);
    at("Duplicating " + source("y"), [this] { m_tree.file("a/x", std::string(2 * BlockSize, 'z')); });
    runJob({"x", "y"});
    EXPECT_EQ(destination()["verified"], 1);
    EXPECT_EQ(destination()["mismatched"], 1) << "each file once, whatever number of its blocks is looked at";
    EXPECT_EQ(problem()["kind"], "mismatched");
}

TEST_F(RunTruth, CopyThatIsGoneAtTheEndOfTheRunIsNoLongerVerified)
{
    m_tree.file("source/x", "content");
    m_tree.file("source/y", "content");
    m_engine.setBVerifyFiles(true);
    at("Duplicating " + source("y"), [this] { ASSERT_EQ(::unlink(m_tree.path("a/x").c_str()), 0); });
    runJob({"x", "y"});
    EXPECT_EQ(destination()["verified"], 1);
    EXPECT_EQ(destination()["unverified"], 1);
    EXPECT_FALSE(isAllDone(m_report->summary()));
}

} // namespace orvana
