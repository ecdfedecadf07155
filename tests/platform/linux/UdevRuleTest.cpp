// The package's udev rule, read and applied by udev itself together with the machine's own rules.

#include "platform/linux/DiskPorts.h"
#include "platform/linux/LinuxFixture.h"
#include "support/Shell.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace orvana::test
{

class UdevRule : public LinuxFixture
{
protected:
    void SetUp() override
    {
        if (runShell("unshare --mount sh -c 'mount -t tmpfs tmpfs /run && mknod /run/null c 1 3' && command "
                     "-v udevadm")
                .status != 0)
            GTEST_SKIP() << "needs root with namespaces and device nodes, and the package udev";
        installRule();
        m_machine.addPartition(m_machine.addSataDisk(m_internal, 5, {.node = "sdz"}), 1);
        rootOn("sdz1");
    }

    /// Sets the device that the running system is on. Copies the mount table to its usual place, too, for
    /// programs that read it there.
    void rootOn(const std::string &node)
    {
        m_machine.mount(node, "/");
        const auto folder = std::string(std::getenv("UMOCKDEV_DIR")) + "/proc/self";
        std::filesystem::create_directories(folder);
        std::filesystem::copy_file(m_machine.mountFile(), folder + "/mountinfo",
                                   std::filesystem::copy_options::overwrite_existing);
    }

    /// Installs the rule, with a disk utility that sees the made-up devices, too. udev starts the disk
    /// utility without our environment, so a script sets it.
    void installRule()
    {
        std::string text = "#!/bin/sh\n";
        for (const char *name : {"LD_PRELOAD", "UMOCKDEV_DIR", "ASAN_OPTIONS", "TSAN_OPTIONS"}) {
            if (const char *value = std::getenv(name))
                text.append("export ").append(name).append("=").append(asWord(value)).append("\n");
        }
        text.append("exec ").append(asWord(INSTALLED_DISK_UTILITY)).append(" \"$@\"\n");
        const auto utility = m_tree.file("orvana-diskutil", text);
        std::filesystem::permissions(utility, std::filesystem::perms::all);
        auto rule = contentOf(UDEV_RULE);
        const std::string installed = "/usr/libexec/orvana-plurimo/orvana-diskutil";
        rule.replace(rule.find(installed), installed.size(), utility);
        m_tree.file("60-orvana-plurimo.rules", rule);
    }

    /// Adds a disk on a controller and returns its mark, see `markOf`.
    std::string markOfDiskOn(const std::string &controller, int port = 0)
    {
        return markOf(m_machine.addSataDisk(controller, port, {.node = "sd" + std::string(1, m_letter++)}));
    }

    /// Returns the properties that udev sets for a device: "UDISKS_SYSTEM=0 UDISKS_AUTO=1", or an empty text.
    /// "uaccess" comes first if the user who sits at the machine may open the device.
    std::string markOf(const std::string &device, const std::string &action = "add") const
    {
        std::string mark;
        std::istringstream lines(sayingsOn(device, action));
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("CURRENT_TAGS=") && line.find(":uaccess:") != std::string::npos)
                line = "uaccess";
            else if (!line.starts_with("UDISKS_"))
                continue;
            mark.append(mark.empty() ? "" : " ").append(line);
        }
        return mark;
    }

    /// Returns the whole output of udev for the event of the device.
    std::string sayingsOn(const std::string &device, const std::string &action) const
    {
        const auto said = runShell(std::string("unshare --mount --propagation private -- sh -ec '") + Script +
                                   "' sh " + asWord(m_tree.path("60-orvana-plurimo.rules")) + " " + action +
                                   " " + asWord(device) + " " + asWord(m_etc.root()));
        EXPECT_EQ(said.status, 0) << said.text;
        EXPECT_NE(said.text.find("DEVPATH=" + device.substr(4)), std::string::npos) << said.text;
        EXPECT_EQ(said.text.find("\n/run/udev/rules.d/60-orvana-plurimo.rules:"), std::string::npos)
            << "a line is not understood: " << said.text;
        return said.text;
    }

    // udev writes below these folders, and with the made-up devices it would leave links to them there.
    static constexpr const char *Script =
        "mount -t tmpfs tmpfs /run; mount -t tmpfs tmpfs /dev; "
        "mknod -m 666 /dev/null c 1 3; mkdir -p /run/udev/rules.d; "
        "cp \"$1\" /run/udev/rules.d/; "
        "if test -d \"$4/enclosures.d\"; then mkdir /run/etc; cp -a /etc/. /run/etc; "
        "mkdir -p /run/etc/orvana-plurimo; cp -r \"$4/enclosures.d\" /run/etc/orvana-plurimo; "
        "chown -R 0:0 /run/etc/orvana-plurimo; mount --bind /run/etc /etc; fi; "
        "exec udevadm test --action=$2 \"$3\"";
    static constexpr const char *ExternalDisk = "uaccess UDISKS_SYSTEM=0 UDISKS_AUTO=1";
    static constexpr const char *ExternalPartition = "UDISKS_SYSTEM=0 UDISKS_AUTO=1";

    TemporaryTree m_tree;
    char m_letter = 'a';
};

