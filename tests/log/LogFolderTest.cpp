#include "log/LogFolder.h"

#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvana
{

using platform::FileProblem;

class LogFolderTest : public testing::Test
{
protected:
    test::TemporaryTree m_tree;
    LogFolder m_logs{m_tree.folder("Documents")};
};

TEST(LogName, HoldsLogTxtAnywhereAndDoesNotBeginWithADot)
{
    EXPECT_TRUE(LogFolder::isLog("20261121-102030-Log.txt"));
    EXPECT_TRUE(LogFolder::isLog("my Log.txt.old"));
    EXPECT_FALSE(LogFolder::isLog(".20261121-102030-Log.txt"));
    EXPECT_FALSE(LogFolder::isLog("20261121-102030-log.txt"));
    EXPECT_FALSE(LogFolder::isLog("20261121-102030-Report.json"));
    EXPECT_FALSE(LogFolder::isLog(""));
}

TEST(LogName, IsNeverAPath)
{
    EXPECT_FALSE(LogFolder::isLog("../20261121-102030-Log.txt"));
    EXPECT_FALSE(LogFolder::isLog("/20261121-102030-Log.txt"));
    EXPECT_FALSE(LogFolder::isLog("20261121-102030-Log.txt/"));
}

TEST_F(LogFolderTest, NewestLogComesFirst)
{
    for (const char *name : {"20251231-235959-Log.txt", "20261121-102030-Log.txt", "20261121-102031-Log.txt",
                             "notes.txt", ".hidden-Log.txt"})
        m_tree.file(std::string("Documents/") + name);
    const std::vector<std::string> expected{"20261121-102031-Log.txt", "20261121-102030-Log.txt",
                                            "20251231-235959-Log.txt"};
    EXPECT_EQ(m_logs.names(), expected);
}

TEST_F(LogFolderTest, MissingFolderIsToldApartFromAnEmptyOne)
{
    EXPECT_EQ(m_logs.names(), std::vector<std::string>());
    const auto names = LogFolder(m_tree.path("nowhere")).names();
    ASSERT_FALSE(names);
    EXPECT_EQ(names.error().problem, FileProblem::NotFound);
}

TEST_F(LogFolderTest, LongLogIsHandedOverWhole)
{
    const auto content = test::patternOf(3000000);
    m_tree.file("Documents/a-Log.txt", content);
    std::string read;
    EXPECT_TRUE(m_logs.read("a-Log.txt", [&](std::string_view piece) { read += piece; }));
    EXPECT_TRUE(read == content);
}

TEST_F(LogFolderTest, WhatIsNoFileIsNotRead)
{
    ::mkfifo(m_tree.path("Documents/pipe-Log.txt").c_str(), 0600);
    const auto read = m_logs.read("pipe-Log.txt", [](std::string_view) {});
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().problem, FileProblem::NotAFile);
}

TEST_F(LogFolderTest, ReportsGoWithTheirLog)
{
    for (const char *name : {"20261121-102030-Log.txt", "20261121-102030-Report.json",
                             "20261121-102030-Report-2.json", "20261121-102031-Report.json"})
        m_tree.file(std::string("Documents/") + name);
    EXPECT_EQ(m_logs.reports("20261121-102030-Log.txt").size(), 2U);
    EXPECT_TRUE(m_logs.remove("20261121-102030-Log.txt"));
    EXPECT_EQ(test::treeOf(m_logs.path()), std::vector<std::string>{"20261121-102031-Report.json"});
}

TEST_F(LogFolderTest, NoReportIsTakenFromAStrangersLog)
{
    m_tree.file("Documents/budget-Log.txt");
    m_tree.file("Documents/budget-Report.json");
    EXPECT_TRUE(m_logs.remove("budget-Log.txt"));
    EXPECT_EQ(test::treeOf(m_logs.path()), std::vector<std::string>{"budget-Report.json"});
}

TEST_F(LogFolderTest, NothingOutsideTheFolderIsRemoved)
{
    m_tree.file("20261121-102030-Log.txt");
    const auto removed = m_logs.remove("../20261121-102030-Log.txt");
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error().problem, FileProblem::NotSupported);
    EXPECT_TRUE(m_tree.exists("20261121-102030-Log.txt"));
}

TEST_F(LogFolderTest, FileThatIsNoLogIsNotRemoved)
{
    m_tree.file("Documents/thesis.txt");
    EXPECT_FALSE(m_logs.remove("thesis.txt"));
    EXPECT_TRUE(m_tree.exists("Documents/thesis.txt"));
}

TEST_F(LogFolderTest, LinkIsRemovedAndWhatItPointsToStays)
{
    m_tree.link("Documents/a-Log.txt", m_tree.file("elsewhere.txt"));
    EXPECT_TRUE(m_logs.remove("a-Log.txt"));
    EXPECT_TRUE(m_tree.exists("elsewhere.txt"));
    EXPECT_FALSE(m_tree.exists("Documents/a-Log.txt"));
}

TEST_F(LogFolderTest, FolderWithALogsNameIsNotRemoved)
{
    m_tree.file("Documents/old Log.txt files/20261121-102030-Log.txt");
    const auto removed = m_logs.remove("old Log.txt files");
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error().problem, FileProblem::NotAFile);
    EXPECT_TRUE(m_tree.exists("Documents/old Log.txt files/20261121-102030-Log.txt"));
}

TEST_F(LogFolderTest, ReportStaysWhereItsLogCannotBeRemoved)
{
    m_tree.folder("Documents/20261121-102030-Log.txt");
    m_tree.file("Documents/20261121-102030-Report.json");
    EXPECT_FALSE(m_logs.remove("20261121-102030-Log.txt"));
    EXPECT_TRUE(m_tree.exists("Documents/20261121-102030-Report.json"));
}

} // namespace orvana
