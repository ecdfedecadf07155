#include "duplicate/engine/Destination.h"

#include "platform/posix/PosixVolumeFiles.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvana
{

using platform::FileProblem;

class DestinationTest : public testing::Test
{
protected:
    static platform::Attributes folderLike(std::uint32_t permissions)
    {
        platform::Attributes like;
        like.type = platform::FileType::Folder;
        like.permissions = permissions;
        return like;
    }

    static unsigned permissionsOf(const std::string &path)
    {
        struct stat status{};
        EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
        return status.st_mode & 07777U;
    }

    platform::posix::PosixVolumeFiles m_files;
    test::TemporaryTree m_tree;
    std::string m_root = m_tree.folder("volume");
    Destination m_destination{m_files, m_root};
};

TEST_F(DestinationTest, PathThatDoesNotLieBeneathTheRootIsRefused)
{
    for (const auto &path : {m_tree.path("elsewhere/x"), m_root + "2/x", m_root + "/../x"}) {
        const auto made = m_destination.createFile(path, {});
        ASSERT_FALSE(made) << path;
        EXPECT_EQ(made.error().problem, FileProblem::LeadsOutOfVolume) << path;
    }
    EXPECT_EQ(m_destination.placeOf(m_root + "/a/b").value(), "a/b");
}

TEST_F(DestinationTest, NewFolderIsOpenToItsOwnerUntilItIsFinished)
{
    const auto path = m_root + "/a/b";
    ASSERT_EQ(m_destination.createFolder(path, folderLike(0555)).value(), Destination::Made::New);
    EXPECT_EQ(permissionsOf(path) & 0700U, 0700U);
    EXPECT_TRUE(m_destination.createFile(path + "/x", {}));
    m_destination.finishFolder(path, folderLike(0555));
    EXPECT_EQ(permissionsOf(path), 0555U);
    m_destination.finishFolders();
    EXPECT_EQ(permissionsOf(m_root + "/a"), 0555U) << "made above it";
    EXPECT_EQ(m_destination.createFolder(path, folderLike(0700)).value(), Destination::Made::Existed);
}

TEST_F(DestinationTest, OtherFolderThanTheExpectedOneTakesNothing)
{
    m_destination.expect(FolderIdentity{1, 1});
    EXPECT_FALSE(m_destination.isOpen());
    EXPECT_FALSE(m_destination.createFile(m_root + "/x", {}));
    EXPECT_TRUE(test::treeOf(m_root).empty());
}

TEST_F(DestinationTest, FolderThatIsMissingIsNotOpenAndSaysWhy)
{
    const Destination missing(m_files, m_tree.path("missing"));
    EXPECT_FALSE(missing.isOpen());
    EXPECT_EQ(missing.openError().problem, FileProblem::NotFound);
}

TEST_F(DestinationTest, FileInThePlaceOfAFolderStaysAndIsTheError)
{
    m_tree.file("volume/a", "kept");
    const auto made = m_destination.createFolder(m_root + "/a", folderLike(0755));
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().problem, FileProblem::NotAFolder);
    EXPECT_EQ(m_tree.read("volume/a"), "kept");
}

} // namespace orvana
