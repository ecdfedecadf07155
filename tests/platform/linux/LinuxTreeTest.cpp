// The scan of a machine, from the kernel's devices to the records.

#include "platform/hosts/HostFactory.h"
#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

using Bays = std::vector<std::string>;
using LinuxScan = LinuxFixture;

// The simulated machine with one enclosure and a disk in each of its bays.
Bays baysOfSimulator(const std::string &controller)
{
    const TemporaryTree tree;
    const auto file = tree.file("machine.json", R"({"login":"anna","enclosures":[{"uid":1,"controller":")" +
                                                    controller + R"(","bays":[
        {"bay":"A","serial":"SNA","size":9},{"bay":"B","serial":"SNB","size":9},
        {"bay":"C","serial":"SNC","size":9},{"bay":"D","serial":"SND","size":9}]}]})");
    const auto host = platform::makeSimulatorHost(file, nullptr).value();
    ORVScanDevice scanner(host->registry(), host->launcher());
    scanner.scanTBDevice();
    Bays bays;
    for (const auto &disk : scanner.tbArray().at(0)->hddArray())
        bays.push_back(disk->slotPath().value() + " " + disk->hddSN().value());
    return bays;
}

TEST_F(LinuxScan, OnePortControllersGiveTheirBaysAsOnTheSimulator)
{
    const auto upper = addEnclosure("612");
    for (int bay = 0; bay < 4; ++bay)
        m_machine.addSataDisk(
            m_machine.controllerOf(upper, bay), 0,
            {.node = std::string("sd") + "abcd"[bay], .serial = std::string("SN") + "ABCD"[bay]});
    ASSERT_EQ(scan().tbArray().size(), 1U);
    EXPECT_EQ(baysOf(*m_scanner->tbArray()[0]), baysOfSimulator("612"));
}

TEST_F(LinuxScan, TwoPortControllersGiveTheirBaysAsOnTheSimulator)
{
    const auto upper = addEnclosure("625");
    for (int bay = 0; bay < 4; ++bay)
        m_machine.addSataDisk(
            m_machine.controllerOf(upper, bay < 2 ? 0 : 3), bay % 2,
            {.node = std::string("sd") + "abcd"[bay], .serial = std::string("SN") + "ABCD"[bay]});
    ASSERT_EQ(scan().tbArray().size(), 1U);
    EXPECT_EQ(baysOf(*m_scanner->tbArray()[0]), baysOfSimulator("625"));
}

TEST_F(LinuxScan, TwoPortControllerBehindBridgeOneOrTwoHasNoBayButIsListed)
{
    const auto upper = addEnclosure("625");
    for (const auto *slot : {"1", "2"}) {
        const std::string number = slot;
        const auto bridge = m_machine.addBridge(upper, "0000:02:0" + number + ".0");
        const auto ahci = m_machine.addAhci(bridge, "0000:2" + number + ":00.0", "0x1b21", "0x0625");
        m_machine.addSataDisk(
            ahci, 0, {.node = "sd" + std::string(1, number == "1" ? 'a' : 'b'), .serial = "SN" + number});
    }
    EXPECT_EQ(baysOf(*scan().tbArray().at(0)), (Bays{"none SN1", "none SN2"}));
}

TEST_F(LinuxScan, BridgesOfOtherNumbersThanAnEnclosuresNameNoBay)
{
    m_router = m_machine.addRouter(m_hostRouter, "1");
    const auto upper = m_machine.addBridge(m_port, "0000:01:00.0");
    for (const char slot : {'3', '4', '5', '6'}) {
        const std::string number(1, slot);
        const auto bridge = m_machine.addBridge(upper, "0000:02:0" + number + ".0");
        m_machine.addSataDisk(m_machine.addAhci(bridge, "0000:2" + number + ":00.0", "0x1b21", "0x0612"), 0,
                              {.node = "sd" + number, .serial = "SN" + number});
    }
    EXPECT_EQ(baysOf(*scan().tbArray().at(0)), (Bays{"none SN3", "none SN4", "none SN5", "none SN6"}));
}

