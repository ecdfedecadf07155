// Disks that hold less than they say: files of a file system of the test's own, as loop devices.

#include "diskutil/RealDisks.h"

#include <chrono>

namespace orvana::test
{

class FakeDisks : public RealDisks
{
protected:
    void SetUp() override
    {
        RealDisks::SetUp();
        if (IsSkipped())
            return;
        const auto bays = asWord(m_tree.path("bays"));
        must("( /usr/bin/python3 " + asWord(FAKE_DISKS) + " " + bays + " >/dev/null 2>&1 </dev/null & )");
        must("for i in $(seq 100); do mountpoint -q " + bays + " && exit 0; sleep 0.1; done; exit 1");
        m_isMounted = true;
    }

    void TearDown() override
    {
        if (!m_isMounted)
            return;
        // The service may look at a disk that was just let go.
        const auto said = runShell("for i in $(seq 50); do umount " + asWord(m_tree.path("bays")) +
                                   " && exit 0; sleep 0.1; done; exit 1");
        EXPECT_EQ(said.status, 0) << said.text;
    }

    /// Erases the disk and expects that its lie is told.
    void expectFound(const std::string &kind, const std::string &what)
    {
        const auto fake = addBlankDisk(64, kind);
        const auto said = erase(*fake, "COPY");
        EXPECT_EQ(said.status, 1) << said.text;
        EXPECT_NE(said.text.find(what), std::string::npos) << said.text;
        EXPECT_EQ(fake->mountPoint(), "");
    }

    bool m_isMounted = false;
};

TEST_F(FakeDisks, DiskThatWrapsAtItsHalfIsFound)
{
    expectFound("wraps", "was emptied; it is smaller than it says, or broken: at its beginning is what was "
                         "written at 32.00 MB");
}

TEST_F(FakeDisks, DiskThatSwallowsItsUpperHalfIsFoundAndNoOtherDiskChanges)
{
    const auto other = addBlankDisk(64, "genuine");
    const auto before = other->digest();
    expectFound(
        "swallows",
        "was emptied; it is smaller than it says, or broken: what was written at 32.00 MB is not there");
    EXPECT_EQ(other->digest(), before);
}

TEST_F(FakeDisks, DiskThatGivesErrorsInItsUpperHalfIsFound)
{
    expectFound("fails", "what it held may be lost"); // the service cannot even make its table
}

TEST_F(FakeDisks, GenuineDiskIsLetThroughAndErased)
{
    const auto disk = addBlankDisk(64, "genuine");
    const auto said = erase(*disk, "COPY");
    EXPECT_EQ(said.status, 0) << said.text;
    EXPECT_EQ(said.text.find("not probed"), std::string::npos) << said.text;
    EXPECT_EQ(disk->label(), "COPY");
}

} // namespace orvana::test
