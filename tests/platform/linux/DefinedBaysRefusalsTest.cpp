// Disks and devices at defined ports that make no bay, on made-up machines.

#include "platform/linux/DefinedBaysFixture.h"

namespace orvana::test
{

TEST_F(DefinedBays, PortWithSeveralDisksBehindItIsNoBay)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    addDisk(hub, 1, "sdb", "SN0");
    addDisk(hub, 1, "sdc", "SN1", 1);
    define("hub", TwoPorts, Hub);
    EXPECT_EQ(refusal("sdb"),
              "is not where one can tell: another disk is at Slot-A of hub (hub.json), too; it is in no bay");
    EXPECT_FALSE(facts("/dev/sdc").isInBay);
}

TEST_F(DefinedBays, PortOfTheSystemDiskIsABayAndRefusedLikeAnyStartUpDisk)
{
    define("inner", R"({"A":{"path":"pci-0000:00:17.0-ata-1"},"B":{"path":"pci-0000:00:17.0-ata-2"}})");
    EXPECT_EQ(enclosures(), Lines{"inner: Slot-A INT1"});
    const auto found = facts("/dev/sda");
    EXPECT_TRUE(found.isInBay);
    EXPECT_TRUE(found.holdsSystem);
    EXPECT_FALSE(diskutil::checkErasable("/dev/sda", found));
    EXPECT_FALSE(diskutil::checkEjectable("/dev/sda", found));
}

TEST_F(DefinedBays, DiskThatATableOfTheSystemNamesIsInNoBay)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    const auto device = m_machine.addUsb(hub, 1, "152d:0578");
    m_machine.addPartition(
        m_machine.addUsbDisk(
            device, {.node = "sdb", .serial = "SN1", .properties = {"DEVLINKS=/dev/disk/by-id/usb-SN1"}}),
        1,
        {"ID_FS_UUID=AB-12", "ID_FS_LABEL=Back up", "ID_FS_LABEL_ENC=Back\\x20up",
         "ID_PART_ENTRY_UUID=77aa-1", "ID_PART_ENTRY_NAME=data", "DEVLINKS=/dev/disk/by-uuid/AB-12"});
    define("hub", TwoPorts, Hub);
    EXPECT_EQ(refusal("sdb"), "");
    for (const char *line :
         {"UUID=ab-12 /backup ext4 noauto 0 0", "LABEL=Back\\040up /b ext4 defaults 0 0",
          "LABEL=\"Back\\040up\" /b ext4 defaults 0 0", "PARTUUID=77AA-1 none swap sw 0 0",
          "PARTLABEL=data /b ext4", "/dev/sdb1 /b ext4 defaults", "/dev/disk/by-id/usb-SN1 /b ext4 defaults",
          "/dev/disk/by-uuid/ab-12 /b ext4 defaults"}) {
        m_etc.file("fstab", std::string("# comment\n") + line + "\n");
        EXPECT_EQ(refusal("sdb"), "is named by " + m_etc.path("fstab") + "; it is in no bay") << line;
    }
    m_etc.file("fstab", "# UUID=AB-12 /b ext4\nUUID=other / ext4 defaults 0 1\n/dev/sdb10 /c ext4\n");
    EXPECT_EQ(refusal("sdb"), "");
    m_etc.file("crypttab", "secret UUID=AB-12 none luks\n");
    EXPECT_EQ(refusal("sdb"), "is named by " + m_etc.path("crypttab") + "; it is in no bay");
    m_etc.file("crypttab", "secret /dev/other none\n");
    EXPECT_EQ(refusal("sdb"), "");
    m_etc.file("zfs/zpool.cache", std::string("\0\1/dev/sdb10\0/dev/disk/by-id/usb-SN1-part1\0", 44));
    EXPECT_EQ(refusal("sdb"), "");
    m_etc.file("zfs/zpool.cache", std::string("\0\1/dev/sdb1\0", 12));
    EXPECT_EQ(refusal("sdb"), "is named by " + m_etc.path("zfs/zpool.cache") + "; it is in no bay");
}

