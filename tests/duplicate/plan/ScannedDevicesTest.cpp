#include "duplicate/plan/ScannedDevices.h"

#include "support/MadeUpDevices.h"

#include <gtest/gtest.h>

namespace orvana
{

using namespace test;

TEST(ScannedDevices, AllDisksAreThoseOfEveryList)
{
    const ScannedDevices devices{{enclosure(7, {inBay("Slot-A", disk(1, {volume("/Volumes/A")}))})},
                                 {startupDisk()},
                                 {enclosure(8, {disk(5, {volume("/Volumes/E")})})}};
    std::vector<std::string> found;
    for (const auto &disk : devices.allDisks())
        found.push_back(disk->devPath().value_or(""));
    EXPECT_EQ(found.size(), 3U);
    EXPECT_EQ(found.front(), "/dev/disk1");
    EXPECT_EQ(found.back(), "/dev/disk5");
}

TEST(ScannedDevices, StartupVolumeIsShownAsTheUsersHome)
{
    const auto root = volume("/");
    EXPECT_TRUE(isStartupVolume(*root));
    EXPECT_EQ(displayName(*root, Anna), "anna");
    EXPECT_EQ(rootPath(*root, Anna), "/Users/anna");
    const auto other = volume("/Volumes/COPY 1");
    EXPECT_FALSE(isStartupVolume(*other));
    EXPECT_EQ(displayName(*other, Anna), "COPY 1");
    EXPECT_EQ(rootPath(*other, Anna), "/Volumes/COPY 1");
    EXPECT_TRUE(isStartupDisk(*startupDisk()));
}

TEST(ScannedDevices, DiskIsInABayOnlyUnderTheNameOfOne)
{
    EXPECT_EQ(bayOfDisk(*inBay("Slot-C", disk(1, {}))), Bay::C);
    EXPECT_EQ(bayOfDisk(*inBay("Slot-E", disk(1, {}))), std::nullopt);
    EXPECT_EQ(bayOfDisk(*disk(1, {})), std::nullopt);
}

} // namespace orvana
