// The package's udev rule, read and applied by udev itself together with the machine's own rules.

#include "MadeUpMachine.h"
#include "support/Shell.h"

#include <gtest/gtest.h>
#include <sstream>

namespace orvana::test
{

class UdevRule : public testing::Test
{
protected:
    using Lines = std::vector<std::string>;

    void SetUp() override
    {
        if (runShell("unshare --mount true && command -v udevadm").status != 0)
            GTEST_SKIP() << "needs root with namespaces, and the package udev";
        m_fixedPort = m_machine.addBridge({}, "0000:00:1c.0");
        m_port = m_machine.addBridge({}, "0000:00:07.0");
        m_upper = m_machine.addBridge(m_port, "0000:01:00.0", Removable);
    }

    /// A controller below the port that things are plugged into. The kernel calls removable what is below
    /// such a port, and not the port.
    std::string addPlugged(const std::string &vendor, const std::string &device)
    {
        const auto number = std::to_string(++m_count);
        const auto bridge = m_machine.addBridge(m_upper, "0000:02:0" + number + ".0", Removable);
        return m_machine.addPci(bridge, "0000:1" + number + ":00.0", vendor, device, "0x010601", Removable);
    }

    /// A disk on a controller, and what the disk service is told of it.
    std::string markOfDiskOn(const std::string &controller)
    {
        return markOf(m_machine.addSataDisk(controller, 0, {.node = "sd" + std::string(1, m_letter++)}));
    }

    /// What the disk service is told of a device: "UDISKS_SYSTEM=0 UDISKS_AUTO=1", or nothing.
    static std::string markOf(const std::string &device, const std::string &action = "add")
    {
        const auto said = runShell(std::string("unshare --mount --propagation private -- sh -ec '") + Script +
                                   "' sh " + asWord(UDEV_RULE) + " " + action + " " + asWord(device));
        EXPECT_EQ(said.status, 0) << said.text;
        EXPECT_NE(said.text.find("DEVPATH=" + device.substr(4)), std::string::npos) << said.text;
        EXPECT_EQ(said.text.find("60-orvana-plurimo.rules:"), std::string::npos) << said.text;
        std::string mark;
        std::istringstream lines(said.text);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("UDISKS_"))
                mark.append(mark.empty() ? "" : " ").append(line);
        }
        return mark;
    }

    // udev writes below these folders, and with the made-up devices it would leave links to them there.
    static constexpr const char *Script =
        "mount -t tmpfs tmpfs /run; mount -t tmpfs tmpfs /dev; "
        "mknod -m 666 /dev/null c 1 3; mkdir -p /run/udev/rules.d; "
        "cp \"$1\" /run/udev/rules.d/; exec udevadm test --action=$2 \"$3\"";
    static constexpr const char *External = "UDISKS_SYSTEM=0 UDISKS_AUTO=1";
    const Lines Removable{"A: removable=removable"};

    MadeUpMachine m_machine;
    std::string m_fixedPort, m_port, m_upper;
    int m_count = 0;
    char m_letter = 'a';
};

TEST_F(UdevRule, DisksInTheBaysAreExternal)
{
    EXPECT_EQ(markOfDiskOn(addPlugged("0x1b21", "0x0612")), External);
    EXPECT_EQ(markOfDiskOn(addPlugged("0x1b21", "0x0625")), External);
}

TEST_F(UdevRule, PartitionsOfSuchADiskAreExternalToo)
{
    const auto disk = m_machine.addSataDisk(addPlugged("0x1b21", "0x0612"), 0, {.node = "sda"});
    EXPECT_EQ(markOf(m_machine.addPartition(disk, 1)), External);
}

TEST_F(UdevRule, DiskStaysExternalWhenItIsWrittenAnew)
{
    const auto disk = m_machine.addSataDisk(addPlugged("0x1b21", "0x0612"), 0, {.node = "sda"});
    EXPECT_EQ(markOf(disk, "change"), External);
}

TEST_F(UdevRule, PortThatCallsItselfRemovableDoesAsWell)
{
    const auto port = m_machine.addBridge({}, "0000:00:07.1", Removable);
    EXPECT_EQ(markOfDiskOn(m_machine.addAhci(port, "0000:20:00.0", "0x1b21", "0x0612")), External);
}

TEST_F(UdevRule, InternalControllerOfTheSameKindIsLeftAlone)
{
    EXPECT_EQ(markOfDiskOn(m_machine.addAhci(m_fixedPort, "0000:20:00.0", "0x1b21", "0x0612")), "");
    const auto fixed =
        m_machine.addPci(m_fixedPort, "0000:21:00.0", "0x1b21", "0x0625", "0x010601", {"A: removable=fixed"});
    EXPECT_EQ(markOfDiskOn(fixed), "");
}

TEST_F(UdevRule, OtherControllersBehindThePortAreLeftAlone)
{
    EXPECT_EQ(markOfDiskOn(addPlugged("0x8086", "0x2922")), "");
    EXPECT_EQ(markOfDiskOn(addPlugged("0x1b21", "0x1166")), "");
}

TEST_F(UdevRule, MakerAndModelAreOneDevices)
{
    const auto bridge = m_machine.addPci(m_upper, "0000:02:09.0", "0x1b21", "0x2824", "0x060400", Removable);
    EXPECT_EQ(markOfDiskOn(m_machine.addAhci(bridge, "0000:20:00.0", "0x1234", "0x0612")), "");
}

TEST_F(UdevRule, DiskWhoseMediumIsRemovableIsNotExternalForThat)
{
    const auto controller = m_machine.addAhci(m_fixedPort, "0000:20:00.0", "0x1b21", "0x0612");
    const auto scsi = m_machine.add(controller + "/ata9/host9/target9:0:0/9:0:0:0", "scsi",
                                    {"E: DEVTYPE=scsi_device", "A: removable=removable"});
    EXPECT_EQ(markOf(m_machine.addBlock(scsi, {.node = "sda"})), "");
}

TEST_F(UdevRule, OnlyDisksAreMarked)
{
    const auto controller = addPlugged("0x1b21", "0x0612");
    EXPECT_EQ(markOf(controller), "");
}

TEST_F(UdevRule, DiskThatLeavesIsNotMarkedAnew)
{
    const auto disk = m_machine.addSataDisk(addPlugged("0x1b21", "0x0612"), 0, {.node = "sda"});
    EXPECT_EQ(markOf(disk, "remove"), "");
}

} // namespace orvana::test
