#include "platform/RegistryTree.h"

#include <gtest/gtest.h>

namespace orvana::platform
{

TEST(RegistryTree, EntryThatWasHandedOutKeepsItsTreeAlive)
{
    std::vector<RegistryEntryPtr> found;
    {
        const auto root = RegistryNode::makeRoot();
        root->add("IOPCIDevice", "RP05@1C").add("IOMedia", "disk3", {{"Whole", true}});
        root->collect({"IOMedia", {}}, found);
    }
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0]->name(), "disk3");
    EXPECT_TRUE(found[0]->path().ends_with("/RP05@1C/disk3")) << found[0]->path();
    EXPECT_EQ(found[0]->parent()->name(), "RP05") << "the name is what stands before the @";
}

TEST(RegistryTree, ParentsAreFoundBeforeTheirChildrenAndPropertiesMustMatch)
{
    const auto root = RegistryNode::makeRoot();
    auto &first = root->add("IOMedia", "a", {{"Leaf", true}});
    first.add("IOMedia", "b", {{"Leaf", true}});
    root->add("IOMedia", "c", {{"Leaf", false}});
    std::vector<RegistryEntryPtr> found;
    root->collect({"IOMedia", {{"Leaf", true}}}, found);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0]->name(), "a");
    EXPECT_EQ(found[1]->name(), "b");
}

TEST(RegistryTree, NameMayBeUnreadable)
{
    const auto root = RegistryNode::makeRoot();
    auto &node = root->add("IOMedia", "a");
    node.setName(std::nullopt);
    EXPECT_EQ(node.name(), std::nullopt);
    EXPECT_TRUE(node.path().ends_with("/a"));
}

} // namespace orvana::platform
