// The disks that a run reads from, and how a later scan recognises them.

#include "duplicate/plan/SourceDisks.h"

#include "support/MadeUpDevices.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

/// A machine on which the test decides which disks lie beneath a path.
class Host final : public test::TestHost
{
public:
    using test::TestHost::TestHost;

    std::vector<std::string> disksBeneath(const std::vector<std::string> &) const override { return nodes; }

    std::vector<std::string> nodes;
};

class SourceDisks : public testing::Test
{
protected:
    test::TemporaryTree m_tree;
    Host m_host{m_tree.folder("home")};
    ScannedDevices m_devices{{test::enclosure(1, {test::disk(1), test::disk(2)})}, {test::disk(3)}, {}};
};

} // namespace

TEST_F(SourceDisks, ListedDiskIsKnownByAllItsMarksAndAnyOtherByItsNode)
{
    m_host.nodes = {"/dev/disk9", "/dev/disk2"};
    const auto source = rememberSource(m_host, m_devices, m_tree.root());
    ASSERT_EQ(source.disks.size(), 2U);
    EXPECT_EQ(source.disks[0], test::disk(2)->fingerprint());
    EXPECT_EQ(source.disks[0].serial, "SN2");
    EXPECT_EQ(source.disks[1], (platform::DiskFingerprint{"/dev/disk9", {}, {}, {}, {}}));
}

TEST_F(SourceDisks, SerialNumberOfTwoDisksIsNoMark)
{
    m_devices.otherDiskArray.front()->setHddSN("SN2");
    m_host.nodes = {"/dev/disk2"};
    EXPECT_FALSE(rememberSource(m_host, m_devices, m_tree.root()).disks.at(0).serial);
}

TEST_F(SourceDisks, DisksBeneathTheSelectionAreAddedOnce)
{
    m_host.nodes = {"/dev/disk2", "/dev/disk3"};
    std::vector disks{test::disk(2)->fingerprint()};
    addDisksOf(m_host, m_devices, {m_tree.root()}, disks);
    ASSERT_EQ(disks.size(), 2U);
    EXPECT_EQ(disks[0].device, "/dev/disk2");
    EXPECT_EQ(disks[1].device, "/dev/disk3");
}

TEST_F(SourceDisks, SourceIsStillThereOnlyOnTheSameDisks)
{
    m_host.nodes = {"/dev/disk2"};
    const auto source = rememberSource(m_host, m_devices, m_tree.root());
    EXPECT_TRUE(isStillThere(m_host, m_devices, source));
    m_host.nodes = {"/dev/disk3"};
    EXPECT_FALSE(isStillThere(m_host, m_devices, source));
    m_host.nodes = {"/dev/disk2"};
    EXPECT_FALSE(isStillThere(m_host, m_devices, {m_tree.path("gone"), source.folder, source.disks}));
}

} // namespace orvana