TEST_F(LinuxScan, FurtherControllerBesideThoseOfAnEnclosureTakesAllBaysTheirNames)
{
    const auto upper = addEnclosure();
    m_machine.addSataDisk(m_machine.controllerOf(upper, 0), 0, {.node = "sda", .serial = "SNA"});
    EXPECT_EQ(baysOf(*scan().tbArray().at(0)), (Bays{"Slot-A SNA"}));
    m_machine.addAhci(m_machine.addBridge(upper, "0000:02:07.0"), "0000:27:00.0", "0x1b21", "0x0612");
    EXPECT_EQ(baysOf(*scan().tbArray().at(0)), (Bays{"none SNA"}));
}

TEST_F(LinuxScan, ControllerWhoseBridgeIsMissingFromOneLookIsInNoBay)
{
    const auto upper = addEnclosure();
    m_machine.addSataDisk(m_machine.controllerOf(upper, 3), 0, {.node = "sda", .serial = "SNA"});
    auto devices = platform::linux_host::readDevices();
    platform::linux_host::SystemFiles files;
    files.mounts = m_machine.mountFile();
    files.swaps = m_machine.swapFile();
    files.devices = [&] {
        platform::linux_host::DeviceList seen;
        const auto all = platform::linux_host::readDevices();
        for (const char *subsystem : {"pci", "thunderbolt", "block", "ata_port", "scsi", "devlink"}) {
            for (const auto *device : all.ofSubsystem(subsystem)) {
                if (device->path != upper + "/0000:02:03.0")
                    seen.add(*device);
            }
        }
        return seen;
    };
    platform::linux_host::LinuxMachine machine(files);
    const auto snapshot = machine.snapshot();
    std::vector<platform::RegistryEntryPtr> drivers;
    snapshot->tree.root->collect({"AppleAHCIDiskDriver", {}}, drivers);
    ASSERT_EQ(drivers.size(), 1U);
    EXPECT_EQ(drivers[0]->path().find("pci-bridge"), std::string::npos) << drivers[0]->path();
}

TEST_F(LinuxScan, EnclosureIsDescribedByItsRouter)
{
    addEnclosure();
    m_machine.addRouter(m_router, "301", "0x41", "0x238");
    m_machine.addRouter(m_router, "501", "0x41", "0x239");
    scan();
    ASSERT_EQ(m_scanner->tbArray().size(), 2U) << "a model that is no four-bay enclosure is not listed";
    const auto &first = *m_scanner->tbArray()[0];
    const auto &second = *m_scanner->tbArray()[1];
    EXPECT_EQ(first.moduleName(), "Four Bay 1");
    EXPECT_EQ(first.vendorName(), "Orvana");
    EXPECT_EQ(first.depth(), 1);
    EXPECT_EQ(first.routeSring(), 1);
    EXPECT_EQ(first.moduleID(), 567);
    EXPECT_EQ(second.depth(), 2);
    EXPECT_EQ(second.routeSring(), 0x301);
    EXPECT_EQ(second.parentTb(), first.uid());
    EXPECT_NE(second.uid(), first.uid());
}

TEST_F(LinuxScan, MachineWithoutThunderboltHasNoEnclosure)
{
    m_machine.pull("/sys/devices/pci0000:00/0000:00:0d.2");
    EXPECT_TRUE(scan().tbArray().empty());
    EXPECT_TRUE(m_scanner->otherDiskArray().empty());
}

TEST_F(LinuxScan, UnauthorisedRouterIsListedWithoutDisksAndTold)
{
    m_machine.addRouter(m_hostRouter, "1", "0x41", "0x237", "0");
    EXPECT_TRUE(scan().tbArray().at(0)->hddArray().empty());
    ASSERT_EQ(m_log.all().size(), 1U) << "once, however often is looked";
    const std::string remark =
        "Four Bay 1 (0-1) is not authorised; its disks are not there until it is. This lets it "
        "in: boltctl enroll e6d5c4b3-a201-3412-ffff-0000000001";
    EXPECT_EQ(m_log.all()[0], remark);
    EXPECT_EQ(m_scanner->remarks(), std::vector{remark});
}

