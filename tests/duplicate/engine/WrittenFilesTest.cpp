#include "duplicate/engine/WrittenFiles.h"

#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace orvana
{

class WrittenFilesTest : public testing::Test
{
protected:
    WrittenFilesTest() : m_volume(m_files.openFolder(m_tree.root(), platform::Reach::Beneath).value()) {}

    platform::Attributes of(const std::string &name)
    {
        return m_volume->attributes(name, platform::Links::Follow, platform::Want::Basics).value();
    }

    platform::posix::PosixVolumeFiles m_files;
    test::TemporaryTree m_tree;
    std::unique_ptr<platform::Folder> m_volume;
    WrittenFiles m_written;
};

TEST_F(WrittenFilesTest, FileThatTheRunDidNotWriteIsNobodys)
{
    m_tree.file("a");
    m_tree.file("b");
    m_written.add(of("a"), "/source/a");
    EXPECT_EQ(m_written.ownerOf(*m_volume, "b", "/source/b"), WrittenFiles::Owner::Nobody);
}

TEST_F(WrittenFilesTest, SecondNameOfAWrittenFileBelongsToAnotherSource)
{
    m_tree.file("a");
    std::filesystem::create_hard_link(m_tree.path("a"), m_tree.path("b"));
    m_written.add(of("a"), "/source/a");
    EXPECT_EQ(m_written.ownerOf(*m_volume, "b", "/source/b"), WrittenFiles::Owner::OtherSource);
    EXPECT_EQ(WrittenFiles::otherNameOf(*m_volume, "b"), "a");
}

TEST_F(WrittenFilesTest, LinkToAWrittenFileBelongsToAnotherSource)
{
    m_tree.file("a");
    m_tree.link("b", "a");
    m_written.add(of("a"), "/source/a");
    EXPECT_EQ(m_written.ownerOf(*m_volume, "b", "/source/b"), WrittenFiles::Owner::OtherSource);
}

TEST_F(WrittenFilesTest, SameSourceAgainIsNoOther)
{
    m_tree.file("a");
    m_written.add(of("a"), "/source/a");
    EXPECT_NE(m_written.ownerOf(*m_volume, "a", "/source/a"), WrittenFiles::Owner::OtherSource);
}

} // namespace orvana
