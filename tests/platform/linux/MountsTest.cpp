#include "platform/linux/Mounts.h"

#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace orvana::platform::linux_host
{

TEST(Mounts, LinesOfTheTableAreReadInTheirOrderWithTheBytesOfTheirPaths)
{
    const test::TemporaryTree tree;
    const auto mounts = readMounts(
        tree.file("mountinfo", "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
                               "30 22 8:17 / /media/My\\040Disk ro,nosuid - exfat /dev/sdb1 rw,uid=0\n"));
    ASSERT_EQ(mounts.size(), 2U);
    EXPECT_EQ(mounts[0].target, "/");
    EXPECT_EQ(mounts[1].target, "/media/My Disk");
    EXPECT_EQ(mounts[1].source, "/dev/sdb1");
    EXPECT_EQ(mounts[1].number, "8:17");
    EXPECT_EQ(mounts[1].type, "exfat");
}

TEST(Mounts, UnreadableTableIsEmpty)
{
    EXPECT_TRUE(readMounts("/no/such/file").empty());
    EXPECT_TRUE(readSwaps("/no/such/file").empty());
}

TEST(Mounts, SwapsAreNamedByTheirSources)
{
    const test::TemporaryTree tree;
    EXPECT_EQ(
        readSwaps(tree.file("swaps", "Filename Type Size Used Priority\n/dev/sda2 partition 100 0 -2\n")),
        std::vector<std::string>{"/dev/sda2"});
}

} // namespace orvana::platform::linux_host
