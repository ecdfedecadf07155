#include "platform/simulator/UsedSpace.h"

#include "support/TemporaryTree.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace orvana::platform::simulator
{

namespace
{

TEST(UsedSpace, IsTheSumOfAllFilesAndLinksCountAsNothing)
{
    const test::TemporaryTree tree;
    tree.file("a", "12345");
    tree.file("deep/er/b", "123");
    tree.folder("empty");
    std::filesystem::create_symlink("a", tree.path("link"));
    std::filesystem::create_directory_symlink("deep", tree.path("link to a folder"));
    EXPECT_EQ(bytesBelow(tree.path("")), 8U);
    EXPECT_EQ(bytesBelow(tree.path("gone")), 0U);
    EXPECT_EQ(bytesBelow(tree.path("link to a folder")), 0U);
}

TEST(UsedSpace, OfManyFoldersIsTheSame)
{
    const test::TemporaryTree tree;
    for (int i = 0; i < 300; ++i)
        tree.file(std::to_string(i % 20) + "/" + std::to_string(i) + "/file", "1234567");
    EXPECT_EQ(bytesBelow(tree.path("")), 2100U);
}

TEST(UsedSpace, OfASmallVolumeIsExactAtAnyTime)
{
    const test::TemporaryTree tree;
    UsedSpace used;
    EXPECT_EQ(used.of(tree.path("")), 0U);
    for (std::uint64_t i = 1; i <= 20; ++i) {
        tree.file(std::to_string(i), "x");
        EXPECT_EQ(used.of(tree.path("")), i);
    }
}

} // namespace

} // namespace orvana::platform::simulator
