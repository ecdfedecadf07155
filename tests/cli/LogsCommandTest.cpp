#include "cli/LogsCommand.h"
#include "cli/Terminal.h"
#include "foundation/PathJson.h"
#include "platform/hosts/HostChoice.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana::cli
{

class LogsCommand : public testing::Test
{
protected:
    LogsCommand()
    {
        m_tree.file("home/Documents/20261121-102030-Log.txt", "older\n");
        m_tree.file("home/Documents/20261122-090000-Log.txt", "newer\n");
        m_tree.file("home/Documents/20261122-090000-Report.json", "{}");
    }

    ExitStatus run(const std::string &action, std::vector<std::string> names = {})
    {
        m_options.action = action;
        m_options.names = std::move(names);
        char *out = nullptr;
        char *err = nullptr;
        std::size_t outSize = 0;
        std::size_t errSize = 0;
        std::FILE *outFile = ::open_memstream(&out, &outSize);
        std::FILE *errFile = ::open_memstream(&err, &errSize);
        Terminal terminal(outFile, errFile, m_isScreen);
        const auto status = runLogs(m_host, terminal, m_options);
        std::fclose(outFile);
        std::fclose(errFile);
        m_out.assign(out, outSize);
        m_err.assign(err, errSize);
        std::free(out);
        std::free(err);
        return status;
    }

    std::vector<std::string> left() const { return test::treeOf(m_tree.path("home/Documents")); }

    test::TemporaryTree m_tree;
    test::TestHost m_host{m_tree.path("home")};
    LogsOptions m_options;
    bool m_isScreen = false;
    std::string m_out;
    std::string m_err;
};

TEST_F(LogsCommand, ListsTheLogsOfDocumentsNewestFirst)
{
    EXPECT_EQ(run("list"), AllDone);
    EXPECT_EQ(m_out, "20261122-090000-Log.txt\n20261121-102030-Log.txt\n");
}

TEST_F(LogsCommand, ListsAnotherFolderWhenTold)
{
    m_options.logFolder = m_tree.folder("logs");
    EXPECT_EQ(run("list"), AllDone);
    EXPECT_EQ(m_out, "");
}

TEST_F(LogsCommand, MissingFolderIsNotThere)
{
    m_options.logFolder = m_tree.path("nowhere");
    EXPECT_EQ(run("list"), NotThere);
    EXPECT_EQ(m_err, "plurimoctl: " + m_tree.path("nowhere") + ": No such file or directory\n");
}

TEST_F(LogsCommand, JsonTellsFolderSizesAndReports)
{
    m_options.json = true;
    EXPECT_EQ(run("list"), AllDone);
    const auto object = Json::parse(m_out);
    EXPECT_EQ(object["folder"], m_tree.path("home/Documents"));
    ASSERT_EQ(object["logs"].size(), 2U);
    EXPECT_EQ(object["logs"][0]["name"], "20261122-090000-Log.txt");
    EXPECT_EQ(object["logs"][0]["bytes"], 6);
    EXPECT_EQ(object["logs"][0]["reports"], Json::array({"20261122-090000-Report.json"}));
    EXPECT_EQ(object["logs"][1]["reports"], Json::array());
}

TEST_F(LogsCommand, ShowsALogByteForByte)
{
    m_tree.file("home/Documents/a-Log.txt", "\x1b[31m no newline at the end");
    EXPECT_EQ(run("show", {"a-Log.txt"}), AllDone);
    EXPECT_EQ(m_out, "\x1b[31m no newline at the end");
}

TEST_F(LogsCommand, LogCannotSteerAScreen)
{
    m_isScreen = true;
    m_tree.file("home/Documents/a-Log.txt", "one\n\x1b[31m two");
    EXPECT_EQ(run("show", {"a-Log.txt"}), AllDone);
    EXPECT_EQ(m_out, "one\n\\x1B[31m two\n");
}

TEST_F(LogsCommand, LogThatIsMissingIsNamed)
{
    EXPECT_EQ(run("show", {"b-Log.txt"}), NotThere);
    EXPECT_EQ(m_err, "plurimoctl: b-Log.txt: No such file or directory\n");
}

TEST_F(LogsCommand, NameIsAskedForWhereOneIsNeeded)
{
    EXPECT_EQ(run("show"), WrongUsage);
    EXPECT_EQ(run("delete"), WrongUsage);
    EXPECT_EQ(run("clear", {"20261121-102030-Log.txt"}), WrongUsage);
    EXPECT_EQ(left().size(), 3U);
}

TEST_F(LogsCommand, DeletesALogWithItsReport)
{
    EXPECT_EQ(run("delete", {"20261122-090000-Log.txt"}), AllDone);
    EXPECT_EQ(left(), std::vector<std::string>{"20261121-102030-Log.txt"});
}

TEST_F(LogsCommand, PathIsRefusedAndNothingIsDeleted)
{
    m_tree.file("home/20261121-102030-Log.txt");
    EXPECT_EQ(run("delete", {"20261122-090000-Log.txt", "../20261121-102030-Log.txt"}), Refused);
    EXPECT_TRUE(m_tree.exists("home/20261121-102030-Log.txt"));
    EXPECT_EQ(left().size(), 3U);
}

TEST_F(LogsCommand, FileThatIsNoLogIsRefused)
{
    m_tree.file("home/Documents/thesis.txt");
    EXPECT_EQ(run("delete", {"thesis.txt"}), Refused);
    EXPECT_EQ(run("show", {"thesis.txt"}), Refused);
    EXPECT_EQ(left().size(), 4U);
}

TEST_F(LogsCommand, ClearNeedsYes)
{
    EXPECT_EQ(run("clear"), Refused);
    EXPECT_NE(m_err.find("removes all logs of " + m_tree.path("home/Documents") + " (2)"), std::string::npos)
        << m_err;
    EXPECT_EQ(left().size(), 3U);
}

TEST_F(LogsCommand, ClearRemovesAllLogsWithTheirReportsAndNothingElse)
{
    m_options.yes = true;
    m_tree.file("home/Documents/thesis.txt");
    EXPECT_EQ(run("clear"), AllDone);
    EXPECT_EQ(left(), std::vector<std::string>{"thesis.txt"});
}

TEST_F(LogsCommand, WhatCannotBeRemovedIsNamedAndTheOthersGo)
{
    m_options.yes = true;
    m_tree.folder("home/Documents/30000101-000000-Log.txt");
    EXPECT_EQ(run("clear"), SomethingFailed);
    EXPECT_EQ(m_err, "plurimoctl: 30000101-000000-Log.txt: Not a regular file\n");
    EXPECT_EQ(left(), std::vector<std::string>{"30000101-000000-Log.txt"});
}

TEST(LogFolder, IsMadeWhereItIsNamed)
{
    const test::TemporaryTree tree;
    EXPECT_FALSE(platform::makeLogFolder(std::nullopt));
    EXPECT_FALSE(platform::makeLogFolder(tree.path("a/b")));
    EXPECT_FALSE(platform::makeLogFolder(tree.path("a/b"))) << "it is there";
    EXPECT_EQ(test::treeOf(tree.root()), (std::vector<std::string>{"a", "a/b"}));
}

TEST(LogFolder, ThatCannotBeMadeIsRefusedWithTheReason)
{
    const test::TemporaryTree tree;
    tree.file("file", "");
    const auto refusal = platform::makeLogFolder(tree.path("file/logs"));
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->status, NotThere);
    EXPECT_EQ(refusal->reason,
              "the folder for logs, " + tree.path("file/logs") + ", cannot be made: Not a directory");
}

TEST_F(LogsCommand, LineWithoutAnEndIsShownPieceByPiece)
{
    std::string line;
    while (line.size() < 300'000)
        line += "a\xC3\xA4";
    m_tree.file("home/Documents/20261122-100000-Log.txt", line);
    m_isScreen = true;
    EXPECT_EQ(run("show", {"20261122-100000-Log.txt"}), AllDone);
    EXPECT_EQ(m_out, line + "\n");
}

} // namespace orvana::cli
