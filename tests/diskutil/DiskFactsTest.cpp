// The facts that the disk utility finds about a disk, on made-up machines.

#include "diskutil/DiskFacts.h"
#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

class DiskFactsOf : public LinuxFixture
{
protected:
    DiskFactsOf()
    {
        m_upper = addEnclosure("612");
        // The machine runs from a disk of its own.
        m_machine.addPartition(m_machine.addSataDisk(m_internal, 0, {.node = "sda", .serial = "INT1"}), 1);
        m_machine.mountLine("20 1 8:1 / / rw - ext4 /dev/sda1 rw");
    }

    /// A disk in the first bay, with a partition.
    std::string addBayDisk(const std::vector<std::string> &partition = {})
    {
        const auto disk = m_machine.addSataDisk(m_machine.controllerOf(m_upper, 0), 0, {.node = "sdb"});
        m_partition = m_machine.addPartition(disk, 1, partition);
        return disk;
    }

    diskutil::DiskFacts facts(const std::string &node = "/dev/sdb")
    {
        platform::linux_host::SystemFiles files;
        files.mounts = m_machine.mountFile();
        files.swaps = m_machine.swapFile();
        return diskutil::factsOf(platform::linux_host::readSystemState(files), node, diskutil::knownDisk)
            .value();
    }

    std::string m_upper, m_partition;
};

TEST_F(DiskFactsOf, DiskInABayIsErasable)
{
    addBayDisk();
    const auto found = facts();
    EXPECT_TRUE(found.isWholeDisk);
    EXPECT_TRUE(found.isInBay);
    EXPECT_EQ(found.identity.serial, "SN1");
    EXPECT_EQ(found.identity.blocks, 7814037168U);
    EXPECT_TRUE(found.mounted.empty());
    EXPECT_TRUE(diskutil::checkErasable("/dev/sdb", found));
}

TEST_F(DiskFactsOf, LauncherHandsOverJustTheseFacts)
{
    addBayDisk();
    const auto found = facts();
    platform::linux_host::LinuxMachine machine({m_machine.mountFile(), m_machine.swapFile(), "/none"});
    const auto snapshot = machine.snapshot();
    for (const auto &disk : snapshot->disks) {
        if (disk.device->name == "sdb") {
            EXPECT_EQ(identityOf(disk), found.identity);
        }
    }
}

TEST_F(DiskFactsOf, PartitionIsNoWholeDisk)
{
    addBayDisk();
    EXPECT_FALSE(facts("/dev/sdb1").isWholeDisk);
}

TEST_F(DiskFactsOf, LinkToADiskIsNone)
{
    m_machine.addSataDisk(m_machine.controllerOf(m_upper, 0), 0,
                          {.node = "sdb", .properties = {"DEVLINKS=/dev/disk/by-id/ata-SN1"}});
    const auto system =
        platform::linux_host::readSystemState({m_machine.mountFile(), m_machine.swapFile(), ""});
    EXPECT_TRUE(diskutil::factsOf(system, "/dev/sdb", diskutil::knownDisk));
    EXPECT_FALSE(diskutil::factsOf(system, "/dev/disk/by-id/ata-SN1", diskutil::knownDisk));
}

TEST_F(DiskFactsOf, InternalDiskIsInNoBayAndHoldsTheSystem)
{
    const auto found = facts("/dev/sda");
    EXPECT_TRUE(found.isWholeDisk);
    EXPECT_FALSE(found.isInBay);
    EXPECT_TRUE(found.holdsSystem);
}

TEST_F(DiskFactsOf, DiskOnAControllerOutsideTheBaysIsInNone)
{
    const auto bridge = m_machine.addBridge(m_upper, "0000:02:05.0");
    const auto ahci = m_machine.addAhci(bridge, "0000:20:00.0", "0x1b21", "0x0612");
    m_machine.addSataDisk(ahci, 0, {.node = "sdc"});
    EXPECT_TRUE(facts("/dev/sdc").isWholeDisk);
    EXPECT_FALSE(facts("/dev/sdc").isInBay);
}

TEST_F(DiskFactsOf, DiskOfAnotherMakersDeviceIsInNoBay)
{
    const auto other = m_machine.addThunderbolt({}, "0000:00:0d.3", 1);
    m_machine.add("/sys/devices/virtual/devlink/pci:0000:00:0d.3--pci:0000:00:07.2", "devlink");
    m_machine.addRouter(other, "1", "0x1234", "0x237");
    const auto port = m_machine.addBridge({}, "0000:00:07.2");
    const auto upper = m_machine.addEnclosureBridges(port, "612", 64);
    m_machine.addSataDisk(m_machine.controllerOf(upper, 0), 0, {.node = "sdc"});
    EXPECT_FALSE(facts("/dev/sdc").isInBay);
}