TEST_F(UdevRule, DisksInTheBaysAreExternalAndOpenToWhoSitsThere)
{
    const auto upper = addEnclosure("612");
    for (int bridge = 0; bridge < 4; ++bridge)
        EXPECT_EQ(markOfDiskOn(m_machine.controllerOf(upper, bridge)), ExternalDisk) << bridge;
}

TEST_F(UdevRule, DisksOfTwoPortControllersAre)
{
    const auto upper = addEnclosure("625");
    for (const int bridge : {0, 3}) {
        EXPECT_EQ(markOfDiskOn(m_machine.controllerOf(upper, bridge), 0), ExternalDisk);
        EXPECT_EQ(markOfDiskOn(m_machine.controllerOf(upper, bridge), 1), ExternalDisk);
    }
}

TEST_F(UdevRule, PartitionOfSuchADiskIsExternalAndNotOpen)
{
    const auto controller = m_machine.controllerOf(addEnclosure("612"), 0);
    // udev keeps this property from the event of the disk itself.
    const auto disk =
        m_machine.addSataDisk(controller, 0, {.node = "sda", .properties = {"ORVANA_IN_BAY=1"}});
    EXPECT_EQ(markOf(m_machine.addPartition(disk, 1)), ExternalPartition);
    const auto other = m_machine.addSataDisk(m_internal, 0, {.node = "sdb"});
    EXPECT_EQ(markOf(m_machine.addPartition(other, 1)), "");
}

TEST_F(UdevRule, DiskStaysExternalWhenItIsWrittenAnew)
{
    const auto controller = m_machine.controllerOf(addEnclosure("612"), 0);
    EXPECT_EQ(markOf(m_machine.addSataDisk(controller, 0, {.node = "sda"}), "change"), ExternalDisk);
}

TEST_F(UdevRule, ControllerOfTheSameKindElsewhereIsLeftAlone)
{
    addEnclosure("612");
    EXPECT_EQ(markOfDiskOn(m_machine.addAhci({}, "0000:00:18.0", "0x1b21", "0x0612")), "") << "internal";
    EXPECT_EQ(markOfDiskOn(m_machine.addAhci(m_otherPort, "0000:20:00.0", "0x1b21", "0x0612")), "")
        << "plugged in, and in no bay";
}

TEST_F(UdevRule, AnotherMakersDeviceWithSuchControllersIsLeftAlone)
{
    m_machine.addRouter(m_hostRouter, "1", "0x4d", "0x11");
    const auto upper = m_machine.addEnclosureBridges(m_port, "612", 1);
    EXPECT_EQ(markOfDiskOn(m_machine.controllerOf(upper, 0)), "");
}

TEST_F(UdevRule, OtherDisksInTheEnclosureAreLeftAlone)
{
    const auto upper = addEnclosure("612");
    const auto bridge = m_machine.addBridge(upper, "0000:02:05.0");
    EXPECT_EQ(markOfDiskOn(m_machine.addAhci(bridge, "0000:30:00.0", "0x8086", "0x2922")), "");
    EXPECT_EQ(markOfDiskOn(m_machine.addAhci(bridge, "0000:30:00.1", "0x1b21", "0x0612")), "")
        << "no bay has that bridge";
}

TEST_F(UdevRule, DiskOfTheRunningSystemStaysTheSystemsOwnInWhateverBay)
{
    const auto controller = m_machine.controllerOf(addEnclosure("612"), 0);
    const auto disk = m_machine.addSataDisk(controller, 0, {.node = "sda"});
    m_machine.addPartition(disk, 1);
    EXPECT_EQ(markOf(disk), ExternalDisk);
    rootOn("sda1");
    EXPECT_EQ(markOf(disk), "");
}

TEST_F(UdevRule, ThunderboltDeviceThatComesHasTheDisksLookedAtAgain)
{
    addEnclosure("612");
    EXPECT_NE(sayingsOn(m_router, "add").find("udevadm trigger"), std::string::npos);
    EXPECT_EQ(sayingsOn(m_router, "remove").find("udevadm trigger"), std::string::npos);
}

TEST_F(UdevRule, OnlyDisksAreMarked)
{
    EXPECT_EQ(markOf(m_machine.controllerOf(addEnclosure("612"), 0)), "");
}

TEST_F(UdevRule, DiskThatLeavesIsNotMarkedAnew)
{
    const auto controller = m_machine.controllerOf(addEnclosure("612"), 0);
    EXPECT_EQ(markOf(m_machine.addSataDisk(controller, 0, {.node = "sda"}), "remove"), "");
}

