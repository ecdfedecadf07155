// Verification reads the medium, not the cache in memory.

#include "faults/FaultFixture.h"

#include "duplicate/engine/FileCopy.h"
#include "duplicate/report/RunReport.h"
#include "support/Recorder.h"
#include "support/StoppedClock.h"

#include <fcntl.h>
#include <fstream>
#include <unistd.h>

namespace orvana::test
{

class MediumFault : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!canMount())
            GTEST_SKIP() << "mounting needs root";
    }

    /// Changes one byte of `content` at its place in the image.
    static void flipByte(const std::string &image, const std::string &content)
    {
        std::string bytes = contentOf(image);
        const auto at = bytes.find(content.substr(0, 64));
        ASSERT_NE(at, std::string::npos) << "the copy is not in the image";
        std::fstream file(image, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(static_cast<std::streamoff>(at) + 10);
        file.put(static_cast<char>(bytes[at + 10] + 1));
    }

    TemporaryTree m_tree;
    StoppedClock m_clock;
    TestHost m_host{m_tree.path("home")};
    NotificationCenter m_center;
    Recorder m_recorder{m_center};
};

TEST_F(MediumFault, ByteFlippedBetweenCopyAndVerifyIsFound)
{
    for (const std::size_t size : {std::size_t{40'000}, std::size_t{3 * 1'048'576}}) {
        const MountedVolume bad("ext4", 64);
        const MountedVolume good("ext4", 64);
        const auto content = patternOf(size);
        m_tree.file("source/file", content);
        m_recorder.onEach([&](const std::string &line) {
            if (line != "FileCopyMessage Verifying File ...")
                return;
            shell("sync -f " + bad.root());
            flipByte(bad.image(), content);
        });
        const auto report = std::make_shared<RunReport>(m_tree.folder("reports"), "stamp", m_clock);
        FileCopy engine(m_host, m_center);
        engine.SetBackupDiskValue({m_tree.path("source/file")}, m_tree.path("source"),
                                  {bad.root(), good.root()});
        engine.setBVerifyFiles(true);
        engine.setReport(report);
        engine.StartBackup();
        const auto messages = m_recorder.messages();
        EXPECT_EQ(std::count(messages.begin(), messages.end(), "Verifying File ... Failed"),
                  size == 40'000 ? 1 : 2)
            << "one more after each size";
        EXPECT_EQ(report->destination(0).mismatched, 1);
        EXPECT_EQ(report->destination(1).verified, 1);
        EXPECT_FALSE(isAllDone(report->summary()));
        const auto written = Json::parse(contentOf(report->path()));
        EXPECT_EQ(written["destinations"][0]["verifiedFrom"], "disk");
        EXPECT_EQ(written["problems"][0]["kind"], "mismatched");
    }
}

TEST_F(MediumFault, OtherFileSystemsAreCopiedAndVerifiedToo)
{
    m_tree.file("source/docs/file", patternOf(2'000'000));
    int tried = 0;
    const std::pair<const char *, int> types[] = {{"xfs", 320}, {"btrfs", 128}, {"ext4", 32}};
    for (const auto &[type, megabytes] : types) {
        if (shell(std::string("command -v mkfs.") + type + " >/dev/null") != 0)
            continue; // its package is not there
        const MountedVolume volume(type, megabytes);
        FileCopy engine(m_host, m_center);
        const auto report = std::make_shared<RunReport>(m_tree.folder("reports"), "stamp", m_clock);
        engine.SetBackupDiskValue({m_tree.path("source/docs")}, m_tree.path("source"), {volume.root()});
        engine.setBVerifyFiles(true);
        engine.setReport(report);
        engine.StartBackup();
        EXPECT_TRUE(isAllDone(report->summary())) << type;
        EXPECT_EQ(Json::parse(contentOf(report->path()))["destinations"][0]["verifiedFrom"], "disk") << type;
        ++tried;
        EXPECT_EQ(report->destination(0).verified, 1) << type;
        EXPECT_EQ(contentOf(volume.path("docs/file")), patternOf(2'000'000)) << type;
    }
    EXPECT_GE(tried, 1);
}

TEST_F(MediumFault, DataThatLiesInAnInodeIsNotSaidToComeFromTheDisk)
{
    const MountedVolume volume("ext4", 64, "-O inline_data -I 512");
    m_tree.file("source/small", "a few bytes");
    const auto report = std::make_shared<RunReport>(m_tree.folder("reports"), "stamp", m_clock);
    FileCopy engine(m_host, m_center);
    engine.SetBackupDiskValue({m_tree.path("source/small")}, m_tree.path("source"), {volume.root()});
    engine.setBVerifyFiles(true);
    engine.setReport(report);
    engine.StartBackup();
    EXPECT_EQ(report->summary().destinations[0].verified, 1);
    EXPECT_EQ(report->summary().destinations[0].verifiedFrom, VerifiedFrom::Cache);
}

TEST_F(MediumFault, NamesThatAVolumeDoesNotTellApartAreTheSameFile)
{
    if (shell("test -r /dev/fuse && : </dev/fuse && command -v mount.exfat-fuse >/dev/null") != 0)
        GTEST_SKIP() << "needs FUSE, and the package exfat-fuse";
    const MountedVolume volume("exfat", 64);
    m_tree.file("source/Photo.JPG", "first");
    m_tree.file("source/photo.jpg", "second, and longer");
    m_tree.file("source/docs/Photo.JPG", "first");
    m_tree.file("source/docs/photo.jpg", "second, and longer");
    const std::vector<std::string> items{m_tree.path("source/Photo.JPG"), m_tree.path("source/photo.jpg"),
                                         m_tree.path("source/docs")};
    for (int run = 1; run <= 2; ++run) {
        // The volume has no hard links, either, and the report must be written there all the same.
        const auto report =
            std::make_shared<RunReport>(volume.root(), "stamp" + std::to_string(run), m_clock);
        FileCopy engine(m_host, m_center);
        engine.SetBackupDiskValue(items, m_tree.path("source"), {volume.root()});
        engine.setBVerifyFiles(true);
        engine.setReport(report);
        engine.StartBackup();
        EXPECT_TRUE(report->isWritten());
        const auto written = Json::parse(contentOf(report->path()));
        EXPECT_EQ(written["destinations"][0]["copied"], 2) << written.dump(1);
        EXPECT_EQ(written["destinations"][0]["verified"], 2);
        EXPECT_EQ(written["destinations"][0]["failed"], 2);
        for (const auto &problem : written["problems"])
            EXPECT_EQ(problem["kind"], "sameFile") << "run " << run << ": " << problem.dump();
        EXPECT_EQ(contentOf(volume.path("Photo.JPG")), "first");
    }
}

} // namespace orvana::test
