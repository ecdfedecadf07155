// The scan of disks on USB and FireWire.

#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

class ExternalDisks : public LinuxFixture
{
protected:
    std::string addUsb(const std::string &removable, const MadeUpDisk &disk)
    {
        const auto controller = m_machine.addPci({}, "0000:00:14.0", "0x8086", "0xa36d", "0x0c0330");
        const auto usb = m_machine.add(controller + "/usb1/1-1", "usb",
                                       {"E: DEVTYPE=usb_device", "A: removable=" + removable});
        return m_machine.addBlock(usb + "/1-1:1.0/host9/target9:0:0/9:0:0:0", disk);
    }

    static MadeUpDisk stick()
    {
        return {.node = "sdu",
                .model = "Ultra",
                .serial = "U1",
                .properties = {"ID_BUS=usb", "ID_VENDOR_ENC=\\x20SanDisk\\x20", "ID_MODEL_ENC=Ultra\\x20"}};
    }
};

TEST_F(ExternalDisks, UsbDiskIsListedByVendorAndProduct)
{
    addUsb("removable", stick());
    ASSERT_EQ(scan().otherDiskArray().size(), 1U);
    EXPECT_EQ(m_scanner->otherDiskArray()[0]->hddModel(), "SanDisk Ultra");
    EXPECT_EQ(m_scanner->otherDiskArray()[0]->hddSN(), std::nullopt);
}

TEST_F(ExternalDisks, BuiltInCardReaderIsNotListed)
{
    addUsb("fixed", stick());
    EXPECT_TRUE(scan().otherDiskArray().empty());
}

TEST_F(ExternalDisks, DiskBehindABuiltInHubIsListed)
{
    const auto controller = m_machine.addPci({}, "0000:00:15.0", "0x8086", "0xa12f", "0x0c0330");
    const auto hub =
        m_machine.add(controller + "/usb3/3-1", "usb", {"E: DEVTYPE=usb_device", "A: removable=fixed"});
    const auto device =
        m_machine.add(hub + "/3-1.2", "usb", {"E: DEVTYPE=usb_device", "A: removable=removable"});
    m_machine.addBlock(device + "/3-1.2:1.0/host9/target9:0:0/9:0:0:0", stick());
    EXPECT_EQ(scan().otherDiskArray().size(), 1U);
}

TEST_F(ExternalDisks, DiskWithAVolumeGroupInUseKeepsItsOwnDevice)
{
    auto disk = stick();
    disk.properties.push_back("ID_PART_TABLE_TYPE=gpt");
    const auto path = addUsb("removable", disk);
    const auto partition = m_machine.addPartition(path, 1, {"ID_FS_USAGE=raid", "ID_FS_TYPE=LVM2_member"});
    m_machine.makeFolder(partition + "/holders/dm-0");
    ASSERT_EQ(scan().otherDiskArray().size(), 1U);
    EXPECT_EQ(m_scanner->otherDiskArray()[0]->devPath(), "/dev/disk0");
}

TEST_F(ExternalDisks, CardReaderOnACableIsNotListed)
{
    auto reader = stick();
    reader.properties.push_back("ID_DRIVE_FLASH_SD=1");
    addUsb("removable", reader);
    EXPECT_TRUE(scan().otherDiskArray().empty());
}

TEST_F(ExternalDisks, FireWireDiskIsListedAfterTheInternalOnes)
{
    const auto controller = m_machine.addPci({}, "0000:00:10.0", "0x11c1", "0x5901", "0x0c0010");
    const auto unit = m_machine.add(controller + "/fw1/fw1.0", "firewire");
    m_machine.addBlock(unit + "/host8/target8:0:0/8:0:0:0",
                       {.node = "sdf", .properties = {"ID_VENDOR=LaCie", "ID_MODEL_ENC=Rugged"}});
    m_machine.addSataDisk(m_internal, 0, {.node = "sda"});
    const auto &disks = scan().otherDiskArray();
    ASSERT_EQ(disks.size(), 2U);
    EXPECT_EQ(disks[0]->hddModel(), "WD Red");
    EXPECT_EQ(disks[1]->hddModel(), "LaCie Rugged");
}

} // namespace orvana::test
