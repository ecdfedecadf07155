// The probe for fake capacity within an erase, with a service and a disk that the test plays.

#include "diskutil/PlayedDisk.h"

namespace orvana::diskutil
{

TEST_F(DiskUtility, DiskThatIsSmallerThanItSaysGetsNoVolumeAndIsNamedSo)
{
    m_service.rawDisk.realSize = 256 * 1024;
    const auto done = erase();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().status, SomethingFailed);
    EXPECT_TRUE(
        done.error().reason.starts_with("/dev/sdb was emptied; it is smaller than it says, or broken: at "))
        << done.error().reason;
    EXPECT_EQ(m_service.calls.back(), "openAlone /dev/sdb");
}

TEST_F(DiskUtility, OpenDiskOfAnotherArrivalIsNotWrittenTo)
{
    m_service.rawDisk.number = 8;
    const auto done = erase();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().reason, "/dev/sdb is another disk by now");
    EXPECT_EQ(m_service.rawDisk.bytesWritten, 0U);
}

TEST_F(DiskUtility, DiskThatIsMountedWhileItIsOpenedIsNotProbed)
{
    m_service.afterOpen = [this] { m_disk->mounted = {{"/dev/sdb1", "/media/A"}}; };
    const auto done = erase();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().status, SomethingFailed);
    EXPECT_EQ(m_service.rawDisk.bytesWritten, 0U);
}

TEST_F(DiskUtility, DiskThatMayNotBeOpenedIsErasedAndTheMessageSaysThatItWasNotProbed)
{
    m_service.failing = {{"openAlone", Refused}};
    const auto done = erase();
    ASSERT_TRUE(done) << done.error().reason;
    EXPECT_EQ(
        *done,
        "Finished erase on /dev/sdb: ext4 at /media/anna/COPY 11; its size was not probed: played trouble");
}

} // namespace orvana::diskutil
