// Faults of a destination. Each test checks log, report and status, and that the other destinations lost no
// file.

#include "faults/FaultFixture.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace orvana::test
{

namespace
{

constexpr std::size_t MiB = 1'048'576;

#define REQUIRE_MOUNTS()                                                                                     \
    if (!canMount())                                                                                         \
    GTEST_SKIP() << "mounting needs root"

} // namespace

class DestinationFault : public FaultTest
{
protected:
    void SetUp() override
    {
        FaultTest::SetUp();
        if (IsSkipped())
            return;
        sourceFile("docs/big", patternOf(12 * MiB));
        sourceFile("docs/small", "a small one");
        m_good = destination("good");
    }

    void expectGoodIsWhole() const
    {
        expectIntact("docs/big", m_good);
        expectIntact("docs/small", m_good);
    }

    std::string m_good;
};

INSTANTIATE_TEST_SUITE_P(As, DestinationFault, testing::Values(User::Root, User::Ordinary),
                         [](const auto &user) { return user.param == User::Root ? "Root" : "User"; });

TEST_P(DestinationFault, FullFromTheStart)
{
    REQUIRE_MOUNTS();
    const auto &full = volume("tmpfs", 1);
    ASSERT_NE(shell("head -c 2M /dev/zero > " + full.path("filler") + " 2>/dev/null"), 0);
    EXPECT_EQ(run({"docs"}, {full.root(), m_good}), 1);
    EXPECT_EQ(cannotDuplicate("docs/big", full.root()), 1);
    EXPECT_EQ(cannotDuplicate("docs/small", full.root()), 1);
    EXPECT_EQ(reason("docs/big", full.root()), "No space left on device");
    EXPECT_EQ(report()["destinations"][0]["copied"], 0);
    EXPECT_EQ(logged("Finish !!!"), 1);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, FullInMidFile)
{
    REQUIRE_MOUNTS();
    const auto &small = volume("tmpfs", 5);
    EXPECT_EQ(run({"docs"}, {m_good, small.root()}), 1);
    EXPECT_EQ(cannotDuplicate("docs/big", small.root()), 1);
    EXPECT_EQ(reason("docs/big", small.root()), "No space left on device");
    EXPECT_EQ(report()["destinations"][0]["failed"], 0);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, FullInMidFileOnAJournaledVolume)
{
    REQUIRE_MOUNTS();
    const auto &small = volume("ext4", 10);
    EXPECT_EQ(run({"docs"}, {m_good, small.root()}), 1);
    EXPECT_EQ(cannotDuplicate("docs/big", small.root()), 1);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, WriteErrorInMidFile)
{
    const auto bad = destination("bad");
    m_faults = [&](TestHost &host) { host.faults().volume(bad).writeErrorAfter = 5 * MiB; };
    EXPECT_EQ(run({"docs"}, {bad, m_good}), 1);
    EXPECT_EQ(cannotDuplicate("docs/big", bad), 1);
    EXPECT_EQ(reason("docs/big", bad), "Input/output error");
    expectGoodIsWhole();
}

TEST_P(DestinationFault, ErrorThatShowsOnlyAtSync)
{
    const auto bad = destination("bad");
    m_faults = [&](TestHost &host) { host.faults().volume(bad).syncError = true; };
    EXPECT_EQ(run({"docs"}, {bad, m_good}), 1);
    EXPECT_EQ(logged("Can`t Duplicate"), 0);
    EXPECT_EQ(logged("Finish !!!"), 1);
    const auto entry = report()["destinations"][0];
    EXPECT_EQ(entry["onDisk"], false);
    EXPECT_EQ(entry["copied"], 0);
    EXPECT_EQ(entry["notKnownToBeOnDisk"], 2);
    EXPECT_EQ(entry["reason"], "not known to be on disk: Input/output error");
    EXPECT_EQ(report()["destinations"][1]["onDisk"], true);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, ErrorOnClose)
{
    const auto bad = destination("bad");
    m_faults = [&](TestHost &host) { host.faults().volume(bad).closeError = true; };
    EXPECT_EQ(run({"docs"}, {bad, m_good}), 1);
    EXPECT_EQ(cannotDuplicate("docs/big", bad), 1);
    EXPECT_EQ(cannotDuplicate("docs/small", bad), 1);
    EXPECT_EQ(report()["destinations"][0]["failed"], 2);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, FlushErrorBeforeReadingBack)
{
    const auto bad = destination("bad");
    m_verify = true;
    m_faults = [&](TestHost &host) { host.faults().volume(bad).writeOutError = true; };
    EXPECT_EQ(run({"docs"}, {bad, m_good}), 1);
    EXPECT_EQ(cannotDuplicate("docs/big", bad), 1);
    EXPECT_EQ(report()["destinations"][0]["copied"], 0);
    EXPECT_EQ(report()["destinations"][1]["verified"], 2);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, GoneInMidRun)
{
    const auto bad = destination("bad");
    m_faults = [&](TestHost &host) { host.faults().volume(bad).goneAfter = 3 * MiB; };
    EXPECT_EQ(run({"docs"}, {bad, m_good}), 1);
    EXPECT_EQ(cannotDuplicate("docs/big", bad), 1);
    EXPECT_EQ(reason("docs/big", bad), "No such device");
    EXPECT_EQ(report()["destinations"][0]["onDisk"], false);
    EXPECT_EQ(report()["destinations"][1]["copied"], 2);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, DeviceMadeSmallerInMidRun)
{
    REQUIRE_MOUNTS();
    const auto &bad = volume("ext4", 64);
    m_faults = [&](TestHost &host) { host.faults().volume(bad.root()).delayMilliseconds = 20; };
    start({"docs"}, {bad.root(), m_good});
    ASSERT_TRUE(waitForSize(bad.path("docs/big"), 2 * MiB));
    bad.shrinkDevice(1);
    EXPECT_EQ(wait(), 1);
    const auto entry = report()["destinations"][0];
    EXPECT_TRUE(entry["onDisk"] == false || entry["failed"] > 0) << entry;
    EXPECT_EQ(report()["destinations"][1]["copied"], 2);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, ImageOnAFullDisk)
{
    REQUIRE_MOUNTS();
    // The device promises more than the memory beneath it can hold.
    const auto &memory = volume("tmpfs", 6);
    const auto mount = m_tree.folder("thin");
    ASSERT_EQ(shell("truncate -s 64M " + memory.path("image") + " && mkfs.ext4 -q " + memory.path("image") +
                    " && mount -o loop " + memory.path("image") + " " + mount + " && chmod 777 " + mount),
              0);
    EXPECT_EQ(run({"docs"}, {mount, m_good}), 1);
    const auto entry = report()["destinations"][0];
    EXPECT_TRUE(entry["onDisk"] == false || entry["failed"] > 0) << entry;
    EXPECT_EQ(shell("umount " + mount), 0);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, UnmountedLazilyInMidRun)
{
    REQUIRE_MOUNTS();
    const auto &pulled = volume("ext4", 64);
    m_faults = [&](TestHost &host) { host.faults().volume(pulled.root()).delayMilliseconds = 20; };
    start({"docs"}, {pulled.root(), m_good});
    ASSERT_TRUE(waitForSize(pulled.path("docs/big"), 2 * MiB));
    pulled.unmountLazily();
    EXPECT_EQ(wait(), 1) << "the path leads elsewhere now";
    EXPECT_EQ(report()["destinations"][0]["onDisk"], false);
    // The folder under the mount point belongs to the system disk and stayed empty. The volume got every
    // file.
    EXPECT_EQ(outputOf("ls -A " + pulled.root()), "");
    pulled.mountAgain();
    expectIntact("docs/big", pulled.root());
    expectIntact("docs/small", pulled.root());
    expectGoodIsWhole();
}

TEST_P(DestinationFault, ReadOnly)
{
    REQUIRE_MOUNTS();
    const auto &locked = volume("ext4", 16);
    locked.remountReadOnly();
    EXPECT_EQ(run({"docs"}, {locked.root(), m_good}), 1);
    EXPECT_EQ(cannotDuplicate("docs/small", locked.root()), 1);
    EXPECT_EQ(reason("docs/small", locked.root()), "Read-only file system");
    expectGoodIsWhole();
}

TEST_P(DestinationFault, ReadOnlyExistingFile)
{
    const auto other = destination("other");
    m_tree.file("other/docs/small", "kept content");
    ::chmod(m_tree.path("other/docs/small").c_str(), 0444);
    destination("other");
    if (isOrdinary()) {
        EXPECT_EQ(run({"docs"}, {other, m_good}), 1);
        EXPECT_EQ(logged("Can`t Duplicate"), 0);
        EXPECT_EQ(reason("docs/small", other), "The existing file cannot be opened: Permission denied");
        EXPECT_EQ(m_tree.read("other/docs/small"), "kept content");
    } else {
        EXPECT_EQ(run({"docs"}, {other, m_good}), 1) << "root may write it, and it keeps its tail";
        EXPECT_EQ(reason("docs/small", other), "The copy holds 1 bytes of an older file behind it");
        EXPECT_EQ(m_tree.read("other/docs/small"), "a small onet");
    }
    expectGoodIsWhole();
}

TEST_P(DestinationFault, LinkThatLeadsOutAsAFile)
{
    const auto other = destination("other");
    m_tree.file("outside", "safe");
    ::chmod(m_tree.path("outside").c_str(), 0666);
    m_tree.folder("other/docs");
    m_tree.link("other/docs/small", "../../outside");
    destination("other");
    EXPECT_EQ(run({"docs"}, {other, m_good}), 1);
    EXPECT_EQ(m_tree.read("outside"), "safe");
    EXPECT_EQ(reason("docs/small", other),
              "The existing file cannot be opened: The path leads out of the volume");
    expectIntact("docs/big", other);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, LinkThatLeadsOutAsAFolder)
{
    const auto other = destination("other");
    const auto outside = destination("outside");
    m_tree.link("other/docs", "../outside");
    EXPECT_EQ(run({"docs"}, {other, m_good}), 1);
    EXPECT_TRUE(treeOf(outside).empty());
    EXPECT_EQ(cannotDuplicate("docs/small", other), 1);
    EXPECT_EQ(reason("docs/small", other), "The path leads out of the volume");
    expectGoodIsWhole();
}

TEST_P(DestinationFault, MountInsideTheDestination)
{
    REQUIRE_MOUNTS();
    const auto other = destination("other");
    const auto inside = destination("other/docs");
    ASSERT_EQ(shell("mount -t tmpfs -o mode=777 tmpfs " + inside), 0);
    EXPECT_EQ(run({"docs"}, {other, m_good}), 1);
    EXPECT_EQ(outputOf("ls -A " + inside), "");
    EXPECT_EQ(shell("umount " + inside), 0);
    EXPECT_EQ(reason("docs/small", other), "The path leads out of the volume");
    expectGoodIsWhole();
}

TEST_P(DestinationFault, PipeSocketAndDeviceInTheWay)
{
    const auto other = destination("other");
    m_tree.folder("other/docs");
    ASSERT_EQ(::mkfifo(m_tree.path("other/docs/big").c_str(), 0666), 0);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    m_tree.path("other/docs/small").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    ::close(socket);
    sourceFile("docs/null", "not for the device");
    const bool hasDevice =
        ::mknod(m_tree.path("other/docs/null").c_str(), S_IFCHR | 0666, static_cast<dev_t>(0x103)) == 0;
    destination("other");
    EXPECT_EQ(run({"docs"}, {other, m_good}), 1);
    EXPECT_EQ(logged("Can`t Duplicate"), 0);
    for (const char *name : {"docs/big", "docs/small"})
        EXPECT_EQ(reason(name, other), "The existing file cannot be opened: Not a regular file") << name;
    if (hasDevice) {
        EXPECT_EQ(reason("docs/null", other), "The existing file cannot be opened: Not a regular file");
    }
    expectGoodIsWhole();
}

TEST_P(DestinationFault, FolderWhereAFileShouldGo)
{
    const auto other = destination("other");
    m_tree.folder("other/docs/small");
    destination("other");
    EXPECT_EQ(run({"docs"}, {other, m_good}), 1);
    EXPECT_EQ(logged("Can`t Duplicate"), 0);
    EXPECT_EQ(reason("docs/small", other), "The existing file cannot be opened: Not a regular file");
    expectIntact("docs/big", other);
    expectGoodIsWhole();
}

TEST_P(DestinationFault, FileWhereAFolderShouldGo)
{
    const auto other = destination("other");
    m_tree.file("other/docs", "a file");
    destination("other");
    EXPECT_EQ(run({"docs"}, {other, m_good}), 1);
    EXPECT_EQ(cannotDuplicate("docs/small", other), 1);
    EXPECT_EQ(reason("docs/small", other), "Not a directory");
    EXPECT_EQ(m_tree.read("other/docs"), "a file");
    expectGoodIsWhole();
}

} // namespace orvana::test