TEST_F(LinuxScan, NvmeDiskInAnEnclosureIsInNoBayAndSaidToBe)
{
    const auto upper = addEnclosure();
    const auto nvme = m_machine.addPci(m_machine.addBridge(upper, "0000:02:04.0"), "0000:30:00.0", "0x144d",
                                       "0xa808", "0x010802");
    m_machine.addBlock(m_machine.add(nvme + "/nvme/nvme0", "nvme"),
                       {.node = "nvme0n1", .model = "Fast", .serial = "NV1"});
    EXPECT_EQ(baysOf(*scan().tbArray().at(0)), (Bays{"none NV1"}));
    EXPECT_EQ(
        m_scanner->remarks(),
        (std::vector<std::string>{"Fast (NV1) in Four Bay 1 sits in none of the bays that are known; it is "
                                  "neither copied to nor erased"}));
}

TEST_F(LinuxScan, InternalDisksAreListedWithModelAndSerialNumber)
{
    m_machine.addSataDisk(m_internal, 0,
                          {.node = "sda", .serial = "INT1", .properties = {"ID_MODEL_ENC=SSD\\x20512\\x20"}});
    const auto nvme = m_machine.addPci({}, "0000:00:1d.0", "0x144d", "0xa808", "0x010802");
    m_machine.addBlock(m_machine.add(nvme + "/nvme/nvme0", "nvme", {"A: model=Fast", "A: serial=NV1"}),
                       {.node = "nvme0n1", .model = "Fast", .serial = "NV1"});
    const auto virtio = m_machine.addPci({}, "0000:00:1e.0", "0x1af4", "0x1001", "0x010000");
    m_machine.addBlock(virtio + "/virtio1", {.node = "vda", .model = "Virtual", .serial = "VI1"});
    std::vector<std::string> disks;
    for (const auto &disk : scan().otherDiskArray())
        disks.push_back(disk->hddModel().value() + "/" + disk->hddSN().value());
    EXPECT_EQ(disks, (std::vector<std::string>{"SSD 512/INT1", "Fast/NV1", "Virtual/VI1"}));
    EXPECT_TRUE(m_scanner->tbArray().empty());
}

TEST_F(LinuxScan, MemberOfASetIsMarkedAndOfferedAsOneVolume)
{
    const auto upper = addEnclosure();
    m_machine.addSataDisk(m_machine.controllerOf(upper, 0), 0,
                          {.node = "sda", .properties = {"ID_FS_USAGE=raid", "ID_FS_TYPE=isw_raid_member"}});
    const auto second = m_machine.addSataDisk(m_machine.controllerOf(upper, 1), 0,
                                              {.node = "sdb", .properties = {"ID_PART_TABLE_TYPE=gpt"}});
    m_machine.addPartition(second, 1, {"ID_FS_USAGE=raid", "ID_FS_TYPE=linux_raid_member"});
    m_machine.makeFolder(second + "/sdb1/holders/md0");
    const auto &enclosure = *scan().tbArray().at(0);
    ASSERT_EQ(enclosure.hddArray().size(), 2U);
    for (const auto &disk : enclosure.hddArray()) {
        EXPECT_TRUE(disk->isRaidFormated());
        ASSERT_EQ(disk->bsdPathArray().size(), 1U);
        EXPECT_EQ(disk->bsdPathArray()[0]->devPath(), disk->devPath());
    }
}

TEST_F(LinuxScan, DiskWithoutASerialNumberHasNone)
{
    m_machine.addSataDisk(m_machine.controllerOf(addEnclosure(), 2), 0, {.node = "sda", .serial = ""});
    EXPECT_EQ(baysOf(*scan().tbArray().at(0)), Bays{"Slot-C none"});
}

TEST_F(LinuxScan, BlankDiskIsUnformatted)
{
    m_machine.addSataDisk(m_machine.controllerOf(addEnclosure(), 0), 0, {.node = "sda"});
    const auto &disk = *scan().tbArray().at(0)->hddArray().at(0);
    EXPECT_TRUE(disk.isUnFormated());
    EXPECT_TRUE(disk.bsdPathArray().empty());
    EXPECT_EQ(disk.diskSize(), 7814037168 * 512);
}

