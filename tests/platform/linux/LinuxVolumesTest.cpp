// Mounts, and the devices beneath a path.

#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

namespace linux_host = platform::linux_host;

class LinuxVolumes : public LinuxFixture
{
protected:
    std::shared_ptr<const linux_host::MachineSnapshot> snapshot()
    {
        linux_host::SystemFiles files;
        files.mounts = m_machine.mountFile();
        files.swaps = m_machine.swapFile();
        files.btrfs = m_btrfs.root();
        return linux_host::LinuxMachine(files).snapshot();
    }

    /// "disk0s1 /media/COPY" for each listed volume.
    std::vector<std::string> volumes()
    {
        std::vector<std::string> list;
        const auto seen = snapshot();
        for (const auto &volume : seen->volumes)
            list.push_back(volume.device + " " + volume.point);
        return list;
    }

    std::string addInternal(const std::string &node, int partitions = 1)
    {
        auto path = m_machine.addSataDisk(m_internal, m_ports++, {.node = node});
        for (int i = 1; i <= partitions; ++i)
            m_machine.addPartition(path, i);
        return path;
    }

    /// Adds a device of the device mapper with this number over these partitions.
    void addMapping(int number, const std::vector<std::string> &partitions)
    {
        const auto name = "dm-" + std::to_string(number);
        const auto path = "/sys/devices/virtual/block/" + name;
        m_machine.add(path, "block",
                      {"N: " + name, "E: DEVTYPE=disk", "E: MAJOR=253", "E: MINOR=" + std::to_string(number),
                       "A: size=10"});
        for (const auto &partition : partitions)
            m_machine.makeFolder(path + "/slaves/" + partition);
    }

    /// Adds an encrypted partition that is unlocked and mounted at `point`.
    void addUnlocked(const std::string &point)
    {
        const auto disk = m_machine.addSataDisk(m_internal, m_ports++, {.node = "sda"});
        const auto partition =
            m_machine.addPartition(disk, 1, {"ID_FS_USAGE=crypto", "ID_FS_TYPE=crypto_LUKS"});
        m_machine.makeFolder(partition + "/holders/dm-0");
        addMapping(0, {"sda1"});
        m_machine.mountLine("36 1 253:0 / " + point + " rw - ext4 /dev/mapper/unlocked rw");
    }

    TemporaryTree m_btrfs;
    int m_ports = 0;
};

using Lines = std::vector<std::string>;

TEST_F(LinuxVolumes, MountOfADeviceThatIsGoneIsNoVolume)
{
    addInternal("sda");
    m_machine.mountLine("36 1 8:99 / /media/gone rw - ext4 /dev/sdz1 rw");
    m_machine.mount("sda1", "/media/here");
    EXPECT_EQ(volumes(), Lines{"/dev/disk0s1 /media/here"});
}

TEST_F(LinuxVolumes, FileSystemWithANumberOfItsOwnIsFoundByItsSource)
{
    addInternal("sda");
    m_machine.mountLine("36 1 0:44 / /media/stick rw - fuseblk /dev/sda1 rw");
    EXPECT_EQ(volumes(), Lines{"/dev/disk0s1 /media/stick"});
}

TEST_F(LinuxVolumes, DeviceThatIsMountedTwiceIsListedOnceByItsTopFolder)
{
    addInternal("sda", 2);
    m_machine.mountLine("36 1 8:1 /sub /srv/sub rw - ext4 /dev/sda1 rw");
    m_machine.mountLine("37 1 8:1 / /media/all rw - ext4 /dev/sda1 rw");
    m_machine.mountLine("38 1 8:2 / /mnt rw - ext4 /dev/sda2 rw");
    m_machine.mountLine("39 1 8:2 / / rw - ext4 /dev/sda2 rw");
    EXPECT_EQ(volumes(), (Lines{"/dev/disk0s1 /media/all", "/dev/disk0s2 /"}));
}

TEST_F(LinuxVolumes, MountThatAnotherOneHidesIsNone)
{
    addInternal("sda", 2);
    m_machine.mountLine("36 1 8:1 / /mnt rw - ext4 /dev/sda1 rw");
    m_machine.mountLine("37 1 8:2 / /mnt rw - ext4 /dev/sda2 rw");
    EXPECT_EQ(volumes(), Lines{"/dev/disk0s2 /mnt"});
}

