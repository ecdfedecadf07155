// The simulated machine: its file, its volumes, its tools, its levers, and the scans on top of it.

#include "discovery/ORVScanDevice.h"
#include "discovery/ThunderBoltMonitor.h"
#include "foundation/NotificationCenter.h"
#include "platform/hosts/HostFactory.h"
#include "platform/simulator/MachineReader.h"
#include "platform/simulator/SimulatorFixture.h"
#include "support/ManualMainQueue.h"
#include "support/Recorder.h"
#include "support/TemporaryTree.h"
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/resource.h>
#include <unistd.h>

namespace orvana::platform::simulator
{

using std::chrono::milliseconds;

TEST_F(Simulator, MachineIsScannedAsTheFileHasIt)
{
    scan();
    ASSERT_EQ(m_scanner->tbArray().size(), 1U);
    EXPECT_EQ(m_scanner->tbArray()[0]->parentTb(), 1) << "the host's own switch";
    ASSERT_NE(disk("Slot-A"), nullptr);
    EXPECT_EQ(disk("Slot-A")->hddModel(), "M1");
    EXPECT_EQ(*disk("Slot-A")->bsdPathArray().at(0)->mountPoint(), volumesFolder() + "/Master");
    EXPECT_EQ(disk("Slot-A")->bsdPathArray()[0]->capacitySize(), 100);
    EXPECT_EQ(disk("Slot-A")->bsdPathArray()[0]->availableSize(), (51200 - 1000) / 512);
    EXPECT_TRUE(disk("Slot-C")->isUnFormated());
    EXPECT_EQ(disk("Slot-C")->hddSN(), std::nullopt);
    EXPECT_TRUE(disk("Slot-D")->isRaidFormated());
    EXPECT_EQ(disk("Slot-D")->bsdPathArray().size(), 1U);
    ASSERT_EQ(m_scanner->otherDiskArray().size(), 2U);
    EXPECT_EQ(*m_scanner->otherDiskArray()[0]->bsdPathArray().at(0)->mountPoint(), "/");
    EXPECT_EQ(m_scanner->otherDiskArray()[1]->hddModel(), "V P");
}

TEST_F(Simulator, BothControllersPutEveryBayWhereItBelongs)
{
    for (const std::string controller : {"612", "625"}) {
        open(R"({"login":"a","enclosures":[{"uid":1,"controller":")" + controller + R"(","bays":[
            {"bay":"A","size":1,"serial":"A"},{"bay":"B","size":1,"serial":"B"},
            {"bay":"C","size":1,"serial":"C"},{"bay":"D","size":1,"serial":"D"}]}]})");
        scan();
        for (const std::string bay : {"A", "B", "C", "D"}) {
            ASSERT_NE(disk("Slot-" + bay), nullptr) << controller << bay;
            EXPECT_EQ(disk("Slot-" + bay)->hddSN(), bay);
        }
    }
}

TEST_F(Simulator, OddBridgeAndForeignVendor)
{
    open(R"({"login":"a","enclosures":[
        {"uid":1,"controller":"625","bays":[{"bay":"A","bridge":2,"size":1}]},
        {"uid":2,"vendor":4,"bays":[{"bay":"A","size":1}]},
        {"uid":3,"model":569,"bays":[{"bay":"A","size":1}]}]})");
    scan();
    ASSERT_EQ(m_scanner->tbArray().size(), 1U);
    EXPECT_EQ(m_scanner->tbArray()[0]->hddArray().at(0)->slotPath(), std::nullopt);
}

TEST_F(Simulator, ContentIsMadeOnceAndTheHomeIsTheUsers)
{
    EXPECT_EQ(test::treeOf(volumesFolder() + "/Master").size(), 12U) << "ten files in a folder in a folder";
    EXPECT_EQ(m_host->account().loginName(), "anna");
    EXPECT_EQ(test::contentOf(m_host->account().homeFolder() + "/a.txt").size(), 10U);
    EXPECT_EQ(m_host->places().userPath("anna"), m_host->account().homeFolder());
    const auto root = m_host->volumeFiles().openFolder(volumesFolder() + "/Master", Reach::Beneath);
    EXPECT_TRUE(m_host->places().isVolumeRoot(**root));
}

TEST_F(Simulator, CapacityIsEnforced)
{
    const auto stick = m_host->volumeFiles().openFolder(volumesFolder() + "/STICK", Reach::Beneath).value();
    const auto file = stick->createFile("file", {.permissions = 0644}).value();
    const std::string most(4096, 'x');
    EXPECT_TRUE(file->write(std::as_bytes(std::span(most)), 0));
    const auto more = file->write(std::as_bytes(std::span(most)), 4096);
    ASSERT_FALSE(more);
    EXPECT_EQ(more.error().reason(), "No space left on device");
}

TEST_F(Simulator, FaultsOfAVolumeAreEntriesOfTheFile)
{
    auto json = Json::parse(SmallSimulator);
    json["usbDisks"][0]["volumes"][0]["faults"] = {{"readOnly", 1}};
    m_tree.file("machine.json", json.dump());
    m_queue.advance(milliseconds(200));
    const auto stick = m_host->volumeFiles().openFolder(volumesFolder() + "/STICK", Reach::Beneath).value();
    EXPECT_EQ(stick->createFile("file", {}).error().reason(), "Read-only file system");
}

