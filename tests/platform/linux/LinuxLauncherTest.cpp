// The words that the disk utility is given.

#include "platform/linux/LinuxFixture.h"

#include <filesystem>

namespace orvana::test
{

class DiskUtilityCalls : public LinuxFixture
{
protected:
    /// Runs a program in place of the disk utility; the program prints its arguments.
    platform::CommandLauncher::Result run(const std::vector<std::string> &arguments)
    {
        const auto program = m_tree.file("utility", "#!/bin/sh\nprintf '%s|' \"$@\" >&2\nexit 3\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        platform::linux_host::LinuxLauncher launcher(m_linux, program);
        return launcher.run("/usr/sbin/diskutil", arguments);
    }

    TemporaryTree m_tree;
    platform::linux_host::LinuxMachine m_linux{{m_machine.mountFile(), m_machine.swapFile(), "/none"}};
};

TEST_F(DiskUtilityCalls, CarryTheKernelsNameAndWhatIsKnownOfTheDisk)
{
    m_machine.addSataDisk(m_machine.controllerOf(addEnclosure("625"), 3), 1, {.node = "sdq"});
    const auto snapshot = m_linux.snapshot();
    const auto result = run({"eraseDisk", "JHFS+", "COPY 1", "/dev/disk0"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.output, "eraseDisk|JHFS+|COPY 1|/dev/sdq|--expect-sequence=" +
                                 std::to_string(snapshot->disks.at(0).sequence.value()) +
                                 "|--expect-serial=SN1|--expect-size=4000787030016|"
                                 "--expect-bay=e6d5c4b3-a201-3412-ffff-0000000001/03.0/0x1b21:0x0625/1/0|")
        << "the reason that it gives is the answer";
}

TEST_F(DiskUtilityCalls, LeaveOutWhatIsNotKnown)
{
    m_machine.addSataDisk(m_machine.controllerOf(addEnclosure("625"), 3), 1, {.node = "sdq", .serial = ""});
    m_linux.snapshot();
    EXPECT_EQ(run({"eject", "/dev/disk0"}).output.find("--expect-serial"), std::string::npos);
}

TEST_F(DiskUtilityCalls, AreNotMadeForADiskThatIsGone)
{
    const auto disk = m_machine.addSataDisk(m_internal, 0, {.node = "sda"});
    m_linux.snapshot();
    m_machine.pull(disk);
    m_machine.addSataDisk(m_internal, 1, {.node = "sda", .serial = "OTHER"});
    const auto result = run({"eject", "/dev/disk0"});
    EXPECT_EQ(result.status, 4);
    EXPECT_EQ(result.output, "/dev/disk0: this disk is not there any more\n");
}

} // namespace orvana::test
