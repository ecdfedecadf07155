// Mounting the volumes of a disk in a bay.

#include "diskutil/PlayedDisk.h"

namespace orvana::diskutil
{

using Calls = std::vector<std::string>;

class MountDisk : public DiskUtility
{
protected:
    MountDisk() { m_disk->fileSystems = {"/dev/sdb1", "/dev/sdb2"}; }

    Outcome<std::string> mount() { return mountDisk(m_request, surroundings()); }

    void expectRefused(const std::string &reason)
    {
        const auto done = mount();
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().status, Refused);
        EXPECT_EQ(done.error().reason, reason);
        EXPECT_TRUE(m_service.calls.empty());
    }
};

TEST_F(MountDisk, EveryFileSystemThatIsNotMountedIs)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}};
    const auto done = mount();
    ASSERT_TRUE(done) << done.error().reason;
    EXPECT_EQ(*done, "Disk /dev/sdb mounted at /media/anna/COPY 11");
    EXPECT_EQ(m_service.calls, Calls{"mount /dev/sdb2"});
}

TEST_F(MountDisk, DiskThatIsMountedIsLeftAsItIs)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}, {"/dev/sdb2", "/media/B"}};
    EXPECT_EQ(*mount(), "Disk /dev/sdb is mounted already");
    EXPECT_TRUE(m_service.calls.empty());
}

TEST_F(MountDisk, DiskWithoutAFileSystemIsRefused)
{
    m_disk->fileSystems.clear();
    expectRefused("/dev/sdb has no volume that can be mounted");
}

TEST_F(MountDisk, DiskThatIsNotMeantOrNotInABayOrTheSystemsIsRefused)
{
    m_request.expected.serial = "OTHER";
    expectRefused("/dev/sdb is not the disk that was meant");
    m_request.expected.serial = "SN1";
    m_disk->isInBay = false;
    expectRefused("/dev/sdb is in no bay of an enclosure");
    m_disk->isInBay = true;
    m_disk->holdsSystem = true;
    expectRefused("/dev/sdb holds the running system");
    m_disk->holdsSystem = false;
    m_disk->isMember = true;
    expectRefused("/dev/sdb is a member of a RAID set or a volume group");
}

TEST_F(MountDisk, TroubleOfTheServiceIsTold)
{
    m_service.failing["mount"] = SomethingFailed;
    const auto done = mount();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().status, SomethingFailed);
    EXPECT_EQ(done.error().reason, "/dev/sdb1 cannot be mounted: played trouble");
    EXPECT_EQ(m_service.calls, Calls{"mount /dev/sdb1"});
}

} // namespace orvana::diskutil
