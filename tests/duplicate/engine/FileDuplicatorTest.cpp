// Copying and comparing one file: messages, counts, tails.

#include "duplicate/engine/EngineFixture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

using Lines = std::vector<std::string>;

namespace
{

constexpr std::size_t MiB = BlockSize;

} // namespace

class FileCopyFile : public test::EngineTest
{
};

TEST_F(FileCopyFile, BlockIsAMebibyte)
{
    m_tree.file("source/x", std::string(2 * 1'048'576 + 1, 'x'));
    runJob({"x"});
    EXPECT_EQ(m_recorder.count("FileProgress"), 3U);
}

TEST_F(FileCopyFile, MessagesAndProgressComeInOrder)
{
    m_tree.file("source/big", test::patternOf(2 * MiB + MiB / 2));
    runJob({"big"}, {"a", "b"}, 4);
    EXPECT_EQ(m_recorder.all(),
              (Lines{"FileCopyMessage Duplicating " + source("big"), "TotalProgress 0.25", "FileProgress 40",
                     "FileProgress 80", "FileProgress 100", "TotalProgress 1", "BackupFinish"}));
    EXPECT_EQ(m_tree.read("a/big"), m_tree.read("source/big"));
    EXPECT_EQ(m_tree.read("b/big"), m_tree.read("source/big"));
}

TEST_F(FileCopyFile, FileOfExactlyOneBlockIsOneStep)
{
    m_tree.file("source/block", test::patternOf(MiB));
    runJob({"block"});
    EXPECT_EQ(m_recorder.count("FileProgress"), 1U);
    EXPECT_EQ(m_tree.read("a/block"), m_tree.read("source/block"));
}

TEST_F(FileCopyFile, EmptyFileIsCreatedWithoutProgress)
{
    m_tree.file("source/empty", "");
    runJob({"empty"}, {"a", "b"});
    EXPECT_EQ(m_tree.read("a/empty"), "");
    EXPECT_EQ(m_tree.read("b/empty"), "");
    EXPECT_EQ(m_recorder.count("FileProgress"), 0U);
}

TEST_F(FileCopyFile, TotalOfZeroDividesByZero)
{
    m_tree.file("source/x");
    runJob({"x"}, {"a"}, 0);
    EXPECT_EQ(m_recorder.all()[1], "TotalProgress inf");
}

TEST_F(FileCopyFile, LongerDestinationKeepsItsTail)
{
    m_tree.file("source/x", "new");
    m_tree.file("a/x", "older content");
    runJob({"x"});
    EXPECT_EQ(m_tree.read("a/x"), "newer content");
}

TEST_F(FileCopyFile, TailIsNoticedAtTheLastBlockOnly)
{
    const auto content = test::patternOf(MiB + 10);
    m_tree.file("source/x", content);
    m_tree.file("a/x", content + "tail");
    m_engine.setBVerifyFiles(true);
    runJob({"x"});
    EXPECT_EQ(m_recorder.messages(), (Lines{"Duplicating " + source("x"), "Verifying File ...",
                                            "Verifying File ... Failed", "Verifying File ... Succeeded"}));
    EXPECT_EQ(report()["problems"][0]["kind"], "keptTail");
    EXPECT_EQ(report()["problems"][0]["reason"], "The copy holds 4 bytes of an older file behind it");
}

TEST_F(FileCopyFile, TailBehindWholeBlocksGoesUnnoticed)
{
    for (const std::size_t size : {std::size_t{0}, MiB, 2 * MiB}) {
        const auto name = "x" + std::to_string(size);
        const auto content = test::patternOf(size);
        m_tree.file("source/" + name, content);
        m_tree.file("a/" + name, content + "tail");
        m_engine.setBVerifyFiles(true);
        runJob({name});
        EXPECT_EQ(m_recorder.messages().back(), "Verifying File ... Succeeded");
        EXPECT_EQ(m_tree.read("a/" + name), content + "tail");
        EXPECT_FALSE(isAllDone(m_report->summary())) << "the report knows";
        EXPECT_EQ(report()["destinations"][0]["verified"], 0);
        EXPECT_EQ(report()["destinations"][0]["copied"], 0);
    }
    const auto messages = m_recorder.messages();
    EXPECT_EQ(std::count(messages.begin(), messages.end(), "Verifying File ... Failed"), 0);
}

