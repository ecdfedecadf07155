// Setting up enclosures on a made-up machine, and asking for root's rights.

#include "platform/linux/LinuxEnclosureSetup.h"
#include "enclosures/BayLearning.h"
#include "platform/linux/LinuxFixture.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace orvana::test
{

namespace
{

enclosures::Definition dock()
{
    return *enclosures::readDefinition(
        "dock", R"({"version":1,"name":"Dock","bays":{"A":{"path":"a"},"B":{"path":"b"}}})");
}

} // namespace

class LinuxSetup : public LinuxFixture
{
protected:
    LinuxSetup() { m_rootHub = m_machine.addUsbController("0000:00:14.0", 2); }

    std::string addDisk(const std::string &hub, int port, const std::string &node)
    {
        return m_machine.addUsbDisk(m_machine.addUsb(hub, port, "152d:0578"),
                                    {.node = node, .serial = node, .properties = {"ID_FS_TYPE=ext4"}});
    }

    std::string m_rootHub;
};

TEST_F(LinuxSetup, LearnsAHubOfTheMachineAndFindsItsDisksInBays)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, "2109:0817", "D1");
    auto &setup = host().enclosureSetup();
    enclosures::BayLearning learning(setup.look());
    addDisk(hub, 2, "sdb");
    EXPECT_EQ(learning.look(setup.look()).text.substr(0, 35), "WD Red, serial number sdb, 3.64 TB,");
    addDisk(hub, 4, "sdc");
    EXPECT_EQ(learning.look(setup.look()).bay, 'B');
    const auto definition = learning.finish("Dock", setup.definitions());
    ASSERT_TRUE(definition) << definition.error();
    EXPECT_EQ(definition->bays.at('B').front().anchor->serial, "D1");
    ASSERT_TRUE(setup.add(*definition));
    EXPECT_EQ(baysOf(*scan().tbArray().at(0)), (std::vector<std::string>{"Slot-A sdb", "Slot-B sdc"}));
}

TEST_F(LinuxSetup, DiskThatIsTheSystemsOrNamedByATableIsRefusedWithTheReason)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, "2109:0817");
    auto &setup = host().enclosureSetup();
    enclosures::BayLearning learning(setup.look());
    m_etc.file("fstab", "/dev/sdb /data ext4 defaults 0 0\n");
    addDisk(hub, 1, "sdb");
    EXPECT_EQ(learning.look(setup.look()).text, "WD Red, serial number sdb, 3.64 TB: it is named by " +
                                                    m_etc.path("fstab") + "; take another one");
    m_machine.addPartition(addDisk(hub, 2, "sdc"), 1);
    m_machine.mount("sdc1", "/");
    EXPECT_EQ(learning.look(setup.look()).text,
              "WD Red, serial number sdc, 3.64 TB: it holds the running system; take another one");
    m_machine.addSataDisk(m_machine.controllerOf(addEnclosure(), 0), 0,
                          {.node = "sdd", .serial = "sdd", .properties = {"ID_FS_TYPE=ext4"}});
    EXPECT_EQ(
        learning.look(setup.look()).text,
        "WD Red, serial number sdd, 3.64 TB: it is in an enclosure that needs no setup; take another one");
}

TEST_F(LinuxSetup, DiskIsShownOnceUdevHasLookedAtIt)
{
    const auto hub = m_machine.addUsb(m_rootHub, 1, "2109:0817");
    const auto device = m_machine.addUsb(hub, 1, "152d:0578");
    m_machine.add(
        device + "/host9/target9:0:0/9:0:0:0/block/sdb", "block",
        {"N: sdb", "E: DEVTYPE=disk", "E: MAJOR=8", "E: MINOR=16", "E: DEVNAME=/dev/sdb", "A: size=4096"});
    EXPECT_TRUE(host().enclosureSetup().look().disks.empty());
}

TEST_F(LinuxSetup, WhoIsNotRootAsksByWayOfPolkit)
{
    if (::geteuid() == 0) {
        ASSERT_EQ(::seteuid(12345), 0);
    }
    // A program of another user complains of the library that makes up the devices.
    const std::string preloaded = std::getenv("LD_PRELOAD");
    ::unsetenv("LD_PRELOAD");
    const TemporaryTree programs;
    std::filesystem::permissions(programs.root(), std::filesystem::perms(0777));
    const auto pkexec = programs.file(
        "pkexec",
        "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.words\"; cat \"$0.says\"; exit $(cat \"$0.status\")\n");
    std::filesystem::permissions(pkexec, std::filesystem::perms(0755));
    programs.file("pkexec.says", "");
    programs.file("pkexec.status", "0");
    platform::linux_host::LinuxMachine machine;
    platform::linux_host::LinuxEnclosureSetup setup(machine, {pkexec, "/helper"});
    const auto tell = [&](const char *says, const char *status) {
        programs.file("pkexec.says", says);
        programs.file("pkexec.status", status);
        const auto added = setup.add(dock());
        return added ? std::string() : added.error();
    };
    EXPECT_EQ(tell("", "0"), "");
    EXPECT_EQ(programs.read("pkexec.words"), "/helper\nadd\ndock\n" + enclosures::textOf(dock()) + "\n");
    EXPECT_TRUE(setup.remove("dock"));
    EXPECT_EQ(programs.read("pkexec.words"), "/helper\nremove\ndock\n");
    EXPECT_EQ(tell("", "126"), "the question for the password was dismissed; nothing was written");
    EXPECT_EQ(tell("Error executing command as another user: Not authorized\nmore", "127"),
              "the right to write it was not given: Error executing command as another user: Not authorized");
    EXPECT_EQ(tell("orvana-bays: dock.json: is there already\n", "1"),
              "orvana-bays: dock.json: is there already");
    platform::linux_host::LinuxEnclosureSetup without(machine, {programs.path("none"), "/helper"});
    const LogLines log;
    EXPECT_EQ(without.add(dock()).error(),
              programs.path("none") + " cannot be started; run the terminal program with sudo");
    ::setenv("LD_PRELOAD", preloaded.c_str(), 1);
    if (::getuid() == 0) {
        EXPECT_EQ(::seteuid(0), 0);
    }
}

} // namespace orvana::test
