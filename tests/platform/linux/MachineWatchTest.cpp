// Devices that come and go, and the contract of hosts on a made-up machine.

#include "contract/HostContract.h"
#include "duplicate/engine/FileCopy.h"
#include "platform/linux/HotPlugFixture.h"
#include "support/TestHost.h"

namespace orvana::test
{

using Told = std::vector<std::string>;

TEST_F(HotPlug, EnclosureThatComesIsToldByItsControllers)
{
    watch();
    EXPECT_TRUE(m_told.empty());
    const auto upper = addEnclosure("625");
    for (const int bridge : {0, 3}) {
        m_machine.tell(m_machine.controllerOf(upper, bridge), "add");
        m_machine.tell(m_machine.controllerOf(upper, bridge), "bind");
    }
    runUntil("attached", 2);
    m_machine.pull(m_machine.controllerOf(upper, 3));
    runUntil("detached");
    EXPECT_EQ(m_told, (Told{"attached", "attached", "detached"})) << "add and bind are one arrival";
}

TEST_F(HotPlug, OtherPciDeviceIsNotTold)
{
    const auto upper = addEnclosure("625");
    watch();
    m_machine.tell(m_machine.addPci({}, "0000:00:1e.0", "0x1af4", "0x1001", "0x010000"), "add");
    m_machine.pull(m_machine.controllerOf(upper, 0));
    runUntil("detached");
    EXPECT_EQ(m_told, Told{"detached"});
}

TEST_F(HotPlug, DiskThatFollowsItsControllerIsTold)
{
    const auto upper = addEnclosure("612");
    watch();
    const auto path = m_machine.addSataDisk(m_machine.controllerOf(upper, 1), 0, {.node = "sda"});
    m_machine.tell(path, "add");
    runUntil("attached");
    EXPECT_EQ(baysOf(*scan().tbArray().at(0)), Told{"Slot-B SN1"});
}

TEST_F(HotPlug, DiskThatLeavesItsBayIsToldThoughItsControllerStays)
{
    const auto upper = addEnclosure("612");
    const auto first = m_machine.addSataDisk(m_machine.controllerOf(upper, 0), 0, {.node = "sda"});
    watch();
    const auto second =
        m_machine.addSataDisk(m_machine.controllerOf(upper, 1), 0, {.node = "sdb", .serial = "SN2"});
    m_machine.tell(second, "add");
    runUntil("attached");
    m_machine.pull(first);
    m_machine.pull(second);
    runUntil("detached", 2);
    EXPECT_EQ(m_told, (Told{"attached", "detached", "detached"}));
}

TEST_F(HotPlug, EnclosureThatGoesIsToldAndListedNoMore)
{
    const auto upper = addEnclosure("612");
    m_machine.addSataDisk(m_machine.controllerOf(upper, 0), 0, {.node = "sda"});
    watch();
    EXPECT_EQ(scan().tbArray().size(), 1U);
    m_machine.pull(upper);
    m_machine.pull(m_router);
    runUntil("detached", 4);
    EXPECT_EQ(m_told, (Told{"detached", "detached", "detached", "detached"}));
    EXPECT_TRUE(scan().tbArray().empty());
}

TEST_F(HotPlug, DiskThatComesBackHasAnotherName)
{
    const auto controller = m_machine.controllerOf(addEnclosure("612"), 0);
    const auto path = m_machine.addSataDisk(controller, 0, {.node = "sda"});
    EXPECT_EQ(scan().tbArray().at(0)->hddArray().at(0)->devPath(), "/dev/disk0");
    m_machine.pull(path);
    m_machine.addSataDisk(controller, 0, {.node = "sda"});
    EXPECT_EQ(scan().tbArray().at(0)->hddArray().at(0)->devPath(), "/dev/disk1");
}

TEST_F(HotPlug, PulledDiskTakesItsVolumeAlongThoughTheMountTableKeepsIt)
{
    const auto disk =
        m_machine.addSataDisk(m_machine.controllerOf(addEnclosure("612"), 0), 0, {.node = "sda"});
    m_machine.addPartition(disk, 1);
    m_machine.mount("sda1", "/media/anna/COPY");
    watch();
    platform::linux_host::LinuxMachine machine({m_machine.mountFile(), m_machine.swapFile(), "/none"});
    EXPECT_EQ(machine.snapshot()->volumes.size(), 1U);
    m_machine.pull(disk);
    runUntil("unmounted");
    EXPECT_EQ(m_told, Told{"unmounted"});
    EXPECT_TRUE(machine.snapshot()->volumes.empty());
}

TEST_F(HotPlug, MountsAreToldWhenTheTableChanges)
{
    const auto disk =
        m_machine.addSataDisk(m_machine.controllerOf(addEnclosure("612"), 0), 0, {.node = "sda"});
    m_machine.addPartition(disk, 1);
    watch();
    m_machine.mount("sda1", "/media/anna/COPY");
    host().take({});
    m_machine.unmount("/media/anna/COPY");
    m_machine.mount("sda1", "/media/anna/OTHER");
    host().take({});
    m_machine.unmount("/media/anna/OTHER");
    host().take({});
    host().take({});
    EXPECT_EQ(m_told, (Told{"mounted", "renamed", "unmounted"}));
}

TEST_F(HotPlug, DiskPulledInMidCopyIsToldAndTheRunGoesOn)
{
    const auto upper = addEnclosure("612");
    const TemporaryTree tree;
    std::vector<std::string> disks;
    for (int bay = 1; bay < 3; ++bay) {
        const auto name = std::string("sd") + "abc"[bay];
        disks.push_back(m_machine.addSataDisk(m_machine.controllerOf(upper, bay), 0,
                                              {.node = name, .serial = "SN" + name}));
        m_machine.addPartition(disks.back(), 1);
        m_machine.mount(
            name + "1",
            tree.folder("Volumes/COPY " + std::to_string(bay)).replace(tree.root().size() + 13, 1, "\\040"));
    }
    for (int i = 0; i < 4; ++i)
        tree.file("source/file" + std::to_string(i), patternOf(100'000));
    watch();
    ASSERT_EQ(scan().tbArray().at(0)->hddArray().size(), 2U);

    TestHost files(tree.folder("home"));
    FileCopy engine(files, m_center);
    std::vector<std::string> destinations;
    for (const auto &disk : m_scanner->tbArray()[0]->hddArray())
        destinations.push_back(*disk->bsdPathArray().at(0)->mountPoint());
    engine.SetBackupDiskValue({tree.path("source")}, tree.path("source"), destinations);
    engine.setTotalFiles(4);
    bool isPulled = false;
    const auto pull = m_center.subscribe(notification::FileProgress, [&](const Notification &) {
        if (std::exchange(isPulled, true))
            return;
        m_machine.pull(disks[0]);
        files.faults().volume(destinations[0]).gone = true;
    });
    engine.StartBackup();
    runUntil("unmounted");

    EXPECT_EQ(scan().tbArray().at(0)->hddArray().size(), 1U);
    EXPECT_EQ(baysOf(*m_scanner->tbArray()[0]), Told{"Slot-C SNsdc"});
    EXPECT_EQ(treeOf(destinations[1]), treeOf(tree.path("source")));
}

} // namespace orvana::test

namespace orvana::platform
{

namespace
{

struct MadeUpOne : test::LinuxFixture
{
    MadeUpOne() { m_machine.addSataDisk(m_machine.controllerOf(addEnclosure("625"), 0), 1, {.node = "sda"}); }
    void TestBody() override {}

    Host *host = &test::LinuxFixture::host();
};

struct MadeUpDock : test::LinuxFixture
{
    MadeUpDock()
    {
        const auto hub = m_machine.addUsb(m_machine.addUsbController("0000:00:14.0", 2), 1, "2109:0817");
        m_machine.addUsbDisk(m_machine.addUsb(hub, 1, "152d:0578"), {.node = "sda"});
        define("dock", R"({"A":{"port":"1"},"B":{"port":"2"}})", R"({"usb":"2109:0817"})");
    }
    void TestBody() override {}

    Host *host = &test::LinuxFixture::host();
};

} // namespace

using MadeUpKinds = testing::Types<MadeUpOne, MadeUpDock>;
INSTANTIATE_TYPED_TEST_SUITE_P(MadeUp, HostContract, MadeUpKinds);

} // namespace orvana::platform
