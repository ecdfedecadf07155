// Counting the files of a folder.

#include "duplicate/engine/EngineFixture.h"

namespace orvana
{

class FileCopyCount : public test::EngineTest
{
};

TEST_F(FileCopyCount, NumbersOfFolderCountsFilesWithoutHiddenOnes)
{
    m_tree.file("source/docs/one.txt");
    m_tree.file("source/docs/sub/two.txt");
    m_tree.file("source/docs/sub/three.txt");
    m_tree.file("source/docs/.hidden");
    m_tree.file("source/docs/.folder/three.txt");
    m_tree.folder("source/docs/empty");
    m_tree.link("source/docs/link", "sub");
    m_tree.link("source/docs/dangling", "nowhere");
    EXPECT_EQ(m_engine.numbersOfFolder(source("docs")), 6)
        << "three files, two of them by a link once more, and a link to nothing";
    EXPECT_EQ(m_engine.numbersOfFolder(source("docs/one.txt")), 1);
    EXPECT_EQ(m_engine.numbersOfFolder(source("nothing")), 1);
    EXPECT_EQ(m_engine.numbersOfFolder(source("docs/empty")), 0);
    m_engine.setBHiddenFiles(true);
    EXPECT_EQ(m_engine.numbersOfFolder(source("docs")), 8);
}

TEST_F(FileCopyCount, NumbersOfFolderLeavesOutHiddenExtensions)
{
    const auto photo = m_tree.file("source/docs/Photo.jpg");
    const auto folder = m_tree.folder("source/docs/Secret");
    m_tree.file("source/docs/Secret/file");
    m_tree.file("source/docs/shown.txt");
    if (!test::hideExtension(photo) || !test::hideExtension(folder))
        GTEST_SKIP() << "the temporary folder keeps no extended attributes";
    EXPECT_EQ(m_engine.numbersOfFolder(source("docs")), 1);
    m_engine.setBHiddenFiles(true);
    EXPECT_EQ(m_engine.numbersOfFolder(source("docs")), 3);
}

TEST_F(FileCopyCount, CountingEndsWhereLinksLeadInCircles)
{
    m_tree.file("source/docs/one.txt");
    m_tree.link("source/docs/up", "..");
    m_tree.link("source/docs/here", ".");
    EXPECT_GT(m_engine.numbersOfFolder(source("docs")), 1);
}

} // namespace orvana
