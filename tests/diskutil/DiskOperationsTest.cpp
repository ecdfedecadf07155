// The order of erase and eject, and their refusals, with a service and a disk that the test plays.

#include "diskutil/DiskOperations.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvana::diskutil
{

namespace
{

/// Notes what it is asked to do; `failing` names the calls that fail, with their status.
class PlayedService final : public DiskService
{
public:
    explicit PlayedService(std::optional<DiskFacts> &disk) : m_disk(disk) {}

    Outcome<void> checkFormat(const VolumeFormat &format) override
    {
        return note(std::string("checkFormat ") + format.type);
    }
    Outcome<void> unmount(const std::string &node) override
    {
        const auto done = note("unmount " + node);
        if (done && m_disk && staysMounted != node)
            m_disk->mounted.pop_back();
        return done;
    }
    Outcome<void> checkNobodyHas(const std::string &node) override
    {
        const auto done = note("checkNobodyHas " + node);
        afterCheck();
        return done;
    }
    Outcome<void> makeTable(const std::string &node) override
    {
        const auto done = note("makeTable " + node);
        afterTable();
        return done;
    }
    Outcome<std::string> makeVolume(const std::string &node, const VolumeFormat &format,
                                    const std::string &name) override
    {
        const auto done = note("makeVolume " + node + " " + format.type + " " + name);
        return done.map([&] { return node + "1"; });
    }
    Outcome<std::string> mount(const std::string &node) override
    {
        return note("mount " + node).map([] { return std::string("/media/anna/COPY 11"); });
    }
    Outcome<void> release(const std::string &node) override { return note("release " + node); }

    /// True when a byte of the disk may have been written.
    bool hasWritten() const
    {
        return std::any_of(calls.begin(), calls.end(), [](const std::string &call) {
            return call.starts_with("makeTable") || call.starts_with("makeVolume");
        });
    }

    std::vector<std::string> calls;
    std::map<std::string, ExitStatus> failing;
    std::string staysMounted;
    std::function<void()> afterCheck = [] {};
    std::function<void()> afterTable = [] {};

private:
    Outcome<void> note(const std::string &call)
    {
        calls.push_back(call);
        const auto found = failing.find(call.substr(0, call.find(' ')));
        return found == failing.end() ? Outcome<void>() : trouble(found->second, "played trouble");
    }

    std::optional<DiskFacts> &m_disk;
};

} // namespace

class DiskUtility : public testing::Test
{
protected:
    DiskUtility()
    {
        DiskFacts facts;
        facts.isWholeDisk = true;
        facts.identity = {.sequence = 7, .serial = "SN1", .blocks = 1000, .place = "uid/00.0/0"};
        facts.isInBay = true;
        facts.isRootKnown = true;
        facts.isExamined = true;
        m_disk = facts;
        m_request.verb = Verb::EraseDisk;
        m_request.format = "JHFS+";
        m_request.name = "COPY 1";
        m_request.node = "/dev/sdb";
        m_request.expected = {.sequence = 7, .serial = "SN1", .size = 512'000, .bay = "uid/00.0/0"};
    }

    Outcome<std::string> erase() { return eraseDisk(m_request, surroundings()); }
    Outcome<std::string> eject() { return ejectDisk(m_request, surroundings()); }

    Surroundings surroundings()
    {
        return {[this](const std::string &) { return m_disk; }, m_service,
                [this](const std::string &) { return m_users; }, m_setting};
    }

    /// The erase is refused for the reason, and nothing at all was asked of the service.
    void expectRefusal(const std::string &reason)
    {
        const auto done = erase();
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().status, Refused);
        EXPECT_EQ(done.error().reason, reason);
        EXPECT_TRUE(m_service.calls.empty());
    }

    std::optional<DiskFacts> m_disk;
    PlayedService m_service{m_disk};
    Request m_request;
    std::vector<std::string> m_users;
    std::optional<std::string> m_setting;
};

using Calls = std::vector<std::string>;

TEST_F(DiskUtility, EraseUnmountsChecksAndOnlyThenWrites)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}, {"/dev/sdb2", "/media/B"}};
    const auto done = erase();
    ASSERT_TRUE(done) << done.error().reason;
    EXPECT_EQ(*done, "Finished erase on /dev/sdb: ext4 at /media/anna/COPY 11");
    EXPECT_EQ(m_service.calls,
              (Calls{"checkFormat ext4", "unmount /dev/sdb2", "unmount /dev/sdb1", "checkNobodyHas /dev/sdb",
                     "makeTable /dev/sdb", "makeVolume /dev/sdb ext4 COPY 1", "mount /dev/sdb1"}));
}

