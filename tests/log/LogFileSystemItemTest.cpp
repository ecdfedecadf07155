#include "log/LogFileSystemItem.h"

#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana
{

class LogFileSystemItemTest : public testing::Test
{
protected:
    void makeRoot()
    {
        m_spare.setrepoRootPath(std::make_shared<const std::string>(m_tree.path("Documents")));
    }

    std::vector<std::string> shownNames()
    {
        makeRoot();
        std::vector<std::string> names;
        for (const auto &child : LogFileSystemItem::rootItem()->childrens())
            names.push_back(child->relativePath());
        return names;
    }

    test::TemporaryTree m_tree;
    LogFileSystemItem m_spare{m_tree.folder("Documents")};
};

TEST_F(LogFileSystemItemTest, RootIsNamedByItsLastComponentAndReadFromItsWholePath)
{
    m_tree.file("Documents/a-Log.txt");
    makeRoot();
    const auto root = LogFileSystemItem::rootItem();
    EXPECT_EQ(root->relativePath(), "Documents");
    EXPECT_EQ(root->fullPath(), m_tree.path("Documents"));
    EXPECT_EQ(root->childAtIndex(0)->fullPath(), m_tree.path("Documents/a-Log.txt"));
}

TEST_F(LogFileSystemItemTest, NamesAreListedNewestFirst)
{
    for (const char *name : {"20261121-102030-Log.txt", "20261122-090000-Log.txt", "20251231-235959-Log.txt"})
        m_tree.file(std::string("Documents/") + name);
    const std::vector<std::string> expected{"20261122-090000-Log.txt", "20261121-102030-Log.txt",
                                            "20251231-235959-Log.txt"};
    EXPECT_EQ(shownNames(), expected);
}

TEST_F(LogFileSystemItemTest, AnyNameWithLogTxtInItIsListedAndNoOther)
{
    for (const char *name : {"my Log.txt.bak", ".a-Log.txt", "a-log.txt", "20261121-102030-Report.json"})
        m_tree.file(std::string("Documents/") + name);
    EXPECT_EQ(shownNames(), std::vector<std::string>{"my Log.txt.bak"});
}

TEST_F(LogFileSystemItemTest, FileIsALeafAndAnEmptyFolderIsNot)
{
    m_tree.file("Documents/a-Log.txt");
    m_tree.folder("Documents/b-Log.txt");
    makeRoot();
    const auto root = LogFileSystemItem::rootItem();
    EXPECT_EQ(root->childAtIndex(0)->numberOfChildren(), 0);
    EXPECT_EQ(root->childAtIndex(1)->numberOfChildren(), -1);
    EXPECT_EQ(&root->childAtIndex(1)->children(), &LogFileSystemItem::leafMarker());
}

TEST_F(LogFileSystemItemTest, LinkThatLeadsBackUpIsALeaf)
{
    m_tree.link("Documents/circle-Log.txt", m_tree.path("Documents"));
    makeRoot();
    EXPECT_EQ(LogFileSystemItem::rootItem()->childAtIndex(0)->numberOfChildren(), -1);
}

TEST_F(LogFileSystemItemTest, MissingFolderIsALeaf)
{
    m_spare.setrepoRootPath(std::make_shared<const std::string>(m_tree.path("nowhere")));
    EXPECT_EQ(LogFileSystemItem::rootItem()->numberOfChildren(), -1);
}

TEST_F(LogFileSystemItemTest, SamePathObjectKeepsTheTreeAndANewOneReadsAgain)
{
    makeRoot();
    const auto root = LogFileSystemItem::rootItem();
    EXPECT_EQ(root->numberOfChildren(), 0);
    m_tree.file("Documents/a-Log.txt");
    m_spare.setrepoRootPath(LogFileSystemItem::repoRoot());
    EXPECT_EQ(LogFileSystemItem::rootItem(), root);
    EXPECT_EQ(root->numberOfChildren(), 0);
    makeRoot();
    EXPECT_EQ(LogFileSystemItem::rootItem()->numberOfChildren(), 1);
}

} // namespace orvana
