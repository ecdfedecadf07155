// Docks, a backplane and enclosure definitions of the simulated machine.

#include "discovery/ORVScanDevice.h"
#include "discovery/ThunderBoltMonitor.h"
#include "enclosures/BayLearning.h"
#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "platform/hosts/HostFactory.h"
#include "platform/simulator/SimulatorHost.h"
#include "support/ManualMainQueue.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana::platform::simulator
{

namespace
{

using Lines = std::vector<std::string>;

constexpr const char *WithDocks = R"({ "login": "anna",
  "internalDisks": [ { "size": 9000, "serial": "INT", "volumes": [ { "name": "System", "startup": true, "capacity": 9000 } ] } ],
  "docks": [ { "usb": "2109:0817", "disks": [
      { "port": "1", "model": "HD", "serial": "A1", "size": 9000, "volumes": [ { "name": "ONE", "capacity": 9000 } ] },
      { "port": "2", "model": "HD", "serial": "B1", "size": 9000, "attached": false, "volumes": [ { "name": "TWO", "capacity": 9000 } ] },
      { "port": "4", "model": "HD", "serial": "X1", "size": 9000, "volumes": [ { "name": "OTHER", "capacity": 9000 } ] } ] } ],
  "backplane": [ { "path": "pci-0000:00:17.0-ata-3.0", "model": "SATA", "serial": "S3", "size": 9000 },
                 { "path": "pci-0000:00:17.0-ata-4.0", "model": "SATA", "serial": "S4", "size": 9000, "formatted": false } ],
  "definitions": [
    { "id": "dock", "version": 1, "name": "Dock", "anchor": { "usb": "2109:0817" }, "bays": { "A": { "port": "1" }, "B": { "port": "2" } } },
    { "id": "plane", "version": 1, "name": "Backplane", "bays": { "A": { "path": "pci-0000:00:17.0-ata-3" }, "D": { "path": "pci-0000:00:17.0-ata-4" } } } ]
})";

class SimulatedDocks : public testing::Test
{
protected:
    SimulatedDocks() { open(Json::parse(WithDocks)); }

    void open(const Json &machine)
    {
        m_host.reset();
        m_file = m_tree.file("machine.json", machine.dump());
        m_host = std::make_unique<SimulatorHost>(SimulatedMachine::open(m_file).value(), &m_queue);
    }

    /// "Dock: Slot-A A1" for each enclosure, and "other: ..." for the rest.
    Lines devices()
    {
        ORVScanDevice scanner(m_host->registry(), m_host->launcher());
        scanner.setDetectOption("Orvana");
        scanner.scanEverything();
        Lines lines;
        for (const auto &enclosure : scanner.tbArray()) {
            auto line = enclosure->moduleName().value_or("") + ":";
            for (const auto &disk : enclosure->hddArray())
                line += " " + disk->slotPath().value_or("none") + " " + disk->hddSN().value_or("none");
            lines.push_back(line);
        }
        for (const auto &disk : scanner.otherDiskArray())
            lines.push_back("other: " + disk->unitSerial().value_or("none"));
        return lines;
    }

    void move(const std::string &lever, const std::string &target)
    {
        const auto moved = moveSimulatorLever(m_file, lever, target, "");
        ASSERT_TRUE(moved) << moved.error();
        m_host->lookForChanges();
    }

    test::TemporaryTree m_tree;
    test::ManualMainQueue m_queue;
    std::string m_file;
    std::unique_ptr<SimulatorHost> m_host;
};

} // namespace

TEST_F(SimulatedDocks, DisksAtNamedPortsAreInBaysAndTheOthersAmongTheOtherDisks)
{
    EXPECT_EQ(devices(),
              (Lines{"Dock: Slot-A A1", "Backplane: Slot-A S3 Slot-D S4", "other: INT", "other: X1"}));
}

TEST_F(SimulatedDocks, DiskComesAndGoesAndTheDockStays)
{
    NotificationCenter center;
    Lines told;
    const auto attached = center.subscribe(notification::TBDeviceAttached,
                                           [&](const Notification &) { told.push_back("attached"); });
    const auto detached = center.subscribe(notification::TBDeviceDeattached,
                                           [&](const Notification &) { told.push_back("detached"); });
    ThunderBoltMonitor monitor(m_host->registry(), center);
    monitor.MonitorInit();
    move("attach", "dock/1/2");
    EXPECT_EQ(devices().front(), "Dock: Slot-A A1 Slot-B B1");
    move("detach", "dock/1/1");
    EXPECT_EQ(devices().front(), "Dock: Slot-B B1");
    EXPECT_EQ(told, (Lines{"attached", "detached"}));
    move("detach", "dock/1");
    EXPECT_EQ(devices().front(), "Backplane: Slot-A S3 Slot-D S4");
    move("detach", "backplane/1");
    EXPECT_EQ(devices().front(), "Backplane: Slot-D S4");
}