TEST_F(LinuxVolumes, RootOnAVolumeGroupCountsForEveryDiskBeneath)
{
    for (const auto *node : {"sda", "sdb"}) {
        const auto disk = m_machine.addSataDisk(m_internal, m_ports++, {.node = node});
        const auto partition =
            m_machine.addPartition(disk, 1, {"ID_FS_USAGE=raid", "ID_FS_TYPE=LVM2_member"});
        m_machine.makeFolder(partition + "/holders/dm-0");
    }
    addMapping(0, {"sda1", "sdb1"});
    m_machine.mountLine("36 1 253:0 / / rw - ext4 /dev/mapper/vg-root rw");
    EXPECT_EQ(volumes(), (Lines{"/dev/disk0s1s1 /", "/dev/disk1s1s1 /"}));
    const auto &disks = scan().otherDiskArray();
    ASSERT_EQ(disks.size(), 2U);
    for (const auto &disk : disks) {
        ASSERT_EQ(disk->bsdPathArray().size(), 1U) << "the member itself is no volume";
        EXPECT_EQ(*disk->bsdPathArray()[0]->mountPoint(), "/");
    }
}

TEST_F(LinuxVolumes, EncryptedRootCountsForItsDisk)
{
    addUnlocked("/");
    EXPECT_EQ(volumes(), Lines{"/dev/disk0s1 /"});
}

TEST_F(LinuxVolumes, UnlockedVolumeIsListedByItsPartition)
{
    addUnlocked("/media/SECRET");
    EXPECT_EQ(volumes(), Lines{"/dev/disk0s1 /media/SECRET"});
}

TEST_F(LinuxVolumes, RootOverSeveralDevicesOfOneFileSystemCountsForEach)
{
    addInternal("sda");
    addInternal("sdb");
    m_btrfs.folder("some-uuid/devices/sda1");
    m_btrfs.folder("some-uuid/devices/sdb1");
    m_machine.mountLine("36 1 0:30 /@ / rw - btrfs /dev/sda1 rw");
    EXPECT_EQ(volumes(), (Lines{"/dev/disk0s1 /", "/dev/disk1s1 /"}));
}

TEST_F(LinuxVolumes, RootOverSeveralEncryptedDevicesCountsForEach)
{
    for (int i = 0; i < 2; ++i) {
        const auto disk = std::string("sd") + "ab"[i];
        const auto mapped = "dm-" + std::to_string(i);
        m_machine.makeFolder(m_machine.addPartition(m_machine.addSataDisk(m_internal, i, {.node = disk}), 1) +
                             "/holders/" + mapped);
        addMapping(i, {disk + "1"});
        m_btrfs.folder("some-uuid/devices/" + mapped);
    }
    m_machine.mountLine("36 1 0:30 /@ / rw - btrfs /dev/dm-0 rw");
    EXPECT_EQ(volumes(), (Lines{"/dev/disk0s1 /", "/dev/disk1s1 /"}));
}

TEST_F(LinuxVolumes, ManyLayersThatCannotBeSeenFromHereAreFollowedOnce)
{
    addInternal("sda");
    std::string layers = "/l/0";
    for (int i = 1; i < 60; ++i)
        layers.append(":/l/").append(std::to_string(i));
    m_machine.mountLine("36 1 0:30 / / rw - overlay overlay rw,lowerdir=" + layers);
    EXPECT_EQ(snapshot()->system.beneathRoot, std::set<std::string>());
}

TEST_F(LinuxVolumes, LayeredRootCountsForTheDiskOfItsLayers)
{
    addInternal("sda");
    m_machine.mountLine("35 1 8:1 / /run/live rw - ext4 /dev/sda1 rw");
    m_machine.mountLine("36 1 0:30 / / rw - overlay overlay "
                        "rw,lowerdir=/run/live/lower,upperdir=/run/live/upper,workdir=/run/live/work");
    EXPECT_EQ(volumes(), Lines{"/dev/disk0s1 /"});
}

