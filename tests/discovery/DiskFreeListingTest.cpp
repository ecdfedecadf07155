#include "discovery/DiskFreeListing.h"
#include "support/DiskFreeLine.h"

#include <gtest/gtest.h>

namespace orvana
{

using test::line;

TEST(DiskFreeListing, ColumnsAreReadByTheirPosition)
{
    const auto lines = parseDiskFree(
        "Filesystem 512-blocks Used Available\n" + line("/dev/disk3s1", "/Volumes/My Disk"), "/dev/disk");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].device, "/dev/disk3s1");
    EXPECT_EQ(lines[0].capacity, 1000);
    EXPECT_EQ(lines[0].available, 400);
    EXPECT_EQ(lines[0].mountPoint, "/Volumes/My Disk");
}

TEST(DiskFreeListing, RunsOfBlanksInAMountPointCollapse)
{
    EXPECT_EQ(parseDiskFree(line("/dev/disk3s1", "/Volumes/My  \t Disk "), "/dev/disk")[0].mountPoint,
              "/Volumes/My Disk");
}

TEST(DiskFreeListing, ShortLinesAndWrongNumbersLeaveFieldsEmpty)
{
    const auto lines = parseDiskFree(
        "/dev/disk1 12x 3\n/dev/disk2\n/dev/disk3 99999999999999999999 0 -5 1 2 3 4\n", "/dev/disk");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].capacity, std::nullopt);
    EXPECT_EQ(lines[0].available, std::nullopt);
    EXPECT_EQ(lines[1].mountPoint, "");
    EXPECT_EQ(lines[2].capacity, std::nullopt) << "beyond 64 bits";
    EXPECT_EQ(lines[2].available, -5);
}

TEST(DiskFreeListing, HostileTextNeverCrashes)
{
    EXPECT_TRUE(parseDiskFree(line("/dev/disk1", "/Volumes/\xFF"), "/dev/disk").empty())
        << "not UTF-8, so no lines";
    EXPECT_EQ(parseDiskFree("/dev/disk1", "/dev/disk").size(), 1U) << "cut at the end";
    EXPECT_EQ(parseDiskFree(std::string("/dev/disk1\0 5\n", 14), "/dev/disk")[0].device,
              std::string("/dev/disk1\0", 11));
    EXPECT_EQ(
        parseDiskFree(line("/dev/disk1", std::string(10'000'000, 'x')), "/dev/disk")[0].mountPoint.size(),
        10'000'000U);
    EXPECT_TRUE(parseDiskFree(" \n\n\t\n", "").empty());
}

} // namespace orvana