TEST_F(SimulatedDocks, SecondDockOfTheKindTakesTheBaysAwayAndSaysWhy)
{
    auto machine = Json::parse(WithDocks);
    machine["docks"].push_back(Json{{"usb", "2109:0817"}});
    open(machine);
    EXPECT_EQ(devices(), (Lines{"Backplane: Slot-A S3 Slot-D S4", "other: INT", "other: A1", "other: X1"}));
    ASSERT_EQ(m_host->registry().remarks().size(), 1U);
    EXPECT_NE(m_host->registry().remarks()[0].find("is there 2 times"), std::string::npos);
}

TEST_F(SimulatedDocks, SerialNumberOfTwoDisksIsNone)
{
    auto machine = Json::parse(WithDocks);
    machine["docks"][0]["disks"][1]["attached"] = true;
    machine["docks"][0]["disks"][1]["serial"] = "A1";
    open(machine);
    EXPECT_EQ(devices().front(), "Dock: Slot-A none Slot-B none");
}

TEST_F(SimulatedDocks, EraseEjectAndMountWorkInDefinedBays)
{
    auto &tools = m_host->launcher();
    const auto hasVolume = [&](const char *name) {
        return test::pathExists(m_file + ".volumes/Volumes/" + name);
    };
    EXPECT_EQ(tools.run("/usr/sbin/diskutil", {"eject", "/dev/disk99"}).status, 4) << "no such disk";
    ORVScanDevice scanner(m_host->registry(), m_host->launcher());
    scanner.scanEverything();
    const auto node = *scanner.tbArray()[0]->hddArray()[0]->devPath();
    EXPECT_EQ(tools.run("/usr/sbin/diskutil", {"eraseDisk", "JHFS+", "NEW", node}).status, 0);
    EXPECT_TRUE(hasVolume("NEW"));
    EXPECT_EQ(tools.run("/usr/sbin/diskutil", {"eject", node}).status, 0);
    EXPECT_FALSE(hasVolume("NEW"));
    EXPECT_EQ(devices().front(), "Dock: Slot-A A1") << "a disk in a bay stays there";
    EXPECT_EQ(tools.run("/usr/sbin/diskutil", {"mountDisk", node}).status, 0);
    EXPECT_TRUE(hasVolume("NEW"));
}

TEST_F(SimulatedDocks, DefinitionIsLearnedAddedAndRemoved)
{
    auto &setup = m_host->enclosureSetup();
    EXPECT_TRUE(setup.remove("dock"));
    EXPECT_FALSE(setup.remove("dock"));
    m_host->lookForChanges();
    move("detach", "dock/1/1");
    enclosures::BayLearning learning(setup.look());
    for (const char *disk : {"dock/1/2", "dock/1/1"}) {
        move("attach", disk);
        EXPECT_EQ(learning.look(setup.look()).kind, enclosures::BayLearning::Answer::Kind::Learned);
    }
    const auto definition = learning.finish("Other way round", setup.definitions());
    ASSERT_TRUE(definition) << definition.error();
    ASSERT_TRUE(setup.add(*definition));
    m_host->lookForChanges();
    EXPECT_EQ(devices()[1], "Other way round: Slot-A B1 Slot-B A1");
    EXPECT_FALSE(setup.add(*definition)) << "never twice";
}

TEST_F(SimulatedDocks, LookSaysWhichDisksCanBeInNoBay)
{
    std::map<std::string, std::string> refusals;
    const auto ports = m_host->enclosureSetup().look();
    for (const auto &disk : ports.disks)
        refusals[disk.serial] = disk.refusal + disk.bay;
    EXPECT_EQ(refusals["INT"], "holds the running system");
    EXPECT_EQ(refusals["A1"], "Slot-A of Dock");
    EXPECT_EQ(refusals["X1"], "");
}

} // namespace orvana::platform::simulator