TEST_F(DiskFactsOf, EveryMountOfItIsFound)
{
    addBayDisk();
    m_machine.mount("sdb1", "/media/A");
    m_machine.mount("sdb1", "/media/A\\040again");
    EXPECT_EQ(facts().mounted, (std::vector<diskutil::MountedVolume>{{"/dev/sdb1", "/media/A"},
                                                                     {"/dev/sdb1", "/media/A again"}}));
}

TEST_F(DiskFactsOf, PartOfTheSystemElsewhereMakesItTheSystems)
{
    addBayDisk();
    m_machine.mount("sdb1", "/home/anna/disk");
    EXPECT_FALSE(facts().holdsSystem);
    m_machine.mount("sdb1", "/var/lib/docker");
    EXPECT_TRUE(facts().holdsSystem);
}

TEST_F(DiskFactsOf, SwappedPartitionIsFound)
{
    addBayDisk();
    m_machine.swapOn("sdb1");
    EXPECT_TRUE(facts().isSwappedOn);
}

TEST_F(DiskFactsOf, SwapFileOnTheDiskIsFound)
{
    addBayDisk();
    m_machine.mount("sdb1", "/media/A");
    m_machine.swapOnFile("/media/A/swapfile");
    EXPECT_TRUE(facts().isSwappedOn);
}

TEST_F(DiskFactsOf, MembersAreFound)
{
    addBayDisk({"ID_FS_USAGE=raid", "ID_FS_TYPE=LVM2_member"});
    EXPECT_TRUE(facts().isMember);
}

TEST_F(DiskFactsOf, MemberOfAPoolIsFound)
{
    addBayDisk({"ID_FS_USAGE=filesystem", "ID_FS_TYPE=zfs_member"});
    EXPECT_TRUE(facts().isMember);
}

TEST_F(DiskFactsOf, MemberAmongSeveralThingsAtOnceIsFound)
{
    addBayDisk({"ID_FS_AMBIVALENT=filesystem:ext4:1.0 raid:linux_raid_member:1.2"});
    EXPECT_TRUE(facts().isMember);
}

TEST_F(DiskFactsOf, MembersThatUdevDoesNotNameAreFoundByTheTable)
{
    for (const auto *type : {"52414944-0000-11aa-aa11-00306543ecac", "af9b60a0-1431-4f62-bc68-3311714a69ad",
                             "e75caf8f-f680-4cee-afa3-b001e56efc2d", "0x42"}) {
        const auto disk = addBayDisk({std::string("ID_PART_ENTRY_TYPE=") + type});
        EXPECT_TRUE(facts().isMember) << type;
        m_machine.pull(disk);
    }
    addBayDisk({"ID_PART_ENTRY_TYPE=0x42", "ID_FS_TYPE=ext4"});
    EXPECT_FALSE(facts().isMember) << "it was one before";
}

TEST_F(DiskFactsOf, DiskWithAPartitionThatUdevHasNotLookedAtIsNotErasable)
{
    addBayDisk(Unexamined);
    EXPECT_FALSE(facts().isExamined);
    EXPECT_FALSE(diskutil::checkErasable("/dev/sdb", facts()));
}

TEST_F(DiskFactsOf, WhatIsBuiltUponItIsFound)
{
    addBayDisk();
    m_machine.makeFolder(m_partition + "/holders/dm-0");
    EXPECT_TRUE(facts().isHeld);
}

TEST_F(DiskFactsOf, FileSystemThatIsMountedByAnotherDiskIsBuiltUponIt)
{
    addBayDisk();
    m_machine.addPartition(
        m_machine.addSataDisk(m_machine.controllerOf(m_upper, 1), 0, {.node = "sdc", .serial = "SN2"}), 1);
    m_machine.makeFolder("/sys/fs/btrfs/some-uuid/devices/sdb1");
    m_machine.makeFolder("/sys/fs/btrfs/some-uuid/devices/sdc1");
    m_machine.mountLine("36 1 0:30 / /media/pair rw - btrfs /dev/sdc1 rw");
    EXPECT_TRUE(facts("/dev/sdb").isHeld);
    EXPECT_FALSE(facts("/dev/sdc").isHeld) << "it is unmounted like any other";
}

TEST_F(DiskFactsOf, ImageOnTheBareDeviceIsFound)
{
    addBayDisk();
    m_machine.add("/sys/devices/virtual/block/loop0", "block",
                  {"N: loop0", "E: DEVTYPE=disk", "E: MAJOR=7", "E: MINOR=0", "A: size=10",
                   "A: loop/backing_file=/dev/sdb1"});
    EXPECT_TRUE(facts().isHeld);
}

TEST_F(DiskFactsOf, RootThatCannotBeFollowedIsNotKnown)
{
    addBayDisk();
    m_machine.mountLine("21 1 0:99 / / rw - overlay overlay rw,lowerdir=lower");
    EXPECT_FALSE(facts().isRootKnown);
}

} // namespace orvana::test
