#include "filetree/ReservedPaths.h"

#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(ReservedPaths, OwnLibraryAndPublicAreReservedAsWholePathsOnly)
{
    test::TestHost host("/home/tester");
    const ReservedPaths reserved(host);
    EXPECT_TRUE(reserved.contains("/home/tester/Library"));
    EXPECT_TRUE(reserved.contains("/home/tester/Public"));
    EXPECT_FALSE(reserved.contains("/home/tester/Library/Fonts"));
    EXPECT_FALSE(reserved.contains("/home/other/Library"));
    EXPECT_FALSE(reserved.contains("Library"));
    EXPECT_TRUE(reserved.containsEntry("/home/tester", "Public"));
    EXPECT_FALSE(reserved.containsEntry("/home/tester/a", "Public"));
}

TEST(ReservedPaths, ReservedWordCountsAnywhereInThePath)
{
    for (const char *path :
         {"/Volumes/A/System Volume Information", "/a/Temporary Items/b", "x Network Trash Folder x"})
        EXPECT_TRUE(ReservedPaths::holdsReservedWord(path)) << path;
    EXPECT_FALSE(ReservedPaths::holdsReservedWord("/a/temporary items/b"));
}

} // namespace orvana
