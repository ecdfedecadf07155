#include "foundation/TreeRoot.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

struct Item
{
    explicit Item(std::string text) : path(std::move(text)) {}
    std::string path;
};

} // namespace

TEST(TreeRoot, SamePathObjectKeepsTheTreeAndAnotherOneOfTheSameTextDoesNot)
{
    TreeRoot<Item> root;
    const auto path = std::make_shared<const std::string>("/Volumes/Master");
    root.setPath(path);
    const auto item = root.item();
    EXPECT_EQ(item->path, "/Volumes/Master");
    root.setPath(path);
    EXPECT_EQ(root.item(), item);
    root.setPath(std::make_shared<const std::string>("/Volumes/Master"));
    EXPECT_NE(root.item(), item);
}

TEST(TreeRoot, NullStandsForAnEmptyPath)
{
    TreeRoot<Item> root;
    EXPECT_EQ(*root.path(), "");
    root.setPath(nullptr);
    ASSERT_NE(root.path(), nullptr);
    EXPECT_EQ(root.item()->path, "");
}

} // namespace orvana