TEST_F(DefinedBays, NamesInOptionsAndKeysOfTheTablesCount)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    m_machine.addPartition(addDisk(hub, 1, "sdb", "SN1"), 1, {"ID_FS_UUID=AB-12"});
    define("hub", TwoPorts, Hub);
    m_etc.file("fstab", "/dev/sda1 / xfs logdev=/dev/sdb1,noatime 0 1\n");
    EXPECT_EQ(refusal("sdb"), "is named by " + m_etc.path("fstab") + "; it is in no bay");
    m_etc.file("fstab", "");
    for (const char *line :
         {"root UUID=other /key:UUID=AB-12 luks", "root UUID=other none luks,header=/h:UUID=AB-12"}) {
        m_etc.file("crypttab", std::string(line) + "\n");
        EXPECT_EQ(refusal("sdb"), "is named by " + m_etc.path("crypttab") + "; it is in no bay") << line;
    }
}

TEST_F(DefinedBays, EncryptedDiskIsInNoBayWhileTheTableOfSuchDisksCannotBeRead)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    m_machine.addPartition(addDisk(hub, 1, "sdb", "SN1"), 1, {"ID_FS_UUID=AB-12", "ID_FS_USAGE=crypto"});
    define("hub", TwoPorts, Hub);
    EXPECT_EQ(refusal("sdb"), "");
    m_etc.file("crypttab", std::string(2'000'000, '#')); // more than is read
    EXPECT_EQ(refusal("sdb"), "is encrypted, and " + m_etc.path("crypttab") +
                                  ", which may name it, cannot be read; it is in no bay");
}

TEST_F(DefinedBays, MemberOfASetThatTheSystemPutsTogetherIsInNoBay)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    m_machine.addPartition(addDisk(hub, 1, "sdb", "SN1"), 1,
                           {"ID_FS_TYPE=linux_raid_member", "ID_FS_USAGE=raid",
                            "ID_FS_UUID=3aaa0122-29827cfa-5331ad66-ca767371"});
    define("hub", TwoPorts, Hub);
    EXPECT_EQ(refusal("sdb"), "");
    m_etc.file("mdadm/mdadm.conf",
               "DEVICE partitions\nARRAY /dev/md0 metadata=1.2 UUID=3aaa0122:29827cfa:5331ad66:ca767371\n");
    EXPECT_EQ(refusal("sdb"), "is named by " + m_etc.path("mdadm/mdadm.conf") + "; it is in no bay");
    m_etc.file("mdadm/mdadm.conf", "ARRAY /dev/md0 devices=/dev/sdz1,/dev/sdb1\n");
    EXPECT_EQ(refusal("sdb"), "is named by " + m_etc.path("mdadm/mdadm.conf") + "; it is in no bay");
}

TEST_F(DefinedBays, VolumeGroupThatTheSystemKnowsIsInNoBay)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    m_machine.addPartition(addDisk(hub, 1, "sdb", "SN1"), 1,
                           {"ID_FS_TYPE=LVM2_member", "ID_FS_USAGE=raid", "ID_FS_UUID=DMkzSt-G6ou-vbqC"});
    define("hub", TwoPorts, Hub);
    m_etc.file("lvm/devices/system.devices",
               "VERSION=1.1.2\nIDTYPE=sys_wwid IDNAME=t10.x DEVNAME=/dev/sdq1 PVID=DMkzStG6ouvbqC PART=1\n");
    EXPECT_EQ(refusal("sdb"),
              "is named by " + m_etc.path("lvm/devices/system.devices") + "; it is in no bay");
}

TEST_F(DefinedBays, DiskMountedWhereUsersMountNothingIsInNoBay)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    m_machine.addPartition(addDisk(hub, 1, "sdb", "SN1"), 1);
    define("hub", TwoPorts, Hub);
    for (const char *point : {"/srv/data", "/mnt", "/home/anna/disk", "/media", "/mediafiles/x"}) {
        m_machine.mount("sdb1", point);
        EXPECT_EQ(refusal("sdb"),
                  std::string("is mounted at ") + point + ", where users mount nothing; it is in no bay");
        m_machine.unmount(point);
    }
    for (const char *point : {"/media/anna/COPY", "/run/media/anna/COPY"}) {
        m_machine.mount("sdb1", point);
        EXPECT_EQ(refusal("sdb"), "");
        m_machine.unmount(point);
    }
}

