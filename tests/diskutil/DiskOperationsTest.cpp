// The order of an erase, and its refusals, with a service and a disk that the test plays.

#include "diskutil/PlayedDisk.h"

namespace orvana::diskutil
{

using Calls = std::vector<std::string>;

TEST_F(DiskUtility, EraseUnmountsChecksAndOnlyThenWrites)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}, {"/dev/sdb2", "/media/B"}};
    const auto done = erase();
    ASSERT_TRUE(done) << done.error().reason;
    EXPECT_EQ(*done, "Finished erase on /dev/sdb: ext4 at /media/anna/COPY 11");
    EXPECT_EQ(m_service.calls,
              (Calls{"checkFormat ext4", "unmount /dev/sdb2", "unmount /dev/sdb1", "checkNobodyHas /dev/sdb",
                     "makeTable /dev/sdb", "openAlone /dev/sdb", "checkNobodyHas /dev/sdb",
                     "makeTable /dev/sdb", "makeVolume /dev/sdb ext4 COPY 1", "mount /dev/sdb1"}));
}

TEST_F(DiskUtility, SettingDecidesWhatTheJournaledFormatIs)
{
    m_setting = "exfat";
    ASSERT_TRUE(erase());
    EXPECT_EQ(m_service.calls[2], "makeTable /dev/sdb");
    EXPECT_EQ(m_service.calls[6], "makeVolume /dev/sdb exfat COPY 1");
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
    expectRefusal("\"seventeen letters\": longer than 16 bytes, which is the limit of ext4");
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

TEST_F(DiskUtility, FormatThatCannotBeMountedIsRefusedBeforeAnythingIsUnmounted)
{
    m_isMountable = false;
    const auto done = erase();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().status, Refused);
    EXPECT_EQ(done.error().reason, "ext4 volumes cannot be mounted on this machine");
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
    EXPECT_EQ(done.error().status, SomethingFailed);
    EXPECT_EQ(m_service.calls.back(), "openAlone /dev/sdb");
    EXPECT_EQ(m_service.rawDisk.bytesWritten, 0U);
}

TEST_F(DiskUtility, MissingRightIsAskedForAndThenTheDiskIsLookedAtAgain)
{
    m_service.missingRights = 2;
    ASSERT_TRUE(erase());
    EXPECT_EQ(m_service.calls, (Calls{"checkFormat ext4", "checkNobodyHas /dev/sdb", "makeTable /dev/sdb",
                                      "askFor first", "checkNobodyHas /dev/sdb", "makeTable /dev/sdb",
                                      "askFor second", "checkNobodyHas /dev/sdb", "makeTable /dev/sdb",
                                      "openAlone /dev/sdb", "checkNobodyHas /dev/sdb", "makeTable /dev/sdb",
                                      "makeVolume /dev/sdb ext4 COPY 1", "mount /dev/sdb1"}));
}

TEST_F(DiskUtility, RightThatDoesNotLastIsToldAndNotAskedForForEver)
{
    m_service.missingRights = 3;
    const auto refused = erase();
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().status, Refused);
    EXPECT_NE(refused.error().reason.find("was given for one time only"), std::string::npos)
        << refused.error().reason;
    EXPECT_EQ(m_service.calls.back(), "makeTable /dev/sdb");
}

TEST_F(DiskUtility, DiskThatChangesWhileAQuestionStandsIsRefused)
{
    m_service.missingRights = 1;
    m_service.whileAsked = [this] { m_disk->identity.sequence = 8; };
    EXPECT_EQ(erase().error().reason, "/dev/sdb is not the disk that was meant");
    EXPECT_EQ(m_service.calls.back(), "checkNobodyHas /dev/sdb");
}

TEST_F(DiskUtility, DiskThatIsMountedWhileAQuestionStandsIsRefused)
{
    m_service.missingRights = 1;
    m_service.whileAsked = [this] { m_disk->mounted = {{"/dev/sdb1", "/media/A"}}; };
    EXPECT_EQ(erase().error().reason, "/dev/sdb was mounted again");
    EXPECT_EQ(m_service.calls.back(), "checkNobodyHas /dev/sdb");
}

