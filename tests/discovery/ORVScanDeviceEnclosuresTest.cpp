// The scan for enclosures, on trees built by hand.

#include "discovery/ScanFixture.h"

namespace orvana
{

TEST_F(Scan, SwitchBecomesARecord)
{
    auto &host = m_registry.tree->add("IOThunderboltSwitch", "Host@0", {{"UID", std::int64_t{7}}});
    host.add("IOThunderboltSwitch", "Box@1",
             {{"Device Vendor ID", std::int64_t{65}},
              {"Device Model ID", std::int64_t{568}},
              {"Device Model Name", std::string("Four Bay")},
              {"Device Vendor Name", std::string("Maker")},
              {"UID", std::int64_t{9}},
              {"Depth", std::int64_t{1}},
              {"Route String", std::int64_t{3}}});
    m_scanner.scanTBDevice();
    ASSERT_EQ(m_scanner.tbArray().size(), 1U);
    const auto &record = *m_scanner.tbArray()[0];
    EXPECT_EQ(record.moduleName(), "Four Bay");
    EXPECT_EQ(record.vendorName(), "Maker");
    EXPECT_EQ(record.uid(), 9);
    EXPECT_EQ(record.parentTb(), 7);
    EXPECT_EQ(record.routeSring(), 3);
    EXPECT_EQ(record.moduleID(), 568);
    EXPECT_EQ(record.vendorID(), 65);
    EXPECT_EQ(record.depth(), 1);
    EXPECT_EQ(record.state(), 4);
    EXPECT_FLOAT_EQ(record.portNum(), 0.0F);
    EXPECT_EQ(record.tbPath(), "IOService:/Host@0/Box@1");
}

TEST_F(Scan, SwitchAtDepthZeroHasNoParent)
{
    m_registry.tree->add("IOThunderboltSwitch", "Box@1",
                         {{"Device Vendor ID", std::int64_t{65}},
                          {"Device Model ID", std::int64_t{567}},
                          {"UID", std::int64_t{9}},
                          {"Depth", std::int64_t{0}}});
    m_scanner.scanTBDevice();
    EXPECT_EQ(m_scanner.tbArray().at(0)->parentTb(), std::nullopt);
}

TEST_F(Scan, MakersSwitchOfAnotherModelIsSeenAndNotListed)
{
    addSwitch(65, 569);
    ORVScanDevice::Iterator iterator;
    ASSERT_EQ(m_scanner.scanForDeviceName("thunderbolt", iterator), 0);
    EXPECT_EQ(m_scanner.getThunderboltInfo(iterator), 0);
    EXPECT_TRUE(m_scanner.tbArray().empty());
}

TEST_F(Scan, WithoutASwitchNothingIsSeen)
{
    EXPECT_EQ(m_scanner.getThunderboltInfo({}), 5);
    EXPECT_EQ(m_scanner.getHddInfo({}), 5);
    m_scanner.scanTBDevice();
    EXPECT_TRUE(m_scanner.tbArray().empty());
}

TEST_F(Scan, DiskIsAssignedByItsThunderboltPath)
{
    const auto &device = addSwitch(65, 567);
    auto &disk = addDisk(device, "pci-bridge@1/IOPP/pci1b21,612@0",
                         {{"Model", std::string("  HD 1 ")}, {"Serial Number", std::string("\tSN1\n")}});
    addPartition(addWhole(disk, "disk3", {{"Open", true}, {"Size", std::int64_t{4096}}}), "disk3s1", true);
    m_registry.tree
        ->add("IOPCIDevice", "elsewhere", {{"Thunderbolt Path", std::string("IOService:/Other/Port")}})
        .add("AppleAHCIDiskDriver", "Driver", {{"Physical Interconnect Location", std::string("External")}});
    m_registry.tree->add("AppleAHCIDiskDriver", "Loose",
                         {{"Physical Interconnect Location", std::string("External")}});
    m_scanner.scanTBDevice();
    ASSERT_EQ(m_scanner.tbArray().at(0)->hddArray().size(), 1U);
    EXPECT_EQ(firstDisk().hddModel(), "HD 1");
    EXPECT_EQ(firstDisk().hddSN(), "SN1");
    EXPECT_EQ(firstDisk().slotPath(), "Slot-B");
    EXPECT_EQ(firstDisk().devPath(), "/dev/disk3");
    EXPECT_EQ(firstDisk().diskSize(), 4096);
}

TEST_F(Scan, DiskBehindAnOddBridgeHasNoBayButIsListed)
{
    addDisk(addSwitch(65, 567), "pci-bridge@2/IOPP/pci1b21,625@0");
    m_scanner.scanTBDevice();
    EXPECT_EQ(firstDisk().slotPath(), std::nullopt);
    EXPECT_EQ(firstDisk().hddModel(), std::nullopt);
    EXPECT_EQ(firstDisk().devPath(), std::nullopt) << "no media was found beneath it";
}

TEST_F(Scan, WholeDiskThatNobodyOpenedIsUnformatted)
{
    addWhole(addDisk(addSwitch(65, 567), "pci-bridge@0/IOPP/pci1b21,612"), "disk3", {{"Open", false}});
    m_scanner.scanTBDevice();
    EXPECT_TRUE(firstDisk().isUnFormated());
    EXPECT_TRUE(firstDisk().bsdPathArray().empty());
}

TEST_F(Scan, PartitionThatIsNoVolumeIsNotedAndWhatIsNoPartitionIsNot)
{
    const auto &device = addSwitch(65, 567);
    auto &driver = addDisk(device, "pci-bridge@0/IOPP/pci1b21,612");
    auto &whole = addWhole(driver.add("IOBlockStorageDriver", "driver"), "disk1", {{"Open", true}});
    addPartition(whole, "disk1s1", true);
    m_scanner.scanTBDevice();
    EXPECT_FALSE(firstDisk().hasOtherPartitions());
    addPartition(whole, "disk1s2", false);
    m_scanner.resetArray("All");
    m_scanner.scanTBDevice();
    EXPECT_TRUE(firstDisk().hasOtherPartitions());
}

TEST_F(Scan, MissingPropertiesCountAsNeither)
{
    auto &media = addWhole(addDisk(addSwitch(65, 567), "pci-bridge@0/IOPP/pci1b21,612"), "disk3", {});
    media.add("IOMedia", "no whole", {{"Open", true}, {"Leaf", true}, {"BSD Name", std::string("disk3s1")}});
    media.add("IOMedia", "no leaf", {{"Open", true}, {"Whole", false}, {"BSD Name", std::string("disk3s2")}});
    m_scanner.scanTBDevice();
    EXPECT_FALSE(firstDisk().isUnFormated());
    EXPECT_FALSE(firstDisk().isRaidFormated());
    EXPECT_TRUE(firstDisk().bsdPathArray().empty());
}

TEST_F(Scan, MemberOfARaidSetIsOneVolume)
{
    addWhole(addDisk(addSwitch(65, 567), "pci-bridge@0/IOPP/pci1b21,612"), "disk3",
             {{"Open", true}, {"RAID", true}});
    m_scanner.scanTBDevice();
    EXPECT_TRUE(firstDisk().isRaidFormated());
    ASSERT_EQ(firstDisk().bsdPathArray().size(), 1U);
    EXPECT_EQ(firstDisk().bsdPathArray()[0]->devPath(), "/dev/disk3");
}

TEST_F(Scan, OnlyOpenLeavesAreVolumes)
{
    auto &whole =
        addWhole(addDisk(addSwitch(65, 567), "pci-bridge@0/IOPP/pci1b21,612"), "disk3", {{"Open", true}});
    addPartition(whole, "disk3s1", true);
    addPartition(whole, "disk3s2", false);
    auto &container = addPartition(whole, "disk3s3", true, false);
    addPartition(container, "disk4s1", true);
    whole.add("IOMedia", "nameless", {{"Whole", false}, {"Leaf", true}, {"Open", true}});
    m_scanner.scanTBDevice();
    std::vector<std::string> paths;
    for (const auto &volume : firstDisk().bsdPathArray())
        paths.push_back(volume->devPath());
    EXPECT_EQ(paths, (std::vector<std::string>{"/dev/disk3s1", "/dev/disk4s1", ""}));
}

TEST_F(Scan, LastWholeDiskInTheWalkWins)
{
    auto &disk = addDisk(addSwitch(65, 567), "pci-bridge@0/IOPP/pci1b21,612");
    addWhole(disk, "disk3", {{"Open", false}, {"Size", std::int64_t{1}}});
    addWhole(disk, "disk4", {{"Open", true}, {"Size", std::int64_t{2}}});
    m_scanner.scanTBDevice();
    EXPECT_EQ(firstDisk().devPath(), "/dev/disk4");
    EXPECT_EQ(firstDisk().diskSize(), 2);
    EXPECT_FALSE(firstDisk().isUnFormated());
}

TEST_F(Scan, LongDeviceNameIsCut)
{
    addWhole(addDisk(addSwitch(65, 567), "pci-bridge@0/IOPP/pci1b21,612"), std::string(2000, 'd'), {});
    m_scanner.scanTBDevice();
    EXPECT_EQ(firstDisk().devPath()->size(), 1023U);
}

TEST_F(Scan, ScanningTwiceWithoutAResetListsTwice)
{
    addDisk(addSwitch(65, 567), "pci-bridge@0/IOPP/pci1b21,612");
    m_scanner.scanTBDevice();
    m_scanner.scanTBDevice();
    ASSERT_EQ(m_scanner.tbArray().size(), 2U);
    // Both records have the same path, so the second pass assigns the disk to both.
    EXPECT_EQ(m_scanner.tbArray()[0]->hddArray().size(), 2U);
    EXPECT_EQ(m_scanner.tbArray()[1]->hddArray().size(), 1U);
}

TEST_F(Scan, FailedQueryEndsTheScanSilently)
{
    addDisk(addSwitch(65, 567), "pci-bridge@0/IOPP/pci1b21,612");
    m_registry.failingQuery = 2;
    m_scanner.scanTBDevice();
    EXPECT_EQ(m_scanner.tbArray().size(), 1U);
    EXPECT_TRUE(m_scanner.tbArray()[0]->hddArray().empty());
    EXPECT_EQ(m_listing.runs, 0);
}

TEST_F(Scan, UnknownCategoryAndMissingDictionaryAreLogged)
{
    ORVScanDevice::Iterator iterator;
    EXPECT_NE(m_scanner.scanForDeviceName("floppy", iterator), 0);
    m_registry.hasNoDictionaries = true;
    EXPECT_NE(m_scanner.scanForDeviceName("hdd", iterator), 0);
    EXPECT_EQ(m_log.all(), (std::vector<std::string>(2, "IOServiceMatching returned a NULL dictionary.")));
}

TEST_F(Scan, RootPortIsTheFirstSwitchAboveBelowDepthThree)
{
    auto &near = m_registry.tree->add("S", "near", {{"Depth", std::int64_t{2}}, {"UID", std::int64_t{22}}});
    auto &far = near.add("S", "far", {{"Depth", std::int64_t{3}}, {"UID", std::int64_t{33}}});
    EXPECT_EQ(ORVScanDevice::getrootPort(far.add("D", "disk")), 22);
    EXPECT_EQ(ORVScanDevice::getrootPort(*m_registry.tree), std::nullopt);
}

} // namespace orvana