TEST_F(UdevRule, DiskInADefinedBayIsExternalWhateverItsBus)
{
    const auto hub = m_machine.addUsb(m_machine.addUsbController("0000:00:14.0", 2), 1, "2109:0817");
    const auto disk = [&](int port, const std::string &node) {
        return m_machine.addUsbDisk(m_machine.addUsb(hub, port, "152d:0578"), {.node = node});
    };
    const auto first = disk(1, "sda");
    const auto third = disk(3, "sdc");
    EXPECT_EQ(markOf(first), "");
    define("hub", R"({"A":{"port":"1"},"B":{"path":"pci-0000:00:17.0-ata-2"}})", R"({"usb":"2109:0817"})");
    EXPECT_EQ(markOf(first), ExternalDisk);
    EXPECT_EQ(markOf(third), "");
    EXPECT_EQ(markOf(m_machine.addSataDisk(m_internal, 1, {.node = "sdd"})), ExternalDisk);
    m_machine.addUsb(m_machine.addUsbController("0000:00:15.0", 4), 1, "2109:0817");
    EXPECT_EQ(markOf(first), "") << "a second hub of the kind";
}

TEST_F(UdevRule, DiskOfTheRunningSystemInADefinedBayStaysTheSystemsOwn)
{
    const auto disk = m_machine.addSataDisk(m_internal, 0, {.node = "sda"});
    m_machine.addPartition(disk, 1);
    define("inner", R"({"A":{"path":"pci-0000:00:17.0-ata-1"},"B":{"path":"pci-0000:00:17.0-ata-2"}})");
    EXPECT_EQ(markOf(disk), ExternalDisk);
    rootOn("sda1");
    EXPECT_EQ(markOf(disk), "");
}

TEST_F(UdevRule, DeviceThatMayBeASecondAnchorHasTheDisksInBaysLookedAtAgain)
{
    const auto root = m_machine.addUsbController("0000:00:14.0", 2);
    for (const auto &device :
         {m_machine.addUsb(root, 2, "152d:0578"), m_machine.addBridge({}, "0000:00:1c.0")})
        EXPECT_NE(sayingsOn(device, "add").find("property-match=ORVANA_IN_BAY=1"), std::string::npos);
    EXPECT_EQ(sayingsOn(m_internal, "add").find("udevadm trigger"), std::string::npos);
}

TEST_F(UdevRule, DiskAtADefinedPortIsMarkedOnceItIsKnownWhatIsOnIt)
{
    const auto disk =
        m_machine.addSataDisk(m_internal, 1, {.node = "sda", .properties = {"DEVLINKS=/dev/x"}});
    const auto partition = m_machine.addPartition(disk, 1, Unexamined);
    define("inner", R"({"A":{"path":"pci-0000:00:17.0-ata-2"},"B":{"path":"pci-0000:00:17.0-ata-3"}})");
    EXPECT_EQ(markOf(disk), "") << "its partition is not examined: a table may name it";
    EXPECT_NE(sayingsOn(disk, "add").find("udevadm trigger --action=change /sys"), std::string::npos);
    EXPECT_EQ(sayingsOn(disk, "change").find("udevadm trigger"), std::string::npos) << "asked once";
    m_machine.pull(partition);
    m_machine.addPartition(disk, 1);
    EXPECT_EQ(markOf(disk, "change"), ExternalDisk);
}

TEST_F(UdevRule, MemberOfASetAtADefinedPortStaysTheSystemsOwn)
{
    const auto disk =
        m_machine.addSataDisk(m_internal, 1, {.node = "sda", .properties = {"ID_FS_TYPE=zfs_member"}});
    define("inner", R"({"A":{"path":"pci-0000:00:17.0-ata-2"},"B":{"path":"pci-0000:00:17.0-ata-3"}})");
    EXPECT_EQ(markOf(disk), "");
}

TEST_F(UdevRule, PathsOfDisksAreThoseThatUdevItselfFinds)
{
    const auto hub = m_machine.addUsb(m_machine.addUsbController("0000:00:14.0", 2), 1, "2109:0817");
    const auto case1 = m_machine.addUsb(hub, 2, "152d:0578");
    const auto nvme = m_machine.addPci({}, "0000:00:1d.0", "0x144d", "0xa808", "0x010802");
    const std::vector<std::string> disks{m_machine.addSataDisk(m_internal, 4, {.node = "sda"}),
                                         m_machine.addUsbDisk(case1, {.node = "sdb"}, 0),
                                         m_machine.addUsbDisk(case1, {.node = "sdc"}, 3),
                                         m_machine.addNvmeDisk(nvme, {.node = "nvme0n1"})};
    const auto devices = platform::linux_host::readDevices();
    for (const auto &disk : disks) {
        const auto path = platform::linux_host::idPathOf(devices, *devices.at(disk));
        EXPECT_NE(sayingsOn(disk, "add").find("\nID_PATH=" + path + "\n"), std::string::npos)
            << path << " " << sayingsOn(disk, "add");
    }
}

TEST_F(UdevRule, WithoutTheDiskUtilityNothingIsMarked)
{
    const auto controller = m_machine.controllerOf(addEnclosure("612"), 0);
    std::filesystem::remove(m_tree.path("orvana-diskutil"));
    EXPECT_EQ(markOfDiskOn(controller), "");
}

} // namespace orvana::test
