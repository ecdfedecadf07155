// Bays of the simulated machine whose disks are image files, mounted for real.

#include "faults/FaultFixture.h"

#include "cli/DuplicateCommand.h"
#include "cli/Terminal.h"
#include "discovery/ORVScanDevice.h"
#include "foundation/PlainMainQueue.h"
#include "platform/CommandLauncher.h"
#include "platform/hosts/HostFactory.h"
#include "support/Recorder.h"

namespace orvana::test
{

class ImageBays : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!canMount())
            GTEST_SKIP() << "mounting needs root";
    }

    TemporaryTree m_tree;
    LogLines m_log;
};

TEST_F(ImageBays, DiskIsMountedErasedAndDetachedByTheSimulatorItself)
{
    const auto file = m_tree.file("machine.json", R"({"login":"anna","enclosures":[{"uid":1,"bays":[
        {"bay":"A","serial":"SA","size":33554432,"image":"a.img","volumes":[{"name":"ONE","capacity":1}]}]}]})");
    const auto point = file + ".volumes/Volumes/ONE";
    {
        const auto host = platform::makeSimulatorHost(file, nullptr).value();
        EXPECT_EQ(outputOf("findmnt -no FSTYPE '" + point + "'"), "ext4");
        ASSERT_EQ(shell("echo kept > '" + point + "/file'"), 0);
        ORVScanDevice scanner(host->registry(), host->launcher());
        scanner.scanTBDevice();
        const auto &disk = *scanner.tbArray().at(0)->hddArray().at(0);
        EXPECT_GT(disk.bsdPathArray().at(0)->capacitySize(), 40'000) << "what the file system says";
        EXPECT_EQ(
            host->launcher().run("/usr/sbin/diskutil", {"eraseDisk", "JHFS+", "TWO", *disk.devPath()}).status,
            0);
        EXPECT_FALSE(pathExists(point));
        EXPECT_EQ(outputOf("findmnt -no FSTYPE '" + file + ".volumes/Volumes/TWO'"), "ext4");
        EXPECT_FALSE(pathExists(file + ".volumes/Volumes/TWO/file"));
    }
    ASSERT_TRUE(platform::moveSimulatorLever(file, "detach", "1/A", ""));
    EXPECT_EQ(outputOf("losetup -j '" + m_tree.path("a.img") + "'"), "") << "nothing stays attached";
    EXPECT_TRUE(m_log.all().empty()) << m_log.all().front();
}

TEST_F(ImageBays, ErasedAndVerifiedCopiesAreEqualByteForByte)
{
    const auto file = m_tree.file("machine.json", R"({"login":"anna","enclosures":[{"uid":1,"bays":[
        {"bay":"A","serial":"SA","size":33554432,"image":"a.img","volumes":[{"name":"Master","capacity":1,
            "content":[{"path":"Footage","bytes":6000000,"files":50},{"path":"Read me.txt","bytes":99}]}]},
        {"bay":"B","serial":"SB","size":33554432,"image":"b.img","volumes":[{"name":"OLD","capacity":1}]},
        {"bay":"D","serial":"SD","size":33554432,"image":"d.img","formatted":false}]}]})");
    cli::DuplicateOptions options;
    options.selection = {"Footage", "Read me.txt"};
    options.names = {"B=COPY1"};
    options.logFolder = m_tree.folder("logs");
    options.erase = options.verify = options.yes = true;
    {
        PlainMainQueue queue;
        const auto host = platform::makeSimulatorHost(file, &queue).value();
        EXPECT_EQ(shell("echo old > '" + file + ".volumes/Volumes/OLD/old'"), 0);
        cli::Terminal terminal(stderr, stderr, false);
        EXPECT_EQ(cli::runDuplicate(*host, queue, terminal, options), AllDone);
    }
    for (const char *name : {"COPY1", "Untitled"}) {
        const auto copy = file + ".volumes/Volumes/" + name;
        EXPECT_EQ(outputOf("findmnt -no FSTYPE '" + copy + "'"), "ext4");
        EXPECT_EQ(outputOf("diff -r '" + file + ".volumes/Volumes/Master' '" + copy + "' 2>&1"), "");
    }
    for (const char *bay : {"1/A", "1/B", "1/D"})
        EXPECT_TRUE(platform::moveSimulatorLever(file, "detach", bay, ""));
}

TEST_F(ImageBays, AnotherDeviceIsNeverUsed)
{
    const auto file = m_tree.file("machine.json", R"({"login":"anna","enclosures":[{"uid":1,"bays":[
        {"bay":"A","size":33554432,"image":"link","volumes":[{"name":"ONE","capacity":1}]}]}]})");
    m_tree.link("link", "/dev/null");
    ASSERT_TRUE(platform::makeSimulatorHost(file, nullptr));
    ASSERT_EQ(m_log.all().size(), 1U);
    EXPECT_NE(m_log.all()[0].find("not an image that the simulator made"), std::string::npos);
    EXPECT_FALSE(pathExists(file + ".volumes/Volumes/ONE"));
}

} // namespace orvana::test
