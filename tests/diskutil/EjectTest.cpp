// The order of an eject, and its refusals, with a service and a disk that the test plays.

#include "diskutil/PlayedDisk.h"

namespace orvana::diskutil
{

using Calls = std::vector<std::string>;

TEST_F(DiskUtility, EjectUnmountsEverythingAndLetsGo)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}, {"/dev/sdb2", "/media/B"}};
    m_disk->isInBay = false;
    m_disk->isMember = true;
    const auto done = eject();
    ASSERT_TRUE(done) << done.error().reason;
    EXPECT_EQ(*done, "Disk /dev/sdb ejected");
    EXPECT_EQ(m_service.calls, (Calls{"unmount /dev/sdb2", "unmount /dev/sdb1", "checkWithoutAsking /dev/sdb",
                                      "release /dev/sdb"}));
}

TEST_F(DiskUtility, EjectWritesOutWhatIsStillHeldBack)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}, {"/dev/sdb2", "/media/B"}};
    ASSERT_TRUE(eject());
    EXPECT_EQ(m_writtenOut, (Calls{"/media/A", "/media/B"}));
}

TEST_F(DiskUtility, EjectSaysWhenNotAllCouldBeWrittenAndLetsGoAllTheSame)
{
    m_disk->mounted = {{"/dev/sdb1", "/media/A"}};
    m_writeOut = trouble(SomethingFailed, "/media/A: Input/output error");
    const auto done = eject();
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().status, SomethingFailed);
    EXPECT_EQ(done.error().reason, "Disk /dev/sdb ejected, but not all could be written to it: "
                                   "/media/A: Input/output error");
    EXPECT_EQ(m_service.calls.back(), "release /dev/sdb");
}

TEST_F(DiskUtility, DiskThatSomebodyElseHasIsNotEjected)
{
    m_service.failing["checkWithoutAsking"] = Refused;
    EXPECT_EQ(eject().error().status, Refused);
    EXPECT_EQ(m_service.calls, Calls{"checkWithoutAsking /dev/sdb"});
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