TEST_F(DiskUtility, SettingDecidesWhatTheJournaledFormatIs)
{
    m_setting = "exfat";
    ASSERT_TRUE(erase());
    EXPECT_EQ(m_service.calls[2], "makeTable /dev/sdb");
    EXPECT_EQ(m_service.calls[3], "makeVolume /dev/sdb exfat COPY 1");
}

TEST_F(DiskUtility, DiskThatIsGoneIsNotThere)
{
    m_disk.reset();
    EXPECT_EQ(erase().error().status, NotThere);
    EXPECT_EQ(eject().error().status, NotThere);
    EXPECT_TRUE(m_service.calls.empty());
}

TEST_F(DiskUtility, NameOverTheLimitIsRefused)
{
    m_request.name = "seventeen letters";
    expectRefusal("\"seventeen letters\" is too long a name: ext4 takes at most 16 bytes, this has 17");
}

TEST_F(DiskUtility, DiskThatDiffersInAnythingIsRefused)
{
    const auto meant = m_request.expected;
    for (int i = 0; i < 4; ++i) {
        m_request.expected = meant;
        if (i == 0)
            m_request.expected.sequence = 8;
        if (i == 1)
            m_request.expected.size = 1024;
        if (i == 2)
            m_request.expected.serial = "SN2";
        if (i == 3)
            m_request.expected.bay = "uid/01.0/0";
        expectRefusal("/dev/sdb is not the disk that was meant");
        EXPECT_EQ(eject().error().status, Refused);
    }
}

TEST_F(DiskUtility, MissingExpectationIsRefused)
{
    const auto meant = m_request.expected;
    for (int i = 0; i < 4; ++i) {
        m_request.expected = meant;
        if (i == 0)
            m_request.expected.sequence.reset();
        if (i == 1)
            m_request.expected.serial.reset();
        if (i == 2)
            m_request.expected.size.reset();
        if (i == 3)
            m_request.expected.bay.reset();
        expectRefusal("/dev/sdb is not the disk that was meant");
    }
}

TEST_F(DiskUtility, DiskWithoutASerialNumberIsRefused)
{
    m_disk->identity.serial.reset();
    m_request.expected.serial.reset();
    expectRefusal(
        "/dev/sdb cannot be told from other disks: it has no serial number, or no number of arrival");
}

TEST_F(DiskUtility, PartitionOrImageIsRefused)
{
    m_disk->isWholeDisk = false;
    expectRefusal("/dev/sdb is no disk to work on");
}

TEST_F(DiskUtility, DiskInNoBayIsRefused)
{
    m_disk->isInBay = false;
    expectRefusal("/dev/sdb is in no bay of an enclosure");
}

TEST_F(DiskUtility, DiskWithTheRunningSystemIsRefused)
{
    m_disk->holdsSystem = true;
    expectRefusal("/dev/sdb holds the running system");
    EXPECT_EQ(eject().error().status, Refused);
}

TEST_F(DiskUtility, EveryDiskIsRefusedWhileTheSystemsOwnAreNotKnown)
{
    m_disk->isRootKnown = false;
    expectRefusal("/dev/sdb is left alone: it cannot be told which disks hold the running system");
    EXPECT_EQ(eject().error().status, Refused);
}

TEST_F(DiskUtility, SwapIsRefused)
{
    m_disk->isSwappedOn = true;
    expectRefusal("/dev/sdb is in use as swap space");
    EXPECT_EQ(eject().error().status, Refused);
}

TEST_F(DiskUtility, MemberOfASetOrGroupIsRefused)
{
    m_disk->isMember = true;
    expectRefusal("/dev/sdb is a member of a RAID set or a volume group");
}

