#include "duplicate/engine/SourceFiles.h"

#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace orvana
{

class SourceFilesTest : public testing::Test
{
protected:
    bool mayBeSource(const std::string &relative)
    {
        const SourceFiles files(m_files.workingFolder(), {m_tree.path("ticked")});
        auto volume = m_files.openFolder(m_tree.root(), platform::Reach::Beneath).value();
        const auto existing =
            volume->attributes(relative, platform::Links::Follow, platform::Want::Basics).value();
        return files.mayBeSource(*volume, relative, existing);
    }

    platform::posix::PosixVolumeFiles m_files;
    test::TemporaryTree m_tree;
};

TEST_F(SourceFilesTest, FileInATickedFolderIsTheSourcesAtAnyDepth)
{
    m_tree.file("ticked/a/b");
    EXPECT_TRUE(mayBeSource("ticked/a/b"));
}

TEST_F(SourceFilesTest, FileBesideItWithOneNameIsNot)
{
    m_tree.folder("ticked");
    m_tree.file("beside/x");
    EXPECT_FALSE(mayBeSource("beside/x"));
}

TEST_F(SourceFilesTest, FileWithSeveralNamesMayBe)
{
    m_tree.file("ticked/a");
    m_tree.folder("beside");
    std::filesystem::create_hard_link(m_tree.path("ticked/a"), m_tree.path("beside/a"));
    EXPECT_TRUE(mayBeSource("beside/a"));
}

} // namespace orvana
