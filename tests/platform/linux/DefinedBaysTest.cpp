// Enclosures that a definition makes of docks, hubs, backplanes and cases, on made-up machines.

#include "platform/linux/DefinedBaysFixture.h"

namespace orvana::test
{

TEST_F(DefinedBays, UsbDockWithTwoSlotsIsAnEnclosureLikeAnyOther)
{
    const auto dock = m_machine.addUsb(m_rootHub, 1, HubIds, "D1");
    addDisk(dock, 1, "sdb", "SN1");
    m_machine.addPartition(addDisk(dock, 2, "sdc", "SN2"), 1);
    m_machine.mount("sdc1", "/media/anna/COPY");
    define("dock", TwoPorts, Hub);
    EXPECT_EQ(enclosures(), Lines{"dock: Slot-A SN1, Slot-B SN2"});
    EXPECT_EQ(otherDisks(), Lines{"INT1"}) << "a disk in a bay is among no other disks";
    const auto &enclosure = *m_scanner->tbArray().front();
    EXPECT_EQ(enclosure.vendorID(), 65);
    EXPECT_EQ(enclosure.moduleID(), 567);
    EXPECT_EQ(enclosure.hddArray()[0]->hddModel(), "Dock WD Red");
    EXPECT_EQ(enclosure.hddArray()[1]->bsdPathArray().size(), 1U);
    EXPECT_TRUE(facts("/dev/sdb").isInBay);
    EXPECT_TRUE(diskutil::checkErasable("/dev/sdb", facts("/dev/sdb")));
    EXPECT_FALSE(facts("/dev/sda").isInBay);
    EXPECT_TRUE(remarks().empty());
}

TEST_F(DefinedBays, WithoutADefinitionADockIsNoEnclosure)
{
    addDisk(m_machine.addUsb(m_rootHub, 1, HubIds), 1, "sdb", "SN1");
    EXPECT_TRUE(enclosures().empty());
    EXPECT_EQ(otherDisks(), (Lines{"INT1", "SN1"}));
    EXPECT_FALSE(facts("/dev/sdb").isInBay);
}

TEST_F(DefinedBays, HubWithFourSticksHasFourBays)
{
    const auto hub = m_machine.addUsb(m_rootHub, 4, HubIds);
    for (int port = 1; port <= 4; ++port)
        addDisk(hub, port, std::string("sd") + static_cast<char>('a' + port), "SN" + std::to_string(port));
    define("hub", FourPorts, Hub);
    EXPECT_EQ(enclosures(), Lines{"hub: Slot-A SN1, Slot-B SN2, Slot-C SN3, Slot-D SN4"});
}

TEST_F(DefinedBays, HubBehindAHubCountsFromItsOwnAnchor)
{
    const auto outer = m_machine.addUsb(m_rootHub, 1, "05e3:0612");
    const auto inner = m_machine.addUsb(outer, 3, HubIds);
    addDisk(outer, 1, "sdb", "SN1");
    addDisk(inner, 1, "sdc", "SN2");
    define("inner", TwoPorts, Hub);
    define("outer", R"({"A":{"port":"1"},"B":{"port":"3.2"}})", R"({"usb":"05e3:0612"})");
    EXPECT_EQ(enclosures(), (Lines{"inner: Slot-A SN2", "outer: Slot-A SN1"}));
    addDisk(inner, 2, "sdd", "SN3");
    EXPECT_EQ(enclosures(), (Lines{"inner: Slot-A SN2", "outer: Slot-A SN1"}))
        << "two definitions name its port";
    EXPECT_FALSE(facts("/dev/sdd").isInBay);
}

TEST_F(DefinedBays, SameDockTwiceIsToldBySerialNumberAndRefusedWithout)
{
    const auto first = m_machine.addUsb(m_rootHub, 1, HubIds, "D1");
    addDisk(first, 1, "sdb", "SN1");
    define("any", TwoPorts, Hub);
    EXPECT_EQ(enclosures(), Lines{"any: Slot-A SN1"});
    const auto second = m_machine.addUsb(m_rootHub, 2, HubIds, "D2");
    EXPECT_TRUE(enclosures().empty()) << "disks in it or not";
    EXPECT_FALSE(facts("/dev/sdb").isInBay);
    EXPECT_EQ(
        remarks(),
        Lines{"any (any.json): USB 2109:0817 is there 2 times and cannot be told apart; it has no bays"});
    addDisk(second, 1, "sdc", "SN2");
    define("second", TwoPorts, R"({"usb":"2109:0817","serial":"D2"})");
    EXPECT_EQ(enclosures(), Lines{"second: Slot-A SN2"});
}

TEST_F(DefinedBays, BackplaneOfEightIsTwoDefinitions)
{
    const auto path = [](int port) {
        return R"({"path":"pci-0000:00:1f.2-ata-)" + std::to_string(port) + R"("})";
    };
    const auto sata = m_machine.addAhci({}, "0000:00:1f.2", "0x8086", "0xa282");
    for (int port = 0; port < 8; ++port)
        m_machine.addSataDisk(sata, port,
                              {.node = std::string("sd") + static_cast<char>('b' + port),
                               .serial = "SN" + std::to_string(port + 1)});
    define("left",
           R"({"A":)" + path(1) + R"(,"B":)" + path(2) + R"(,"C":)" + path(3) + R"(,"D":)" + path(4) + "}");
    define("right",
           R"({"A":)" + path(5) + R"(,"B":)" + path(6) + R"(,"C":)" + path(7) + R"(,"D":)" + path(8) + "}");
    EXPECT_EQ(enclosures(), (Lines{"left: Slot-A SN1, Slot-B SN2, Slot-C SN3, Slot-D SN4",
                                   "right: Slot-A SN5, Slot-B SN6, Slot-C SN7, Slot-D SN8"}));
    EXPECT_EQ(m_scanner->tbArray()[0]->hddArray()[0]->hddModel(), "WD Red");
    EXPECT_NE(m_scanner->tbArray()[0]->uid(), m_scanner->tbArray()[1]->uid());
}

TEST_F(DefinedBays, FourNvmeDisksBehindASwitchAreCountedFromIt)
{
    const auto bridge = [&](const std::string &above, const std::string &name) {
        return m_machine.addPci(above, name, "0x1b21", "0x2824", "0x060400");
    };
    const auto upper = bridge(m_otherPort, "0000:40:00.0");
    std::string bays;
    for (int i = 0; i < 4; ++i) {
        const auto digit = std::to_string(i);
        const auto lower = bridge(upper, "0000:41:0" + digit + ".0");
        const auto nvme = m_machine.addPci(lower, "0000:4" + std::to_string(i + 2) + ":00.0", "0x144d",
                                           "0xa808", "0x010802");
        m_machine.addNvmeDisk(nvme,
                              {.node = "nvme" + digit + "n1", .model = "980 PRO", .serial = "NV" + digit});
        bays.append(bays.empty() ? "{" : ",")
            .append("\"")
            .append(1, static_cast<char>('A' + i))
            .append(R"(":{"port":"0)");
        bays.append(digit).append(R"(.0/00.0-nvme-1"})");
    }
    define("case", bays + "}", R"({"pci":"1b21:2824"})");
    EXPECT_EQ(enclosures(), Lines{"case: Slot-A NV0, Slot-B NV1, Slot-C NV2, Slot-D NV3"});
    EXPECT_EQ(m_scanner->tbArray()[0]->hddArray()[0]->hddModel(), "980 PRO");
    bridge(m_port, "0000:50:00.0");
    EXPECT_TRUE(enclosures().empty()) << "two switches of the same kind";
}

TEST_F(DefinedBays, BridgeWithFourDisksTellsThemByTheirNumber)
{
    for (int lun = 0; lun < 4; ++lun)
        addDisk(m_rootHub, 1, std::string("sd") + static_cast<char>('b' + lun), "SN" + std::to_string(lun),
                lun);
    define("bridge", R"({"A":{"lun":0},"B":{"lun":1},"C":{"lun":2},"D":{"lun":3}})",
           R"({"usb":"152d:0578"})");
    EXPECT_EQ(enclosures(), Lines{"bridge: Slot-A SN0, Slot-B SN1, Slot-C SN2, Slot-D SN3"});
}

TEST_F(DefinedBays, SlotsOfACardReaderAreBaysAndEmptyOnesHoldNothing)
{
    const auto reader = m_machine.addUsb(m_rootHub, 1, "05e3:0749");
    m_machine.addUsbDisk(reader, {.node = "sdb", .serial = "READER", .blocks = 0}, 0);
    m_machine.addUsbDisk(reader, {.node = "sdc", .serial = "READER2", .blocks = 62'333'952}, 1);
    define("reader", R"({"A":{"lun":0},"B":{"lun":1}})", R"({"usb":"05e3:0749"})");
    EXPECT_EQ(enclosures(), Lines{"reader: Slot-B READER2"});
}

TEST_F(DefinedBays, SocketsForFastAndForSlowDevicesAreToldByTheRevisionOfTheBus)
{
    const auto slowHub = m_machine.add("/sys/devices/pci0000:00/0000:00:14.0/usb1", "usb",
                                       {"E: DEVTYPE=usb_device", "A: idVendor=1d6b", "A: version= 2.00"});
    m_machine.addUsbDisk(m_machine.addUsb(slowHub, 4, "152d:0578"), {.node = "sdb", .serial = "SN1"});
    define("fast", R"({"A":{"path":"pci-0000:00:14.0-usbv3-0:4:1.0-scsi-0:0:0:0"},"B":{"path":"b"}})");
    EXPECT_EQ(enclosures(), Lines{"fast"});
    EXPECT_FALSE(facts("/dev/sdb").isInBay);
    define("slow", R"({"A":{"path":"pci-0000:00:14.0-usbv2-0:4:1.0-scsi-0:0:0:0"},"B":{"path":"c"}})");
    EXPECT_EQ(enclosures(), (Lines{"fast", "slow: Slot-A SN1"}));
}

TEST_F(DefinedBays, PathsHaveTheFormOfUdev)
{
    const auto system = [&] { return platform::linux_host::readDevices(); };
    const auto pathOf = [&](const std::string &disk) {
        const auto devices = system();
        return platform::linux_host::idPathOf(devices, *devices.at(disk));
    };
    EXPECT_EQ(pathOf("/sys" + m_internal.substr(4) + "/ata1/host1/target1:0:0/1:0:0:0/block/sda"),
              "pci-0000:00:17.0-ata-1.0");
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    EXPECT_EQ(pathOf(addDisk(hub, 3, "sdb", "SN1")), "pci-0000:00:14.0-usb-0:1.3:1.0-scsi-0:0:0:0");
    EXPECT_EQ(pathOf(addDisk(hub, 3, "sdc", "SN1", 2)), "pci-0000:00:14.0-usb-0:1.3:1.0-scsi-0:0:0:2");
    const auto nvme = m_machine.addPci({}, "0000:00:1d.0", "0x144d", "0xa808", "0x010802");
    EXPECT_EQ(pathOf(m_machine.addNvmeDisk(nvme, {.node = "nvme0n1"})), "pci-0000:00:1d.0-nvme-1");
    const auto sas = m_machine.addPci({}, "0000:00:1c.0", "0x1000", "0x0097", "0x010700");
    const auto port = sas + "/host7/port-7:0";
    m_machine.add(port + "/sas_port/port-7:0", "sas_port", {"A: num_phys=1"});
    const auto end = port + "/end_device-7:0";
    m_machine.add(end + "/sas_device/end_device-7:0", "sas_device",
                  {"A: phy_identifier=4", "A: sas_address=0x4433221104000000"});
    const auto scsi = m_machine.add(end + "/target7:0:0/7:0:0:0", "scsi", {"E: DEVTYPE=scsi_device"});
    EXPECT_EQ(pathOf(m_machine.addBlock(scsi, {.node = "sdd"})), "pci-0000:00:1c.0-sas-phy4-lun-0");
    const auto fibre =
        m_machine.add(sas + "/host8/rport-8:0-1/target8:0:0/8:0:0:0", "scsi", {"E: DEVTYPE=scsi_device"});
    EXPECT_EQ(pathOf(m_machine.addBlock(fibre, {.node = "sde"})), "");
}

TEST_F(DefinedBays, DiskNamesAndNumbersAreNeverUsedAgainAsInAnyEnclosure)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, HubIds);
    const auto disk = addDisk(hub, 1, "sdb", "SN1");
    define("hub", TwoPorts, Hub);
    const auto first = scan().tbArray()[0]->hddArray()[0]->devPath();
    m_machine.pull(disk);
    scan();
    m_machine.addUsbDisk(m_bridge, {.node = "sdb", .serial = "SN2"}, 1);
    EXPECT_NE(scan().tbArray()[0]->hddArray()[0]->devPath(), first);
}

} // namespace orvana::test
