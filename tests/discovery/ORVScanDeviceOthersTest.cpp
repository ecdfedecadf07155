// The scans for disks outside the enclosures, on trees built by hand.

#include "discovery/ScanFixture.h"

namespace orvana
{

class OtherDisks : public Scan
{
protected:
    RegistryNode &addServices(const Properties &protocol, const Properties &device)
    {
        const auto dictionary = [](const Properties &values) {
            return std::make_shared<const platform::RegistryDictionary>(platform::RegistryDictionary{values});
        };
        return m_registry.tree->add("IOBlockStorageServices", "services",
                                    {{"Protocol Characteristics", dictionary(protocol)},
                                     {"Device Characteristics", dictionary(device)}});
    }

    static Properties external(const std::string &bus)
    {
        return {{"Physical Interconnect", bus}, {"Physical Interconnect Location", std::string("External")}};
    }

    std::vector<std::string> models() const
    {
        std::vector<std::string> list;
        for (const auto &disk : m_scanner.otherDiskArray())
            list.push_back(disk->hddModel().value_or("?"));
        return list;
    }
};

TEST_F(OtherDisks, UsbDiskIsListedInTheMakersEditionOnly)
{
    addServices(external("USB"),
                {{"Vendor Name", std::string("  Fast  ")}, {"Product Name", std::string(" Stick\n")}});
    m_scanner.setDetectOption("Obsidio");
    m_scanner.scanOtherDevice();
    EXPECT_TRUE(models().empty());
    m_scanner.setDetectOption("Orvana");
    m_scanner.scanOtherDevice();
    EXPECT_EQ(models(), (std::vector<std::string>{"Fast Stick"}));
}

TEST_F(OtherDisks, OnlyExternalUsbAndFireWireCountByTheirExactNames)
{
    addServices({{"Physical Interconnect", std::string("USB")},
                 {"Physical Interconnect Location", std::string("Internal")}},
                {});
    addServices(external("usb"), {});
    addServices(external("SATA"), {});
    m_registry.tree->add("IOBlockStorageServices", "bare");
    m_scanner.scanOtherDevice();
    EXPECT_TRUE(models().empty());
}

TEST_F(OtherDisks, MissingVendorReadsNull)
{
    addServices(external("USB"), {{"Product Name", std::string("Stick")}});
    m_scanner.scanOtherDevice();
    EXPECT_EQ(models(), (std::vector<std::string>{"(null) Stick"}));
}

TEST_F(OtherDisks, FireWireDisksComeAfterInternalOnesAndHaveNoSerial)
{
    addServices(external("FireWire"),
                {{"Vendor Name", std::string("F")}, {"Product Name", std::string("W")}});
    m_registry.tree->add("AppleAHCIDiskDriver", "internal",
                         {{"Physical Interconnect Location", std::string("Internal")},
                          {"Model", std::string("SSD")},
                          {"Serial Number", std::string("S1")}});
    m_scanner.scanOtherDevice();
    EXPECT_EQ(models(), (std::vector<std::string>{"SSD", "F W"}));
    EXPECT_EQ(m_scanner.otherDiskArray()[0]->hddSN(), "S1");
    EXPECT_EQ(m_scanner.otherDiskArray()[1]->hddSN(), std::nullopt);
}

TEST_F(OtherDisks, InternalDiskTakesTheLastOpenMediumThatIsNoLeaf)
{
    auto &driver = m_registry.tree->add("AppleAHCIDiskDriver", "internal",
                                        {{"Physical Interconnect Location", std::string("Internal")}});
    auto &whole = driver.add(
        "IOMedia", "whole",
        {{"Open", true}, {"Leaf", false}, {"BSD Name", std::string("disk0")}, {"Size", std::int64_t{10}}});
    auto &container = whole.add(
        "IOMedia", "container",
        {{"Open", true}, {"Leaf", false}, {"BSD Name", std::string("disk1")}, {"Size", std::int64_t{9}}});
    container.add("IOMedia", "volume",
                  {{"Open", true}, {"Leaf", true}, {"BSD Name", std::string("disk1s1")}});
    container.add("IOMedia", "closed",
                  {{"Open", false}, {"Leaf", true}, {"BSD Name", std::string("disk1s2")}});
    m_scanner.scanOtherDevice();
    const auto &disk = *m_scanner.otherDiskArray().at(0);
    EXPECT_EQ(disk.devPath(), "/dev/disk1");
    EXPECT_EQ(disk.diskSize(), 9);
    ASSERT_EQ(disk.bsdPathArray().size(), 1U);
    EXPECT_EQ(disk.bsdPathArray()[0]->devPath(), "/dev/disk1s1");
    EXPECT_FALSE(disk.isUnFormated());
}

TEST_F(OtherDisks, EsataPassComparesWithTheLastEnclosureOnly)
{
    const auto &first = addSwitch(65, 567);
    const auto &last = addSwitch(65, 568);
    addDisk(first, "pci-bridge@0/IOPP/pci1b21,612", {{"Model", std::string("in the first")}});
    addDisk(last, "pci-bridge@0/IOPP/pci1b21,612", {{"Model", std::string("in the last")}});
    m_registry.tree->add(
        "AppleAHCIDiskDriver", "loose",
        {{"Physical Interconnect Location", std::string("External")}, {"Model", std::string("eSATA")}});
    m_scanner.scanTBDevice();
    m_scanner.scanOtherDevice();
    EXPECT_TRUE(models().empty()) << "the pass is off by itself";
    m_scanner.Detect_ESATA_Device = true;
    m_scanner.scanOtherDevice();
    EXPECT_EQ(models(), (std::vector<std::string>{"in the first", "eSATA"}));
}

TEST_F(OtherDisks, OtherThunderboltPassNeverListsAnything)
{
    addSwitch(65, 999);
    addSwitch(4, 1);
    const auto &device = addSwitch(65, 567);
    addDisk(device, "pci-bridge@0/IOPP/pci1b21,612");
    m_listing.text = "Filesystem\n/dev/disk1s1 9 1 8 1% 0 0 0% /Volumes/X\n";
    m_scanner.scanOtherTBDevice();
    EXPECT_TRUE(m_scanner.otherTBArray().empty());
    m_scanner.scanTBDevice();
    m_scanner.scanOtherDevice();
    m_scanner.scanOtherTBDevice();
    EXPECT_TRUE(m_scanner.otherTBArray().empty()) << "also beside the other scans";
    EXPECT_EQ(m_scanner.tbArray().size(), 1U);
}

TEST_F(OtherDisks, ListingOfOtherThunderboltVolumesFindsNothingToFill)
{
    // The scan lists no such device, so the test calls the walk of the mount points directly.
    const auto &device = addSwitch(65, 567);
    auto &whole = addWhole(addDisk(device, "pci-bridge@0/IOPP/pci1b21,612"), "disk1", {{"Open", true}});
    addPartition(whole, "disk1s1", true);
    m_scanner.scanTBDevice();
    m_listing.text = "Filesystem\n/dev/disk1s1 9 1 8 1% 0 0 0% /Volumes/X\n";
    m_scanner.getOtherTBDiskMountPoint();
    EXPECT_FALSE(firstDisk().bsdPathArray().at(0)->mountPoint());
    m_scanner.getMountPoint();
    ASSERT_TRUE(firstDisk().bsdPathArray().at(0)->mountPoint()) << "the other way round, this one fills it";
}

TEST_F(OtherDisks, ResultsTellWhetherAnythingWasSeen)
{
    const ORVScanDevice::Iterator nothing;
    EXPECT_EQ(m_scanner.getSystemHddInfo(nothing), 5);
    EXPECT_EQ(m_scanner.getExternelDiskInfo(nothing), 5);
    EXPECT_EQ(m_scanner.getESATADiskInfo(nothing), 5);
    EXPECT_EQ(m_scanner.getOtherThunderboltInfo(nothing), 5);
    EXPECT_EQ(m_scanner.getOtherThunderboltHddInfo(nothing), 5);
    // One entry is enough, even if the scan then leaves it out.
    addServices(external("SATA"), {});
    ORVScanDevice::Iterator one;
    ASSERT_EQ(m_scanner.scanForDeviceName("USB_1394_Disks", one), platform::RegistrySuccess);
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(m_scanner.getSystemHddInfo(one), 0);
    EXPECT_EQ(m_scanner.getExternelDiskInfo(one), 0);
    EXPECT_EQ(m_scanner.getESATADiskInfo(one), 0);
    EXPECT_EQ(m_scanner.getOtherThunderboltInfo(one), 0);
    EXPECT_EQ(m_scanner.getOtherThunderboltHddInfo(one), 0);
}

TEST_F(OtherDisks, FirstQueryThatFailsEndsEachScanAtOnce)
{
    addSwitch(65, 567);
    m_registry.tree->add("AppleAHCIDiskDriver", "internal",
                         {{"Physical Interconnect Location", std::string("Internal")}});
    for (const auto scan :
         {&ORVScanDevice::scanTBDevice, &ORVScanDevice::scanOtherDevice, &ORVScanDevice::scanOtherTBDevice}) {
        m_registry.queries = 0;
        m_registry.failingQuery = 1;
        (m_scanner.*scan)();
        EXPECT_EQ(m_registry.queries, 1);
    }
    EXPECT_TRUE(m_scanner.tbArray().empty());
    EXPECT_TRUE(models().empty());
    EXPECT_EQ(m_listing.runs, 0);
}

TEST_F(OtherDisks, FailedQueryEndsThePassWithoutMountPoints)
{
    m_registry.tree->add(
        "AppleAHCIDiskDriver", "internal",
        {{"Physical Interconnect Location", std::string("Internal")}, {"Model", std::string("SSD")}});
    m_registry.failingQuery = 2;
    m_scanner.scanOtherDevice();
    EXPECT_EQ(models(), (std::vector<std::string>{"SSD"}));
    EXPECT_EQ(m_listing.runs, 0);
}

} // namespace orvana
