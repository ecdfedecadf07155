#include "foundation/Paths.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(Paths, LastComponentIsTheNameWithoutSlashes)
{
    EXPECT_EQ(lastComponent("/Volumes/COPY 1"), "COPY 1");
    EXPECT_EQ(lastComponent("/Volumes/COPY//"), "COPY");
    EXPECT_EQ(lastComponent("name"), "name");
    EXPECT_EQ(lastComponent("name/"), "name");
    EXPECT_EQ(lastComponent("//"), "/");
    EXPECT_EQ(lastComponent(""), "");
}

TEST(Paths, FolderHoldsItselfAndWhatIsBelowAndNoNeighbour)
{
    EXPECT_TRUE(isAtOrBelow("/a/b", "/a/b"));
    EXPECT_TRUE(isAtOrBelow("/a/b/c", "/a/b"));
    EXPECT_TRUE(isAtOrBelow("/a", "/"));
    EXPECT_TRUE(isAtOrBelow("/", "/"));
    EXPECT_FALSE(isAtOrBelow("/a/bc", "/a/b"));
    EXPECT_FALSE(isAtOrBelow("/a", "/a/b"));
    EXPECT_FALSE(isAtOrBelow("/a", ""));
    EXPECT_FALSE(isAtOrBelow("", ""));
}

} // namespace orvana