TEST_F(FileCopyFile, EachDifferingBlockOfEachCopyFailsAndTheFileSucceedsAllTheSame)
{
    const auto content = test::patternOf(3 * MiB);
    m_tree.file("source/x", content);
    auto twice = content;
    twice[5] = static_cast<char>(twice[5] + 1);
    twice[2 * MiB + 5] = static_cast<char>(twice[2 * MiB + 5] + 1);
    m_tree.file("a/x", twice);
    m_tree.file("b/x", content);
    m_tree.file("c/x", content.substr(0, 2 * MiB));
    setJob({}, {"a", "b", "c"});
    EXPECT_EQ(m_engine.FileCompareOutArray(source("x"), outs("x", {"a", "b", "c"})), 1);
    EXPECT_EQ(m_recorder.all(),
              (Lines{"FileCopyMessage Verifying File ...", "FileCopyMessage Verifying File ... Failed",
                     "FileProgress 33.3333", "FileProgress 66.6667",
                     "FileCopyMessage Verifying File ... Failed", "FileCopyMessage Verifying File ... Failed",
                     "FileProgress 100", "FileCopyMessage Verifying File ... Succeeded"}));
}

TEST_F(FileCopyFile, MissingCopyIsNotReportedByComparing)
{
    m_tree.file("source/x");
    setJob({});
    EXPECT_EQ(m_engine.FileCompareOutArray(source("x"), outs("x")), 1);
    EXPECT_EQ(m_recorder.messages(), (Lines{"Verifying File ...", "Verifying File ... Succeeded"}));
}

TEST_F(FileCopyFile, SourceThatCannotBeOpenedTouchesNothing)
{
    m_tree.file("a/x", "old");
    setJob({}, {"a"});
    EXPECT_EQ(m_engine.FileCopyOutArray(source("x"), outs("x")), -1);
    EXPECT_EQ(m_recorder.all(), (Lines{"FileCopyMessage Duplicating " + source("x")}));
    EXPECT_EQ(m_systemLog.all(), (Lines{"Open of " + source("x") + " for reading failed"}));
    EXPECT_EQ(m_tree.read("a/x"), "old");
    EXPECT_EQ(m_engine.FileCompareOutArray(source("x"), outs("x")), -1);
}

TEST_F(FileCopyFile, UnreadableSourceIsNotCounted)
{
    m_tree.file("source/good");
    runJob({"missing", "good"}, {"a"}, 2);
    EXPECT_EQ(m_recorder.all()[2], "TotalProgress 0.5");
}

TEST_F(FileCopyFile, AbsentDestinationIsPassedOver)
{
    m_tree.file("source/x");
    setJob({}, {"a", "b"});
    EXPECT_EQ(m_engine.FileCopyOutArray(source("x"), {std::nullopt, copy("b", "x")}), 1);
    EXPECT_FALSE(m_tree.exists("a/x"));
    EXPECT_TRUE(m_tree.exists("b/x"));
}

TEST_F(FileCopyFile, FolderIsCopiedWithoutAMessageOfItsOwn)
{
    m_tree.file("source/docs/x");
    setJob({});
    EXPECT_EQ(m_engine.FileCopyOutArray(source("docs"), outs("docs")), 1);
    EXPECT_EQ(m_recorder.messages(), (Lines{"Duplicating " + source("docs/x")}));
}

TEST_F(FileCopyFile, DestinationThatCannotBeCreatedIsToldAndTheOthersGoOn)
{
    m_tree.file("source/docs/x", "data");
    m_tree.file("a/docs", "in the way");
    runJob({"docs/x"}, {"a", "b"});
    EXPECT_EQ(m_recorder.messages(),
              (Lines{"Duplicating " + source("docs/x"),
                     "Can`t Duplicate " + source("docs/x") + " to " + m_tree.path("a")}));
    EXPECT_EQ(m_tree.read("b/docs/x"), "data");
    EXPECT_EQ(report()["problems"][0]["reason"], "Not a directory");
}

TEST_F(FileCopyFile, ExistingDestinationThatCannotBeOpenedIsOnlyInTheReport)
{
    m_tree.file("source/x", "data");
    m_tree.folder("a/x");
    runJob({"x"}, {"a", "b"});
    EXPECT_EQ(m_recorder.messages(), (Lines{"Duplicating " + source("x")}));
    EXPECT_EQ(report()["destinations"][0]["failed"], 1);
    EXPECT_EQ(report()["destinations"][1]["copied"], 1);
}

