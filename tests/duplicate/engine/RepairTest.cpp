// Blocks that verifying finds different are written once more, if that is asked for.

#include "duplicate/engine/EngineFixture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

class RepairTest : public test::EngineTest
{
protected:
    /// Flips a byte of a file behind the back of the run.
    void flip(const std::string &path, std::uint64_t offset) const
    {
        const int file = ::open(m_tree.path(path).c_str(), O_RDWR | O_CLOEXEC);
        char byte = 0;
        ASSERT_EQ(::pread(file, &byte, 1, static_cast<off_t>(offset)), 1);
        byte = static_cast<char>(byte ^ 1);
        ASSERT_EQ(::pwrite(file, &byte, 1, static_cast<off_t>(offset)), 1);
        ::close(file);
    }

    /// Runs with verifying, and calls `damage` between copy and comparison.
    void run(const std::vector<std::string> &destinations, const std::function<void()> &damage,
             bool repair = true)
    {
        m_engine.setBVerifyFiles(true);
        m_recorder.onEach([&, done = false](const std::string &line) mutable {
            if (line == "FileCopyMessage Verifying File ..." && !std::exchange(done, true))
                damage();
        });
        setJob({""}, destinations, 1);
        useReport();
        m_engine.setManner({.repair = repair});
        m_engine.StartBackup();
        m_recorder.onEach([](const std::string &) {});
    }

    Json destination(std::size_t index = 0) const { return report()["destinations"][index]; }

    const std::string m_film = std::string(3 * BlockSize, 'f') + "the end";
};

TEST_F(RepairTest, FlippedByteIsRightAtTheEndAndTold)
{
    m_tree.file("source/film", m_film);
    run({"a", "b"}, [&] { flip("a/film", BlockSize + 5); });
    EXPECT_EQ(m_tree.read("a/film"), m_film);
    EXPECT_EQ(destination(0)["repaired"], 1);
    EXPECT_EQ(destination(0)["verified"], 1);
    EXPECT_EQ(destination(0)["mismatched"], 0);
    EXPECT_EQ(destination(0)["blocksWritten"], 5);
    EXPECT_FALSE(destination(0).contains("suspect"));
    EXPECT_EQ(destination(1)["repaired"], 0);
    EXPECT_TRUE(report()["problems"].empty());
}

TEST_F(RepairTest, SmallFileAndLastBlockAreRepaired)
{
    m_tree.file("source/small", "small");
    run({"a"}, [&] { flip("a/small", 4); });
    EXPECT_EQ(m_tree.read("a/small"), "small");
    EXPECT_EQ(destination()["repaired"], 1);
}

TEST_F(RepairTest, SeveralBlocksOfOneCopyAreRepaired)
{
    m_tree.file("source/film", m_film);
    run({"a"}, [&] {
        flip("a/film", 0);
        flip("a/film", 2 * BlockSize);
        flip("a/film", 3 * BlockSize + 1);
    });
    EXPECT_EQ(m_tree.read("a/film"), m_film);
    EXPECT_EQ(destination()["repaired"], 1);
}

TEST_F(RepairTest, WithoutItNothingIsWritten)
{
    m_tree.file("source/film", m_film);
    run({"a"}, [&] { flip("a/film", 1); }, false);
    EXPECT_NE(m_tree.read("a/film"), m_film);
    EXPECT_EQ(destination()["mismatched"], 1);
    EXPECT_EQ(destination()["repaired"], 0);
}

TEST_F(RepairTest, MediumThatKeepsLyingIsSuspect)
{
    m_tree.file("source/film", m_film);
    m_tree.folder("a");
    faultsOf("a").wrongByte = 17;
    run({"a", "b"}, [] {});
    EXPECT_EQ(destination(0)["mismatched"], 1);
    EXPECT_EQ(destination(0)["verified"], 0);
    EXPECT_EQ(destination(0)["repaired"], 0);
    EXPECT_EQ(destination(0)["suspect"], true);
    EXPECT_EQ(destination(0)["blocksWritten"], 4 + 2) << "it is tried twice, and not more often";
    EXPECT_EQ(destination(1)["verified"], 1);
    EXPECT_FALSE(destination(1).contains("suspect"));
}

TEST_F(RepairTest, BlockThatDiffersOnTwoDisksCountsAgainstTheSource)
{
    m_tree.file("source/film", m_film);
    run({"a", "b", "c"}, [&] {
        flip("a/film", 3);
        flip("b/film", 4);
    });
    for (const std::size_t i : {std::size_t(0), std::size_t(1)}) {
        EXPECT_EQ(destination(i)["unverified"], 1);
        EXPECT_EQ(destination(i)["verified"], 0);
        EXPECT_EQ(destination(i)["repaired"], 0);
        EXPECT_EQ(destination(i)["blocksWritten"], 4) << "nothing was written again";
        EXPECT_FALSE(destination(i).contains("suspect"));
    }
    EXPECT_EQ(destination(2)["verified"], 1);
    EXPECT_NE(report()["problems"][0]["reason"].get<std::string>().find("The source is in doubt at byte 0"),
              std::string::npos);
}

TEST_F(RepairTest, SourceThatReadsDifferentlyIsNotWrittenOverACopy)
{
    m_tree.file("source/film", m_film);
    m_tree.folder("a");
    run({"a"}, [&] { faultsOf("source").wrongByte = 9; });
    EXPECT_EQ(m_tree.read("a/film"), m_film) << "the copy is what was read first";
    EXPECT_EQ(destination()["unverified"], 1);
    EXPECT_EQ(destination()["repaired"], 0);
}

TEST_F(RepairTest, DiskThatTakesNoMoreWritesIsNotRepaired)
{
    m_tree.file("source/film", m_film);
    run({"a"}, [&] {
        flip("a/film", 1);
        faultsOf("a").writeErrorAfter = 0;
    });
    EXPECT_EQ(destination()["mismatched"], 1);
    EXPECT_EQ(destination()["suspect"], true);
}

TEST_F(RepairTest, DigestsAreMadeOfWhatIsThereAfterwards)
{
    m_tree.file("source/film", m_film);
    setJob({""}, {"a"}, 1);
    useReport();
    m_engine.setBVerifyFiles(true);
    m_recorder.onEach([&, done = false](const std::string &line) mutable {
        if (line == "FileCopyMessage Verifying File ..." && !std::exchange(done, true))
            flip("a/film", 1);
    });
    EvidenceOrder evidence;
    evidence.format = DigestFormat::Xxh128;
    evidence.folderForSorting = m_tree.root();
    m_engine.start({.job = boundToFolders(m_host, {{source()}, source(), {m_tree.path("a")}, {}, 1}),
                    .report = m_report,
                    .locks = nullptr,
                    .evidence = evidence,
                    .manner = {.repair = true}});
    ASSERT_TRUE(m_engine.waitForEnd(std::chrono::seconds(20)));
    EXPECT_EQ(destination()["verified"], 1);
    EXPECT_EQ(destination()["repaired"], 1);
    EXPECT_EQ(destination()["unverified"], 0);
}

} // namespace orvana
