#include "platform/VolumeFiles.h"

#include <gtest/gtest.h>

namespace orvana::platform
{

TEST(NameList, GivesTheNamesInTheirOrder)
{
    NameList names;
    EXPECT_TRUE(names.empty());
    names.add("b");
    names.add("a longer name");
    ASSERT_FALSE(names.empty());
    EXPECT_EQ(names.next(), "b");
    EXPECT_EQ(names.takeNext(), "b");
    EXPECT_EQ(names.next(), "a longer name");
    EXPECT_EQ(names.takeNext(), "a longer name");
    EXPECT_TRUE(names.empty());
    names.add("one more");
    EXPECT_EQ(names.takeNext(), "one more");
    EXPECT_TRUE(names.empty());
}

TEST(NameList, ManyNamesComeFromManyPieces)
{
    NameList names;
    constexpr int Count = 100'000;
    for (int i = 0; i < Count; ++i)
        names.add("name " + std::to_string(i));
    names.add(std::string(255, 'x'));
    for (int i = 0; i < Count; ++i) {
        ASSERT_FALSE(names.empty());
        const auto expected = "name " + std::to_string(i);
        ASSERT_EQ(names.next(), expected);
        ASSERT_EQ(names.takeNext(), expected);
    }
    EXPECT_EQ(names.takeNext(), std::string(255, 'x'));
    EXPECT_TRUE(names.empty());
}

TEST(NameList, NameInHandStaysWhenTheListMoves)
{
    NameList names;
    names.add("short");
    names.add("other");
    std::vector<NameList> lists;
    lists.push_back(std::move(names));
    EXPECT_EQ(lists.back().takeNext(), "short");
    lists.resize(10);
    EXPECT_EQ(lists.front().takeNext(), "other");
}

} // namespace orvana::platform