TEST_F(FileCopyFile, CopyHasTheSourcesPermissionsAndItsOwnDate)
{
    const auto script = m_tree.file("source/script", "#!");
    ASSERT_EQ(::chmod(script.c_str(), 0751), 0);
    const timespec old[2] = {{1'000'000, 0}, {1'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, script.c_str(), old, 0), 0);
    runJob({"script"});
    struct stat status{};
    ASSERT_EQ(::stat(copy("a", "script").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0751U);
    EXPECT_GT(status.st_mtim.tv_sec, 1'000'000);
}

TEST_F(FileCopyFile, ReadOnlySourceGetsItsBytes)
{
    const auto locked = m_tree.file("source/locked", "bytes");
    ASSERT_EQ(::chmod(locked.c_str(), 0444), 0);
    runJob({"locked"});
    EXPECT_EQ(m_tree.read("a/locked"), "bytes");
    struct stat status{};
    ASSERT_EQ(::stat(copy("a", "locked").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0444U);
}

TEST_F(FileCopyFile, NamesThatAreNotTextAreCopiedRightAndShownEscaped)
{
    const std::string names[] = {"not utf8 \xFF\xFE", "new\nline", " blanks at the ends ", "-rf",
                                 std::string(255, 'n')};
    for (const auto &name : names)
        m_tree.file("source/docs/" + name, name);
    runJob({"docs"});
    for (const auto &name : names)
        EXPECT_EQ(m_tree.read("a/docs/" + name), name);
    const auto messages = m_recorder.messages();
    const auto holds = [&](const std::string &text) {
        return std::find(messages.begin(), messages.end(), text) != messages.end();
    };
    EXPECT_TRUE(holds("Duplicating " + source("docs/not utf8 \\xFF\\xFE")));
    EXPECT_TRUE(holds("Duplicating " + source("docs/new\\x0Aline")));
}

TEST_F(FileCopyFile, VerifyIsReadFileByFile)
{
    m_tree.file("source/docs/1");
    m_tree.file("source/docs/2");
    m_recorder.onEach([this](const std::string &line) {
        if (line == "FileCopyMessage Verifying File ... Succeeded")
            m_engine.setBVerifyFiles(false);
    });
    m_engine.setBVerifyFiles(true);
    runJob({"docs"}, {"a"}, 2);
    const auto messages = m_recorder.messages();
    EXPECT_EQ(std::count(messages.begin(), messages.end(), "Verifying File ..."), 1);
}

TEST_F(FileCopyFile, LinkOnTheDestinationThatStaysInsideIsFollowed)
{
    m_tree.file("source/x", "new");
    m_tree.file("a/elsewhere/x", "old");
    m_tree.link("a/x", "elsewhere/x");
    m_tree.file("source/sub/y", "new");
    m_tree.file("a/other", "old");
    m_tree.link("a/sub/y", "../other");
    runJob({"x", "sub/y"});
    EXPECT_EQ(m_tree.read("a/elsewhere/x"), "new");
    EXPECT_EQ(m_tree.read("a/other"), "new");
}

TEST_F(FileCopyFile, FewDescriptorsAreHeldAtAnyDepth)
{
    std::string deep = "docs";
    for (int i = 0; i < 60; ++i)
        deep += "/level" + std::to_string(i);
    m_tree.file("source/" + deep + "/file", test::patternOf(3 * MiB));
    std::size_t most = 0;
    m_recorder.onEach([&](const std::string &) {
        std::size_t open = 0;
        for (int number = 0; number < 1024; ++number)
            open += ::fcntl(number, F_GETFD) != -1 ? 1U : 0U;
        most = std::max(most, open);
    });
    std::size_t before = 0;
    for (int number = 0; number < 1024; ++number)
        before += ::fcntl(number, F_GETFD) != -1 ? 1U : 0U;
    runJob({"docs"}, {"a", "b"});
    EXPECT_LE(most - before, 16U);
    EXPECT_EQ(m_tree.read("b/" + deep + "/file").size(), 3 * MiB);
}

} // namespace orvana
