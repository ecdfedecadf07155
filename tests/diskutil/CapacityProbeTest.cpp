#include "diskutil/CapacityProbe.h"

#include "diskutil/PlayedRawDisk.h"

#include <gtest/gtest.h>

namespace orvana::diskutil
{

namespace
{

constexpr std::uint64_t Gigabyte = 1ULL << 30U;
constexpr std::uint64_t Megabyte = 1ULL << 20U;

} // namespace

TEST(CapacityProbe, GenuineDisksOfAnySizeAreLetThrough)
{
    for (const auto size : {std::uint64_t{4096}, std::uint64_t{8192}, std::uint64_t{100 * 1024}, 3 * Megabyte,
                            64 * Megabyte, 200 * Megabyte, 2 * Gigabyte + 4096, 8000 * Gigabyte}) {
        PlayedRawDisk disk(size);
        EXPECT_EQ(capacityLieOf(disk), std::nullopt) << size;
        EXPECT_LE(disk.bytesWritten, 64 * Megabyte + 100 * 4096) << size;
    }
}

TEST(CapacityProbe, GenuineDiskWithALargeMemoryIsLetThrough)
{
    PlayedRawDisk disk(2 * Gigabyte);
    disk.memory = 512 * Megabyte;
    EXPECT_EQ(capacityLieOf(disk), std::nullopt);
}

TEST(CapacityProbe, DiskWithoutRoomIsFound)
{
    PlayedRawDisk disk(0);
    EXPECT_EQ(capacityLieOf(disk), "it has no room at all");
}

TEST(CapacityProbe, DiskThatWrapsAtTheHalfIsFound)
{
    PlayedRawDisk disk(2 * Gigabyte);
    disk.realSize = Gigabyte;
    const auto lie = capacityLieOf(disk);
    ASSERT_TRUE(lie);
    EXPECT_NE(lie->find("is what was written at 1.00 GB"), std::string::npos) << *lie;
}

TEST(CapacityProbe, DiskThatWrapsAtAPowerOfTwoOrAPartOfItsSizeIsFound)
{
    for (const auto size : {2'000'398'934'016ULL, 512'110'190'592ULL, 31'457'280'000ULL}) {
        for (std::uint64_t part = 2; part <= 64; part *= 2) {
            PlayedRawDisk disk(size);
            disk.realSize = size / 4096 / part * 4096;
            EXPECT_TRUE(capacityLieOf(disk)) << size << " / " << part;
        }
        for (auto power = 64 * Megabyte; power < size; power *= 2) {
            PlayedRawDisk disk(size);
            disk.realSize = power;
            EXPECT_TRUE(capacityLieOf(disk)) << size << " as " << power;
        }
    }
}

TEST(CapacityProbe, DiskThatSwallowsWhatIsBeyondItsEndIsFound)
{
    PlayedRawDisk disk(2 * Gigabyte);
    disk.realSize = 2 * Gigabyte - Megabyte;
    disk.beyond = PlayedRawDisk::Beyond::Swallows;
    EXPECT_EQ(capacityLieOf(disk), "what was written at 2.00 GB is not there");
}

TEST(CapacityProbe, DiskThatGivesErrorsBeyondItsEndIsFound)
{
    PlayedRawDisk disk(2 * Gigabyte);
    disk.realSize = Gigabyte;
    disk.beyond = PlayedRawDisk::Beyond::Fails;
    EXPECT_EQ(capacityLieOf(disk), "it cannot be written at 1.00 GB: played error");
}

TEST(CapacityProbe, FakeWhoseOwnMemoryAnswersFirstIsFound)
{
    for (const auto beyond : {PlayedRawDisk::Beyond::Swallows, PlayedRawDisk::Beyond::Wraps}) {
        PlayedRawDisk disk(2 * Gigabyte);
        disk.realSize = Gigabyte;
        disk.beyond = beyond;
        disk.memory = 32 * Megabyte;
        EXPECT_TRUE(capacityLieOf(disk));
    }
}

} // namespace orvana::diskutil