TEST_F(DefinedBays, SerialNumberThatADockShowsForEachDiskIsNone)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    addDisk(hub, 1, "sdb", "DOCK");
    define("hub", TwoPorts, Hub);
    EXPECT_EQ(enclosures(), Lines{"hub: Slot-A DOCK"});
    const auto second = addDisk(hub, 2, "sdc", "DOCK");
    EXPECT_EQ(enclosures(), Lines{"hub: Slot-A none, Slot-B none"});
    const auto found = facts("/dev/sdb");
    EXPECT_FALSE(found.identity.serial);
    EXPECT_FALSE(diskutil::checkIdentity("/dev/sdb", found,
                                         {.sequence = found.identity.sequence,
                                          .serial = "DOCK",
                                          .size = found.identity.bytes(),
                                          .bay = found.identity.place}));
    m_machine.pull(second);
    EXPECT_EQ(enclosures(), Lines{"hub: Slot-A none"}) << "two disks have shown it";
}

TEST_F(DefinedBays, SerialNumberThatAnotherDiskShowsLaterIsNone)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    const auto first = addDisk(hub, 1, "sdb", "DOCK");
    define("hub", TwoPorts, Hub);
    EXPECT_EQ(enclosures(), Lines{"hub: Slot-A DOCK"});
    m_machine.pull(first);
    m_machine.addUsbDisk(m_bridge, {.node = "sdc", .serial = "DOCK", .blocks = 4096}, 1);
    EXPECT_EQ(enclosures(), Lines{"hub: Slot-A none"});
}

TEST_F(DefinedBays, HubThatIsBuiltIntoTheMachineIsNoDock)
{
    const auto inner = m_machine.addUsb(m_rootHub, 1, HubIds, {}, "fixed");
    addDisk(inner, 1, "sdb", "SN1");
    define("hub", TwoPorts, Hub);
    EXPECT_TRUE(enclosures().empty());
    EXPECT_EQ(remarks(), Lines{"hub (hub.json): USB 2109:0817 is built into the machine; it has no bays"});
    // A hub inside a dock hangs fixed on the dock's other hub.
    const auto dock = m_machine.addUsb(m_rootHub, 2, "05e3:0612");
    addDisk(m_machine.addUsb(dock, 1, "05e3:0610", {}, "fixed"), 1, "sdc", "SN2");
    define("dock", TwoPorts, R"({"usb":"05e3:0610"})");
    EXPECT_EQ(enclosures(), Lines{"dock: Slot-A SN2"});
}

TEST_F(DefinedBays, FourBayEnclosureNeedsNoDefinitionAndGetsNone)
{
    const auto upper = addEnclosure("612");
    m_machine.addSataDisk(m_machine.controllerOf(upper, 0), 0, {.node = "sdb", .serial = "SN1"});
    define("again", R"({"B":{"path":"pci-0000:03:00.0-ata-1"},"C":{"path":"x"}})");
    EXPECT_EQ(enclosures(), (Lines{"Four Bay 1: Slot-A SN1", "again"}));
    EXPECT_EQ(remarks(), Lines{"sdb (SN1) is in an enclosure that needs no definition; it is in no bay"});
}

TEST_F(DefinedBays, FileThatDoesNotCountIsSaidAndMakesNoBay)
{
    addDisk(m_machine.addUsb(m_rootHub, 1, HubIds), 1, "sdb", "SN1");
    define("hub", TwoPorts, Hub);
    const auto file = m_etc.path("enclosures.d/hub.json");
    std::filesystem::permissions(file, std::filesystem::perms(0666));
    EXPECT_TRUE(enclosures().empty());
    EXPECT_EQ(remarks(), Lines{file + ": can be written to by others than its owner"});
    EXPECT_FALSE(facts("/dev/sdb").isInBay);
}

TEST_F(DefinedBays, MemberOfARaidSetIsOfferedLikeInAnyEnclosureAndNeverErased)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    m_machine.addPartition(addDisk(hub, 1, "sdb", "SN1"), 1,
                           {"ID_FS_TYPE=linux_raid_member", "ID_FS_USAGE=raid"});
    define("hub", TwoPorts, Hub);
    EXPECT_EQ(enclosures(), Lines{"hub: Slot-A SN1"});
    EXPECT_TRUE(m_scanner->tbArray()[0]->hddArray()[0]->isRaidFormated());
    EXPECT_FALSE(diskutil::checkErasable("/dev/sdb", facts("/dev/sdb")));
}

} // namespace orvana::test