TEST_F(DiskUtility, DiskThatSomebodyTakesWhileAQuestionStandsIsRefused)
{
    m_service.missingRights = 1;
    m_service.whileAsked = [this] { m_service.failing["checkNobodyHas"] = Refused; };
    EXPECT_EQ(erase().error().status, Refused);
    EXPECT_EQ(m_service.calls.back(), "checkNobodyHas /dev/sdb");
}

TEST_F(DiskUtility, RightThatIsNotGivenIsARefusal)
{
    m_service.missingRights = 1;
    m_service.failing["askFor"] = Refused;
    EXPECT_EQ(erase().error().status, Refused);
    EXPECT_EQ(m_service.calls.back(), "askFor first");
}

TEST_F(DiskUtility, TroubleWithTheTableIsPassedOn)
{
    for (const auto status : {SomethingFailed, Refused, NotThere}) {
        m_service.failing = {{"makeTable", status}};
        const auto done = erase();
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().status, status);
        EXPECT_EQ(done.error().reason, status == SomethingFailed
                                           ? "/dev/sdb: what it held may be lost: played trouble"
                                           : "played trouble");
        EXPECT_EQ(m_service.calls.back(), "makeTable /dev/sdb");
    }
}

// Once the table is written the disk has changed, whatever the service answers.
TEST_F(DiskUtility, TroubleAfterTheTableIsNoRefusalAnyMore)
{
    const std::pair<const char *, const char *> troubles[] = {
        {"makeVolume", "/dev/sdb was emptied, but has no volume to use: played trouble"},
        {"mount", "/dev/sdb1 is erased, but cannot be mounted: played trouble"}};
    for (const auto &[call, reason] : troubles) {
        for (const auto status : {SomethingFailed, Refused, NotThere}) {
            m_service.failing = {{call, status}};
            const auto done = erase();
            ASSERT_FALSE(done);
            EXPECT_EQ(done.error().status, SomethingFailed);
            EXPECT_EQ(done.error().reason, reason);
            EXPECT_TRUE(m_service.calls.back().starts_with(call)) << "nothing comes after it";
        }
    }
}

TEST_F(DiskUtility, DiskOfTheSourceIsNeverTouched)
{
    m_disk->wwn = "0x5000";
    for (const auto &marks :
         {platform::DiskFingerprint{"/dev/sdb", {}, {}, {}, {}}, platform::DiskFingerprint{"", {}, {}, 7, {}},
          platform::DiskFingerprint{"", {}, "0x5000", {}, {}},
          platform::DiskFingerprint{"", "SN1", {}, {}, 512'000},
          platform::DiskFingerprint{"", {}, {}, {}, 512'000}}) {
        m_request.expected.spared = {{"", "OTHER", {}, 99, 1}, marks};
        expectRefusal("/dev/sdb is a disk of the source, which must not be touched");
        EXPECT_FALSE(eject());
    }
}

TEST_F(DiskUtility, DiskThatBecomesTheSourcesBeforeTheTableIsNotTouched)
{
    m_request.expected.spared = {{"", {}, "0x5000", {}, {}}};
    m_service.afterCheck = [this] { m_disk->wwn = "0x5000"; };
    EXPECT_FALSE(erase());
    EXPECT_FALSE(m_service.hasWritten());
}

TEST_F(DiskUtility, SecondEraseOfADiskIsRefusedWhileTheFirstGoesOn)
{
    const auto first = hold(7);
    ASSERT_TRUE(first);
    expectRefusal("the disk is being erased or ejected by another program at this moment");
    EXPECT_FALSE(eject());
}

TEST_F(DiskUtility, DiskIsFreeOnceTheFirstHasEnded)
{
    EXPECT_TRUE(hold(7));
    EXPECT_TRUE(erase());
    EXPECT_TRUE(hold(8));
    EXPECT_TRUE(hold(7));
}

} // namespace orvana::diskutil