TEST_F(Simulator, FullDiskDoesNotCostTheMachinesFile)
{
    const auto before = m_tree.read("machine.json");
    rlimit usual{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit nothing{0, usual.rlim_max};
    auto *const handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &nothing), 0);
    const auto changed = m_host->machine().setAttached("usb/1", false);
    ::setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, handler);
    ASSERT_FALSE(changed);
    EXPECT_NE(changed.error().find("cannot be written"), std::string::npos) << changed.error();
    EXPECT_EQ(m_tree.read("machine.json"), before);
    EXPECT_FALSE(m_tree.exists("machine.json." + std::to_string(::getpid()) + ".part"));
}

TEST_F(Simulator, VolumesThatCannotBeMadeAreAnError)
{
    m_host.reset();
    m_tree.file("other.json", SmallSimulator);
    m_tree.file("other.json.volumes", "a file");
    const auto machine = SimulatedMachine::open(m_tree.path("other.json"));
    ASSERT_FALSE(machine);
    EXPECT_NE(machine.error().find("other.json.volumes"), std::string::npos) << machine.error();
}

TEST_F(Simulator, FailingCommandFails)
{
    auto json = Json::parse(SmallSimulator);
    json["failing"] = {"eraseDisk A"};
    open(json.dump());
    scan();
    EXPECT_EQ(diskutil({"eraseDisk", "JHFS+", "NEW", *disk("Slot-A")->devPath()}).status, 1);
    EXPECT_EQ(mounted(), (Lines{"Master", "STICK"}));
}

TEST_F(Simulator, EditOfTheFileIsSeenWithinTwoTenthsOfASecond)
{
    std::vector<VolumeChange> changes;
    m_host->volumeEvents().subscribe([&](VolumeChange change) { changes.push_back(change); });
    auto json = Json::parse(SmallSimulator);
    json["usbDisks"][0]["volumes"][0]["mounted"] = false;
    json["enclosures"][0]["bays"][0]["volumes"][0]["name"] = "Renamed";
    m_tree.file("machine.json", json.dump());
    m_queue.advance(milliseconds(200));
    EXPECT_EQ(changes, (std::vector{VolumeChange::Renamed, VolumeChange::Unmounted}));
    EXPECT_EQ(mounted(), (Lines{"Renamed"}));
}

TEST_F(Simulator, OwnWritesAreNotTakenForEdits)
{
    ASSERT_TRUE(m_host->machine().setMounted("STICK", false));
    EXPECT_FALSE(m_host->machine().refresh());
}

TEST_F(Simulator, BrokenEditKeepsTheLastGoodStateAndIsToldOnce)
{
    m_tree.file("machine.json", R"({"login":"anna","usbDisks":[{"size":-1}]})");
    m_queue.advance(milliseconds(500));
    scan();
    EXPECT_EQ(m_scanner->otherDiskArray().size(), 2U);
    EXPECT_EQ(m_log.all(),
              (Lines{m_file + ": /usbDisks/0/size: must not be less than 0; the last good state stays"}));
}

TEST_F(Simulator, OnePlugInGivesAsManyNotificationsAsControllers)
{
    for (const auto &[controller, count] : {std::pair("612", 4), std::pair("625", 2)}) {
        auto json = Json::parse(SmallSimulator);
        json["enclosures"][0]["controller"] = controller;
        open(json.dump());
        NotificationCenter center;
        Lines posted;
        const auto attached =
            center.subscribe("TBDeviceAttached", [&](const Notification &n) { posted.push_back(n.name); });
        const auto removed =
            center.subscribe("TBDeviceDeattached", [&](const Notification &n) { posted.push_back(n.name); });
        ThunderBoltMonitor monitor(m_host->registry(), center);
        monitor.MonitorInit();
        m_queue.advance(milliseconds(200));
        EXPECT_TRUE(posted.empty()) << "what is there at the start is not reported";
        ASSERT_TRUE(m_host->machine().setAttached("1", false));
        m_queue.advance(milliseconds(200));
        EXPECT_EQ(posted, Lines(static_cast<std::size_t>(count), "TBDeviceDeattached"));
        posted.clear();
        ASSERT_TRUE(m_host->machine().setAttached("1", true));
        m_queue.advance(milliseconds(200));
        EXPECT_EQ(posted, Lines(static_cast<std::size_t>(count), "TBDeviceAttached"));
        m_host.reset();
    }
}

TEST_F(Simulator, LeversNameWhatTheyDoNotFind)
{
    auto &machine = m_host->machine();
    EXPECT_EQ(machine.setAttached("2", true).error(), "2: no such device");
    EXPECT_EQ(machine.setAttached("1/B", true).error(), "1/B: no such device");
    EXPECT_EQ(machine.setAttached("usb/9", true).error(), "usb/9: no such device");
    EXPECT_EQ(machine.setMounted("Nope", true).error(), "Nope: no such volume");
    EXPECT_NE(machine.renameVolume("STICK", "a/b").error().find("cannot be the name"), std::string::npos);
    EXPECT_TRUE(machine.setAttached("usb/1", false));
    EXPECT_EQ(mounted(), (Lines{"Master"}));
}

TEST_F(Simulator, TwoProcessesShareAMachine)
{
    const auto other = SimulatedMachine::open(m_file);
    ASSERT_TRUE(other);
    ASSERT_TRUE((*other)->setMounted("STICK", false));
    ASSERT_TRUE(m_host->machine().renameVolume("Master", "Boss"))
        << "the other one's change is taken up first";
    EXPECT_EQ(mounted(), (Lines{"Boss"}));
}

} // namespace orvana::platform::simulator
