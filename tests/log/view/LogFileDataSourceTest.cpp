#include "log/view/LogFileDataSource.h"

#include "support/TemporaryTree.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

namespace orvana
{

class LogFileDataSourceTest : public testing::Test
{
protected:
    LogFileDataSourceTest()
    {
        m_tree.file("Documents/a-Log.txt");
        m_tree.file("Documents/b-Log.txt");
        reload();
    }

    void reload()
    {
        m_source.setrepoRootPath(m_node, std::make_shared<const std::string>(m_tree.path("Documents")));
    }

    test::TemporaryTree m_tree;
    LogFileSystemItem m_node{m_tree.folder("Documents")};
    LogFileDataSource m_source;
};

TEST_F(LogFileDataSourceTest, OneRowForTheFolderAndOneBelowItForEachLog)
{
    EXPECT_EQ(m_source.rowCount(), 1);
    const auto root = m_source.index(0, 0);
    EXPECT_EQ(m_source.data(root), QStringLiteral("Documents"));
    ASSERT_EQ(m_source.rowCount(root), 2);
    EXPECT_EQ(m_source.data(m_source.index(0, 0, root)), QStringLiteral("b-Log.txt"));
}

TEST_F(LogFileDataSourceTest, WhatIsNoRowReadsASlashAndCanBeOpened)
{
    EXPECT_EQ(m_source.data({}), QStringLiteral("/"));
    EXPECT_TRUE(m_source.hasChildren({}));
}

TEST_F(LogFileDataSourceTest, OnlyAFolderCanBeOpened)
{
    const auto root = m_source.index(0, 0);
    EXPECT_TRUE(m_source.hasChildren(root));
    EXPECT_FALSE(m_source.hasChildren(m_source.index(0, 0, root)));
}

TEST_F(LogFileDataSourceTest, NameThatIsNotUtf8IsShownSafely)
{
    m_tree.file("Documents/\xFF-Log.txt");
    reload();
    const auto root = m_source.index(0, 0);
    EXPECT_EQ(m_source.data(m_source.index(0, 0, root)), QStringLiteral("\\xFF-Log.txt"));
}

TEST_F(LogFileDataSourceTest, KeepsTheRulesOfModels)
{
    const QAbstractItemModelTester tester(&m_source, QAbstractItemModelTester::FailureReportingMode::Fatal);
    m_tree.file("Documents/folder Log.txt/c-Log.txt");
    reload();
    EXPECT_EQ(m_source.rowCount(m_source.index(0, 0, m_source.index(0, 0))), 1);
}

} // namespace orvana
