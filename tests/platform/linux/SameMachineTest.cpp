// The same machine, once made of kernel devices and once simulated. The program must see no difference.

#include "discovery/ThunderBoltMonitor.h"
#include "foundation/NotificationNames.h"
#include "foundation/PlainMainQueue.h"
#include "platform/VolumeEvents.h"
#include "platform/hosts/HostFactory.h"
#include "platform/linux/LinuxFixture.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace orvana::test
{

namespace
{

using Lines = std::vector<std::string>;

/// An enclosure with a mounted volume in bay A, an unmounted volume in B, a blank disk in C and a member of a
/// RAID set in D; beside it an internal disk and a USB stick.
class KernelDevices : public LinuxFixture
{
public:
    explicit KernelDevices(PlainMainQueue &queue)
    {
        m_queue = &queue;
        addInternalAndStick();
        plugIn();
    }
    ~KernelDevices() override { m_host.reset(); } // the host must be destroyed before its queue
    void TestBody() override {}

    platform::Host &machine() { return host(); }

    void plugIn()
    {
        m_upper = addEnclosure();
        putIn(0);
        putIn(1);
        m_machine.addSataDisk(m_machine.controllerOf(m_upper, 2), 0, {"sdc", "MC", "SC", 2000, {}});
        m_machine.addSataDisk(m_machine.controllerOf(m_upper, 3), 0,
                              {"sdd", "MD", "SD", 2000, {"ID_FS_USAGE=raid", "ID_FS_TYPE=isw_raid_member"}});
        mount("sda1", "Master");
    }

    void pullOut()
    {
        unmount("Master");
        m_machine.pull(m_upper);
        m_machine.pull(m_router);
    }

    void pullDiskB() { m_machine.pull(m_disks.at(1)); }
    void putBackDiskB() { putIn(1); }

    /// The made-up mount table does not report its changes.
    void lookAtMounts() { host().take({}); }

    void mountB() { mount("sdb1", m_nameOfB); }
    void unmountB() { unmount(m_nameOfB); }
    void renameB()
    {
        unmount(std::exchange(m_nameOfB, "OTHER"));
        mount("sdb1", m_nameOfB);
    }

private:
    void addInternalAndStick()
    {
        m_machine.addPartition(m_machine.addSataDisk(m_internal, 0, {"sdi", "SSD", "I1", 2000, {Table}}), 1);
        mount("sdi1", "Data");
        const auto controller = m_machine.addPci({}, "0000:00:14.0", "0x8086", "0xa36d", "0x0c0330");
        const auto usb = m_machine.add(controller + "/usb1/1-1", "usb",
                                       {"E: DEVTYPE=usb_device", "A: removable=removable"});
        const auto stick =
            m_machine.addBlock(usb + "/1-1:1.0/host9/target9:0:0/9:0:0:0",
                               {"sdu",
                                "Ultra",
                                "U1",
                                2000,
                                {"ID_BUS=usb", "ID_VENDOR_ENC=SanDisk", "ID_MODEL_ENC=Ultra", Table}});
        m_machine.addPartition(stick, 1);
        mount("sdu1", "STICK");
    }

    void putIn(int bay)
    {
        const std::string letter(1, "ab"[bay]);
        const std::string upper(1, "AB"[bay]);
        const auto disk = m_machine.addSataDisk(m_machine.controllerOf(m_upper, bay), 0,
                                                {"sd" + letter, "M" + upper, "S" + upper, 2000, {Table}});
        m_machine.addPartition(disk, 1);
        m_disks[bay] = disk;
    }

    void mount(const std::string &node, const std::string &name)
    {
        m_machine.mount(node, m_places.folder(name));
    }
    void unmount(const std::string &name) { m_machine.unmount(m_places.path(name)); }

    static constexpr const char *Table = "ID_PART_TABLE_TYPE=gpt";
    TemporaryTree m_places;
    std::string m_upper;
    std::map<int, std::string> m_disks;
    std::string m_nameOfB = "COPY1";
};

class Simulated
{
public:
    explicit Simulated(PlainMainQueue &queue) : m_host(platform::makeSimulatorHost(m_file, &queue).value()) {}

    platform::Host &machine() { return *m_host; }

    void plugIn() { pull("attach", "1"); }
    void pullOut() { pull("detach", "1"); }
    void pullDiskB() { pull("detach", "1/B"); }
    void putBackDiskB() { pull("attach", "1/B"); }
    void lookAtMounts() {}
    void mountB() { pull("mount", "COPY1"); }
    void renameB() { pull("rename", "COPY1", "OTHER"); }
    void unmountB() { pull("unmount", "OTHER"); }

private:
    void pull(const std::string &lever, const std::string &target, const std::string &name = {}) const
    {
        const auto moved = platform::moveSimulatorLever(m_file, lever, target, name);
        ASSERT_TRUE(moved) << moved.error();
    }

    TemporaryTree m_tree;
    std::string m_file = m_tree.file("machine.json", R"({
        "login": "anna",
        "internalDisks": [{"model": "SSD", "serial": "I1", "size": 1024000,
            "volumes": [{"name": "Data", "capacity": 1000000}]}],
        "usbDisks": [{"vendor": "SanDisk", "product": "Ultra", "serial": "U1", "size": 1024000,
            "volumes": [{"name": "STICK", "capacity": 1000000}]}],
        "enclosures": [{"uid": 1, "name": "Four Bay 1", "vendorName": "Orvana", "route": 1, "bays": [
            {"bay": "A", "model": "MA", "serial": "SA", "size": 1024000,
             "volumes": [{"name": "Master", "capacity": 1000000}]},
            {"bay": "B", "model": "MB", "serial": "SB", "size": 1024000,
             "volumes": [{"name": "COPY1", "capacity": 1000000, "mounted": false}]},
            {"bay": "C", "model": "MC", "serial": "SC", "size": 1024000, "formatted": false},
            {"bay": "D", "model": "MD", "serial": "SD", "size": 1024000, "raid": true}]}]})");
    std::unique_ptr<platform::Host> m_host;
};

std::string nameOf(const std::shared_ptr<const std::string> &mountPoint)
{
    return mountPoint ? mountPoint->substr(mountPoint->rfind('/') + 1) : std::string("not mounted");
}

std::string lineOf(const ORVHddInfo &disk)
{
    std::ostringstream line;
    line << disk.slotPath().value_or("no bay") << ' ' << disk.hddModel().value_or("no model") << ' '
         << disk.hddSN().value_or("no serial") << ' ' << disk.unitSerial().value_or("no unit serial") << ' '
         << disk.diskSize().value_or(-1) << (disk.isUnFormated() ? " unformatted" : "")
         << (disk.isRaidFormated() ? " RAID" : "")
         << (disk.hasOtherPartitions() && !disk.isRaidFormated() ? " others" : "")
         << (disk.arrival() ? "" : " no arrival") << ':';
    for (const auto &volume : disk.bsdPathArray())
        line << ' ' << nameOf(volume->mountPoint()) << (volume->capacitySize() ? " measured" : "");
    return line.str();
}

Lines recordsOf(platform::Host &host)
{
    ORVScanDevice scanner(host.registry(), host.launcher());
    scanner.setDetectOption("Orvana");
    scanner.scanTBDevice();
    scanner.scanOtherDevice();
    scanner.scanOtherTBDevice();
    Lines lines;
    for (const auto &enclosure : scanner.tbArray()) {
        std::ostringstream line;
        line << enclosure->moduleName().value_or("?") << " of " << enclosure->vendorName().value_or("?")
             << ", model " << enclosure->moduleID().value_or(0) << " of " << enclosure->vendorID().value_or(0)
             << ", depth " << enclosure->depth().value_or(-1) << ", route "
             << enclosure->routeSring().value_or(-1) << ", state " << enclosure->state().value_or(-1)
             << (enclosure->parentTb() ? ", below a host" : "") << (enclosure->uid() ? "" : ", no UID");
        lines.push_back(line.str());
        for (const auto &disk : enclosure->hddArray())
            lines.push_back(lineOf(*disk));
    }
    for (const auto &disk : scanner.otherDiskArray())
        lines.push_back("other: " + lineOf(*disk));
    return lines;
}

/// Returns "Master STICK" for the volumes of a listing. Throws if a line does not have the right form.
Lines volumesIn(const std::string &listing)
{
    std::istringstream lines(listing);
    std::string line;
    std::getline(lines, line);
    if (line != "Filesystem 512-blocks Used Available Capacity iused ifree %iused Mounted on")
        throw std::runtime_error("the heading is " + line);
    Lines names;
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::string device, capacity, files, freeFiles, usedFiles, point;
        std::uint64_t blocks = 0, used = 0, available = 0;
        if (!(words >> device >> blocks >> used >> available >> capacity >> files >> freeFiles >> usedFiles >>
              point) ||
            !device.starts_with("/dev/disk") || !capacity.ends_with('%') || !usedFiles.ends_with('%') ||
            !point.starts_with('/') || used > blocks || available > blocks)
            throw std::runtime_error(line);
        names.push_back(std::filesystem::path(point).filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

template <class Machine>
class SameMachine : public testing::Test
{
protected:
    /// Records the events from now on: "attached", "detached", "mounted", "unmounted", "renamed".
    void watch()
    {
        const auto note = [this](const char *what) {
            return [this, what](const auto &) { m_told.emplace_back(what); };
        };
        m_subscriptions.push_back(m_center.subscribe(notification::TBDeviceAttached, note("attached")));
        m_subscriptions.push_back(m_center.subscribe(notification::TBDeviceDeattached, note("detached")));
        m_machine.machine().volumeEvents().subscribe([this](platform::VolumeChange change) {
            m_told.emplace_back(change == platform::VolumeChange::Mounted     ? "mounted"
                                : change == platform::VolumeChange::Unmounted ? "unmounted"
                                                                              : "renamed");
        });
        m_monitor = std::make_unique<ThunderBoltMonitor>(m_machine.machine().registry(), m_center);
        m_monitor->MonitorInit();
        settle();
        EXPECT_TRUE(m_told.empty()) << "what is there already is not told";
    }

    /// Waits until no event has come for a while, then returns the recorded events. They are sorted, because
    /// the kernel and the simulated machine report them in different orders.
    Lines told()
    {
        m_machine.lookAtMounts();
        settle();
        std::sort(m_told.begin(), m_told.end());
        return std::exchange(m_told, {});
    }

    /// Returns the recorded events without repetitions. The kernel also reports each disk of an enclosure.
    Lines kindsTold(const std::string &what, std::ptrdiff_t atLeast)
    {
        auto kinds = told();
        EXPECT_GE(std::count(kinds.begin(), kinds.end(), what), atLeast);
        kinds.erase(std::unique(kinds.begin(), kinds.end()), kinds.end());
        return kinds;
    }

    void settle()
    {
        std::size_t before = 0;
        do {
            before = m_told.size();
            m_queue.after(std::chrono::milliseconds(500), [this] { m_queue.quit(); });
            m_queue.run();
        } while (m_told.size() != before);
    }

    PlainMainQueue m_queue;
    NotificationCenter m_center;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
    Lines m_told;
    Machine m_machine{m_queue};
    std::unique_ptr<ThunderBoltMonitor> m_monitor;
};

using Machines = testing::Types<KernelDevices, Simulated>;
TYPED_TEST_SUITE(SameMachine, Machines);

TYPED_TEST(SameMachine, GivesTheSameRecords)
{
    EXPECT_EQ(recordsOf(this->m_machine.machine()),
              (Lines{"Four Bay 1 of Orvana, model 567 of 65, depth 1, route 1, state 4, below a host",
                     "Slot-A MA SA SA 1024000: Master measured", "Slot-B MB SB SB 1024000 others:",
                     "Slot-C MC SC SC 1024000 unformatted:", "Slot-D MD SD SD 1024000 RAID: not mounted",
                     "other: no bay SSD I1 I1 1024000: Data measured",
                     "other: no bay SanDisk Ultra no serial U1 1024000: STICK measured"}));
}

TYPED_TEST(SameMachine, ListsTheSameVolumes)
{
    auto &launcher = this->m_machine.machine().launcher();
    EXPECT_EQ(volumesIn(launcher.run("/bin/df", {}).output), (Lines{"Data", "Master", "STICK"}));
    this->m_machine.mountB();
    this->settle();
    EXPECT_EQ(volumesIn(launcher.run("/bin/df", {}).output), (Lines{"COPY1", "Data", "Master", "STICK"}));
}

TYPED_TEST(SameMachine, TellsOfAnEnclosureThatGoesAndComes)
{
    this->watch();
    this->m_machine.pullOut();
    EXPECT_EQ(this->kindsTold("detached", 4), (Lines{"detached", "unmounted"}));
    this->m_machine.plugIn();
    EXPECT_EQ(this->kindsTold("attached", 4), (Lines{"attached", "mounted"}));
}

TYPED_TEST(SameMachine, TellsOfADiskThatLeavesItsBayAndOfOneThatComes)
{
    this->watch();
    this->m_machine.pullDiskB();
    EXPECT_EQ(this->told(), Lines{"detached"});
    this->m_machine.putBackDiskB();
    auto told = this->told();
    std::erase(told, "mounted"); // a simulated disk comes with its volumes mounted, as a desktop does it
    EXPECT_EQ(told, Lines{"attached"});
}

TYPED_TEST(SameMachine, TellsOfMountRenameAndUnmount)
{
    this->watch();
    this->m_machine.mountB();
    EXPECT_EQ(this->told(), Lines{"mounted"});
    this->m_machine.renameB();
    EXPECT_EQ(this->told(), Lines{"renamed"});
    this->m_machine.unmountB();
    EXPECT_EQ(this->told(), Lines{"unmounted"});
}

} // namespace orvana::test
