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

TEST(ScannedDevices, DiskIsInABayOnlyUnderTheNameOfOne)
{
    EXPECT_EQ(bayOfDisk(*inBay("Slot-C", disk(1, {}))), Bay::C);
    EXPECT_EQ(bayOfDisk(*inBay("Slot-E", disk(1, {}))), std::nullopt);
    EXPECT_EQ(bayOfDisk(*disk(1, {})), std::nullopt);
}

TEST(ScannedDevices, StartupVolumeIsShownAsTheUsersHome)
{
    EXPECT_EQ(displayName(*volume("/"), Anna), "anna");
    EXPECT_EQ(rootPath(*volume("/"), Anna), "/Users/anna");
}

TEST(ScannedDevices, OtherVolumesAreShownByTheLastPartOfTheirMountPoint)
{
    EXPECT_EQ(displayName(*volume("/media/anna/My Disk"), Anna), "My Disk");
    EXPECT_EQ(rootPath(*volume("/media/anna/My Disk"), Anna), "/media/anna/My Disk");
}

TEST(ScannedDevices, UnmountedVolumeHasNeitherNameNorRoot)
{
    EXPECT_EQ(displayName(*unmountedVolume(), Anna), "");
    EXPECT_EQ(rootPath(*unmountedVolume(), Anna), "");
}

TEST(ScannedDevices, VolumeAtTheTopOfAllIsTheStartupVolume)
{
    EXPECT_TRUE(isStartupVolume(*volume("/")));
    EXPECT_FALSE(isStartupVolume(*volume("/Volumes/COPY 1")));
    EXPECT_TRUE(isStartupDisk(*startupDisk()));
}

} // namespace orvana
