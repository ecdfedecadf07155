// The parts that all scans share: mount points, room, and what the lists hold.

#include "discovery/ORVScanDevice.h"
#include "support/DiskFreeLine.h"
#include "support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace orvana
{

using test::line;

class MountPoints : public testing::Test
{
protected:
    MountPoints()
    {
        auto &device = m_registry.tree->add(
            "IOThunderboltSwitch", "Box@1",
            {{"Device Vendor ID", std::int64_t{65}}, {"Device Model ID", std::int64_t{567}}});
        auto &media = m_registry.tree
                          ->add("IOPCIDevice", "pci-bridge@0/IOPP/pci1b21,612",
                                {{"Thunderbolt Path", device.path() + "/P"}})
                          .add("AppleAHCIDiskDriver", "D",
                               {{"Physical Interconnect Location", std::string("External")}})
                          .add("IOMedia", "disk3",
                               {{"Whole", true}, {"Open", true}, {"BSD Name", std::string("disk3")}});
        for (const char *name : {"disk3s1", "disk3s10"})
            media.add("IOMedia", name,
                      {{"Whole", false}, {"Leaf", true}, {"Open", true}, {"BSD Name", std::string(name)}});
        m_registry.tree
            ->add("AppleAHCIDiskDriver", "Internal",
                  {{"Physical Interconnect Location", std::string("Internal")}})
            .add("IOMedia", "disk0s1",
                 {{"Open", true}, {"Leaf", true}, {"BSD Name", std::string("disk0s1")}});
    }

    const ORVBsdInfo &volume(std::size_t index) const
    {
        return *m_scanner.tbArray().at(0)->hddArray().at(0)->bsdPathArray().at(index);
    }

    test::FakeRegistry m_registry;
    test::FakeListing m_listing;
    ORVScanDevice m_scanner{m_registry, m_listing};
};

TEST_F(MountPoints, LineFillsTheVolumeOfExactlyItsDevice)
{
    m_listing.text = line("/dev/disk3s1", "/Volumes/My Disk") + line("/dev/disk99", "/Volumes/Nobody");
    m_scanner.scanTBDevice();
    EXPECT_EQ(*volume(0).mountPoint(), "/Volumes/My Disk");
    EXPECT_EQ(volume(0).capacitySize(), 1000);
    EXPECT_EQ(volume(0).availableSize(), 400);
    EXPECT_EQ(volume(1).mountPoint(), nullptr);
}

TEST_F(MountPoints, LaterLineOfADeviceWins)
{
    m_listing.text = line("/dev/disk3s1", "/Volumes/Old") + line("/dev/disk3s1", "/Volumes/New", "7", "x");
    m_scanner.scanTBDevice();
    EXPECT_EQ(*volume(0).mountPoint(), "/Volumes/New");
    EXPECT_EQ(volume(0).capacitySize(), 7);
    EXPECT_EQ(volume(0).availableSize(), std::nullopt);
}

TEST_F(MountPoints, LineWithoutAMountPointGivesAnEmptyOne)
{
    m_listing.text = "/dev/disk3s1 5 1 4\n";
    m_scanner.scanTBDevice();
    ASSERT_NE(volume(0).mountPoint(), nullptr);
    EXPECT_EQ(*volume(0).mountPoint(), "");
}

TEST_F(MountPoints, MeasuringAgainRefreshesTheEnclosuresOnly)
{
    m_listing.text = line("/dev/disk3s1", "/Volumes/A") + line("/dev/disk0s1", "/");
    m_scanner.scanTBDevice();
    m_scanner.scanOtherDevice();
    m_listing.text = line("/dev/disk3s1", "/Volumes/A", "1000", "5") + line("/dev/disk0s1", "/", "1000", "5");
    m_scanner.reGetDiskVolume();
    EXPECT_EQ(volume(0).availableSize(), 5);
    EXPECT_EQ(m_scanner.otherDiskArray().at(0)->bsdPathArray().at(0)->availableSize(), 400);
}

TEST_F(MountPoints, VolumeThatNoLineNamesKeepsWhatItHas)
{
    m_listing.text = line("/dev/disk3s1", "/Volumes/A");
    m_scanner.scanTBDevice();
    m_listing.text = "";
    m_scanner.reGetDiskVolume();
    EXPECT_EQ(*volume(0).mountPoint(), "/Volumes/A");
}

TEST_F(MountPoints, ResetReplacesTheListsOfItsKey)
{
    m_scanner.scanTBDevice();
    m_scanner.scanOtherDevice();
    m_scanner.resetArray("tbbay4");
    m_scanner.resetArray("");
    EXPECT_EQ(m_scanner.tbArray().size(), 1U);
    const auto kept = m_scanner.tbArray()[0];
    m_scanner.resetArray("TBBay4");
    EXPECT_TRUE(m_scanner.tbArray().empty());
    EXPECT_EQ(kept->hddArray().size(), 1U) << "a record that was handed out stays valid";
    EXPECT_EQ(m_scanner.otherDiskArray().size(), 1U);
    m_scanner.resetArray("USB/1394");
    EXPECT_TRUE(m_scanner.otherDiskArray().empty());
    m_scanner.scanTBDevice();
    m_scanner.scanOtherDevice();
    ASSERT_EQ(m_scanner.otherDiskArray().size(), 1U);
    m_scanner.resetArray("All");
    EXPECT_TRUE(m_scanner.tbArray().empty());
    EXPECT_TRUE(m_scanner.otherDiskArray().empty());
}

TEST_F(MountPoints, DetectOptionFollowsTheEdition)
{
    m_scanner.Detect_System_Disk = false;
    for (const char *edition : {"Obsidio", "orvana", ""}) {
        m_scanner.Detect_ESATA_Device = true;
        m_scanner.setDetectOption(edition);
        EXPECT_FALSE(m_scanner.Detect_USB_1394_Device) << edition;
        EXPECT_FALSE(m_scanner.Detect_ESATA_Device) << edition;
    }
    m_scanner.Detect_ESATA_Device = true;
    m_scanner.setDetectOption("Orvana");
    EXPECT_TRUE(m_scanner.Detect_USB_1394_Device);
    EXPECT_TRUE(m_scanner.Detect_System_Disk);
    EXPECT_FALSE(m_scanner.Detect_ESATA_Device);
}

TEST_F(MountPoints, CommandOutputThatIsNotTextIsNothing)
{
    m_listing.text = "\xFF";
    EXPECT_EQ(m_scanner.runCommandWithCommand("/bin/df", {}), std::nullopt);
}

} // namespace orvana
