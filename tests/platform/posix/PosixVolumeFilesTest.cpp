// Behaviour that the contract of files does not cover, because only real files have it.

#include "platform/posix/PosixVolumeFiles.h"

#include "support/TemporaryTree.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace orvana::platform::posix
{

TEST(PosixVolumeFiles, TwoNamesOfOneFileHaveOneInodeAndTwoLinks)
{
    const test::TemporaryTree tree;
    tree.file("a");
    std::filesystem::create_hard_link(tree.path("a"), tree.path("b"));
    PosixVolumeFiles files;
    const auto a = files.workingFolder().attributes(tree.path("a"), Links::Follow, Want::Basics).value();
    const auto b = files.workingFolder().attributes(tree.path("b"), Links::Follow, Want::Basics).value();
    EXPECT_EQ(a.inode, b.inode);
    EXPECT_EQ(a.links, 2U);
}

TEST(PosixVolumeFiles, PathLongerThanTheSystemTakesIsOpenedPiecewise)
{
    const test::TemporaryTree tree;
    PosixVolumeFiles files;
    auto volume = files.openFolder(tree.root(), Reach::Beneath).value();
    Attributes like;
    like.type = FileType::Folder;
    like.permissions = 0755;
    std::string path;
    for (int depth = 0; depth < 30; ++depth) {
        path += (path.empty() ? "" : "/") + std::string(200, 'n');
        ASSERT_TRUE(volume->makeFolder(path, like)) << depth;
    }
    EXPECT_GT(path.size(), 4096U);
    EXPECT_TRUE(volume->createFile(path + "/x", {}));
    EXPECT_TRUE(volume->attributes(path + "/x", Links::DoNotFollow, Want::Basics));
}

} // namespace orvana::platform::posix