TEST_F(LinuxVolumes, RootInAnImageCountsForTheDiskOfTheImage)
{
    addInternal("sda");
    m_machine.mountLine("35 1 8:1 / /run/live rw - ext4 /dev/sda1 rw");
    m_machine.add("/sys/devices/virtual/block/loop0", "block",
                  {"N: loop0", "E: DEVTYPE=disk", "E: MAJOR=7", "E: MINOR=0", "A: size=10",
                   "A: loop/backing_file=/run/live/root.squashfs"});
    m_machine.mountLine("36 1 7:0 / / ro - squashfs /dev/loop0 ro");
    EXPECT_EQ(volumes(), Lines{"/dev/disk0s1 /"});
}

TEST_F(LinuxVolumes, SwappedPartitionIsOpen)
{
    addInternal("sda", 2);
    m_machine.swapOn("sda2");
    const auto seen = snapshot();
    EXPECT_FALSE(seen->disks.at(0).partitions.at(0).isOpen);
    EXPECT_TRUE(seen->disks.at(0).partitions.at(1).isOpen);
}

TEST_F(LinuxVolumes, MountPointThatTheColumnsWouldChangeIsLeftOutAndTold)
{
    addInternal("sda", 3);
    m_machine.mount("sda1", "/media/two\\040\\040blanks");
    m_machine.mount("sda2", "/media/tab\\011tab");
    m_machine.mount("sda3", "/media/\\377");
    const auto text = host().launcher().run("/bin/df", {});
    EXPECT_EQ(std::count(text.output.begin(), text.output.end(), '\n'), 1) << text.output;
    EXPECT_EQ(m_log.all().size(), 3U);
}

/// The devices that hold a path, directly or through other devices.
class DevicesBeneath : public LinuxVolumes
{
protected:
    std::set<std::string> beneath(const std::string &path)
    {
        return linux_host::devicesBeneath(snapshot()->system, path);
    }
};

using Devices = std::set<std::string>;

TEST_F(DevicesBeneath, PathLiesOnTheDeviceOfItsMount)
{
    addInternal("sda");
    addInternal("sdb");
    m_machine.mount("sda1", "/media/A");
    m_machine.mount("sdb1", "/media/B");
    EXPECT_EQ(beneath("/media/A/folder"), Devices{"sda1"});
    EXPECT_EQ(beneath("/media/AB"), Devices{});
}

TEST_F(DevicesBeneath, WhatIsMountedBelowCountsToo)
{
    addInternal("sda");
    addInternal("sdb");
    m_machine.mount("sda1", "/media/A");
    m_machine.mount("sdb1", "/media/A/inner/B");
    EXPECT_EQ(beneath("/media/A"), (Devices{"sda1", "sdb1"}));
    EXPECT_EQ(beneath("/media/A/inner"), (Devices{"sda1", "sdb1"}));
    EXPECT_EQ(beneath("/media/A/other"), Devices{"sda1"});
}

TEST_F(DevicesBeneath, PoolLiesOnAllOfItsDevices)
{
    addInternal("sda");
    addInternal("sdb");
    m_machine.mountLine("36 1 0:30 / /media/pool rw - btrfs /dev/sda1 rw");
    m_btrfs.folder("uuid/devices/sda1");
    m_btrfs.folder("uuid/devices/sdb1");
    EXPECT_EQ(beneath("/media/pool"), (Devices{"sda1", "sdb1"}));
}

TEST_F(DevicesBeneath, FileSystemThatShowsAnotherFolderLiesWhereThatLies)
{
    addInternal("sda");
    m_machine.mount("sda1", "/media/A");
    m_machine.mountLine("37 1 0:31 / /home/anna/view rw - fuse.bindfs /media/A/folder rw");
    EXPECT_EQ(beneath("/home/anna/view"), Devices{"sda1"});
}

TEST_F(DevicesBeneath, LayersLieWhereEachOfThemLies)
{
    addInternal("sda");
    addInternal("sdb");
    m_machine.mount("sda1", "/media/A");
    m_machine.mount("sdb1", "/media/B");
    m_machine.mountLine("38 1 0:32 / /merged rw - overlay overlay rw,lowerdir=/media/A,upperdir=/media/B/up");
    EXPECT_EQ(beneath("/merged/x"), (Devices{"sda1", "sdb1"}));
}

} // namespace orvana::test