TEST_F(DiskUtility, DiskThatSomethingIsBuiltUponIsRefused)
{
    m_disk->isHeld = true;
    expectRefusal("/dev/sdb is in use: something is built upon it");
    EXPECT_EQ(eject().error().status, Refused);
}

TEST_F(DiskUtility, DiskThatIsNotExaminedIsRefused)
{
    m_disk->isExamined = false;
    expectRefusal("/dev/sdb is not examined yet: what is on it is not known");
}

TEST_F(DiskUtility, FormatThatCannotBeMadeIsRefusedBeforeAnythingIsUnmounted)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}};
    m_service.failing["checkFormat"] = Refused;
    EXPECT_EQ(erase().error().status, Refused);
    EXPECT_EQ(m_service.calls, Calls{"checkFormat ext4"});
}

TEST_F(DiskUtility, BusyVolumeIsRefusedWithWhoUsesIt)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}};
    m_service.failing["unmount"] = Refused;
    m_users = {"cp (12)", "bash (34)"};
    const auto done = erase();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().status, Refused);
    EXPECT_EQ(done.error().reason,
              "/media/A cannot be unmounted: played trouble; in use by cp (12), bash (34)");
    EXPECT_FALSE(m_service.hasWritten());
}

TEST_F(DiskUtility, VolumeThatDoesNotStayUnmountedIsRefused)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}};
    m_service.staysMounted = "/dev/sdb1";
    const auto done = erase();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().reason, "/media/A does not stay unmounted");
    EXPECT_FALSE(m_service.hasWritten());
}

TEST_F(DiskUtility, DiskThatSomebodyElseHasIsRefused)
{
    m_service.failing["checkNobodyHas"] = Refused;
    EXPECT_EQ(erase().error().status, Refused);
    EXPECT_FALSE(m_service.hasWritten());
}

TEST_F(DiskUtility, DiskThatChangesBeforeTheWriteIsRefused)
{
    m_service.afterCheck = [this] { m_disk->identity.sequence = 8; };
    EXPECT_EQ(erase().error().status, Refused);
    EXPECT_FALSE(m_service.hasWritten());
}

TEST_F(DiskUtility, DiskThatIsMountedAgainBeforeTheWriteIsRefused)
{
    m_service.afterCheck = [this] { m_disk->mounted = {{"/dev/sdb1", "/media/A"}}; };
    EXPECT_EQ(erase().error().status, Refused);
    EXPECT_FALSE(m_service.hasWritten());
}

TEST_F(DiskUtility, DiskThatChangesBetweenTheWritesGetsNoVolumeAndFails)
{
    m_service.afterTable = [this] { m_disk->identity.serial = "SN2"; };
    const auto done = erase();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().status, Failed);
    EXPECT_EQ(m_service.calls.back(), "makeTable /dev/sdb");
}

TEST_F(DiskUtility, TroubleOfTheServiceIsPassedOn)
{
    for (const auto *call : {"makeTable", "makeVolume", "mount"}) {
        m_service.failing = {{call, Failed}};
        const auto done = erase();
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().status, Failed);
        EXPECT_EQ(done.error().reason, "played trouble");
        EXPECT_TRUE(m_service.calls.back().starts_with(call)) << "nothing comes after it";
    }
}

TEST_F(DiskUtility, EjectUnmountsEverythingAndLetsGo)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}, {"/dev/sdb2", "/media/B"}};
    m_disk->isInBay = false;
    m_disk->isMember = true;
    const auto done = eject();
    ASSERT_TRUE(done) << done.error().reason;
    EXPECT_EQ(*done, "Disk /dev/sdb ejected");
    EXPECT_EQ(m_service.calls, (Calls{"unmount /dev/sdb2", "unmount /dev/sdb1", "release /dev/sdb"}));
}

TEST_F(DiskUtility, EjectOfABusyVolumeSaysWhoUsesItAndKeepsTheDisk)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}};
    m_service.failing["unmount"] = Refused;
    m_users = {"cp (12)"};
    EXPECT_EQ(eject().error().reason, "/media/A cannot be unmounted: played trouble; in use by cp (12)");
    EXPECT_EQ(m_service.calls, Calls{"unmount /dev/sdb1"});
}

} // namespace orvana::diskutil