TEST_F(LinuxScan, FormattedDiskThatIsNotMountedIsNotUnformatted)
{
    const auto path = m_machine.addSataDisk(m_machine.controllerOf(addEnclosure(), 0), 0,
                                            {.node = "sda", .properties = {"ID_PART_TABLE_TYPE=gpt"}});
    m_machine.addPartition(path, 1, {"ID_FS_USAGE=filesystem", "ID_FS_TYPE=ext4"});
    const auto &disk = *scan().tbArray().at(0)->hddArray().at(0);
    EXPECT_FALSE(disk.isUnFormated());
    EXPECT_TRUE(disk.bsdPathArray().empty());
}

TEST_F(LinuxScan, DiskWithSeveralThingsAtOnceIsNotUnformatted)
{
    m_machine.addSataDisk(m_machine.controllerOf(addEnclosure(), 0), 0,
                          {.node = "sda", .properties = {"ID_FS_AMBIVALENT=filesystem:ext4:1.0 other:x:1"}});
    EXPECT_FALSE(scan().tbArray().at(0)->hddArray().at(0)->isUnFormated());
}

TEST_F(LinuxScan, DevicesAtOnePlaceOfSeveralBusesHavePathsOfTheirOwn)
{
    const auto bridge = m_machine.addBridge({}, "0000:00:1c.0");
    for (const auto *name : {"0000:40:00.0", "0000:41:00.0"})
        m_machine.addPci(bridge, name, "0x8086", "0x1520", "0x020000");
    std::set<std::string> paths;
    const auto entries = host().registry().match(platform::RegistryMatching{"IOPCIDevice", {}}).entries;
    for (const auto &entry : entries)
        paths.insert(entry->path());
    EXPECT_EQ(paths.size(), entries.size());
}

TEST_F(LinuxScan, DiskThatUdevHasNotLookedAtIsNotUnformatted)
{
    const auto controller = m_machine.controllerOf(addEnclosure(), 0);
    m_machine.add(controller + "/ata9/host9/target9:0:0/9:0:0:0/block/sda", "block",
                  {"N: sda", "E: DEVTYPE=disk", "E: MAJOR=8", "E: MINOR=0", "A: size=100"});
    EXPECT_FALSE(scan().tbArray().at(0)->hddArray().at(0)->isUnFormated());
}

TEST_F(LinuxScan, MountedPartitionIsAVolumeWithItsMountPointAndRoom)
{
    const auto path = m_machine.addSataDisk(m_machine.controllerOf(addEnclosure(), 0), 0,
                                            {.node = "sda", .properties = {"ID_PART_TABLE_TYPE=gpt"}});
    m_machine.addPartition(path, 1);
    m_machine.addPartition(path, 2);
    const TemporaryTree place;
    m_machine.mount("sda2", place.folder("My\\040Disk"));
    place.folder("My Disk");
    const auto &disk = *scan().tbArray().at(0)->hddArray().at(0);
    EXPECT_EQ(disk.devPath(), "/dev/disk0");
    ASSERT_EQ(disk.bsdPathArray().size(), 1U) << "the partition that is not mounted is none";
    const auto &volume = *disk.bsdPathArray()[0];
    EXPECT_EQ(volume.devPath(), "/dev/disk0s2");
    ASSERT_NE(volume.mountPoint(), nullptr);
    EXPECT_EQ(*volume.mountPoint(), place.path("My Disk"));
    EXPECT_GT(volume.capacitySize().value_or(0), 0);
}

TEST_F(LinuxScan, FileSystemOnAWholeDiskIsAVolume)
{
    m_machine.addSataDisk(m_machine.controllerOf(addEnclosure(), 0), 0,
                          {.node = "sda", .properties = {"ID_FS_USAGE=filesystem", "ID_FS_TYPE=ext4"}});
    const TemporaryTree place;
    m_machine.mount("sda", place.root());
    const auto &disk = *scan().tbArray().at(0)->hddArray().at(0);
    ASSERT_EQ(disk.bsdPathArray().size(), 1U);
    EXPECT_EQ(disk.bsdPathArray()[0]->devPath(), "/dev/disk0s0");
    EXPECT_EQ(*disk.bsdPathArray()[0]->mountPoint(), place.root());
}

} // namespace orvana::test
