// Runs that treat files which are on a destination already in another way than overwriting them whole.

#include "duplicate/engine/EngineFixture.h"

#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

class UpdateTest : public test::EngineTest
{
protected:
    void run(const CopyManner &manner, const std::vector<std::string> &destinations = {"a"})
    {
        setJob({""}, destinations, 1);
        useReport();
        m_engine.setManner(manner);
        m_engine.StartBackup();
    }
    void update(const std::vector<std::string> &destinations = {"a"}) { run({.update = true}, destinations); }

    /// Content of `blocks` blocks and a rest.
    static std::string content(std::size_t blocks, std::size_t rest = 1234)
    {
        std::string bytes(blocks * BlockSize + rest, '\0');
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<char>(i * 31 + i / BlockSize);
        return bytes;
    }

    Json destination(std::size_t index = 0) const { return report()["destinations"][index]; }
};

TEST_F(UpdateTest, EqualCopyIsNotWrittenTo)
{
    m_tree.file("source/film", content(3));
    m_tree.file("source/small", "small");
    m_tree.file("a/film", content(3));
    m_tree.file("a/small", "small");
    struct stat before{};
    ASSERT_EQ(::stat(copy("a", "film").c_str(), &before), 0);
    update();
    struct stat after{};
    ASSERT_EQ(::stat(copy("a", "film").c_str(), &after), 0);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    EXPECT_EQ(destination()["copied"], 2);
    EXPECT_EQ(destination()["alreadyThere"], 2);
    EXPECT_EQ(destination()["bytes"], 0);
    EXPECT_EQ(destination()["blocksWritten"], 0);
}

TEST_F(UpdateTest, OnlyBlocksThatDifferAreWritten)
{
    const auto film = content(5);
    m_tree.file("source/film", film);
    auto old = film;
    old[2 * BlockSize + 7] ^= 1;
    m_tree.file("a/film", old);
    update();
    EXPECT_EQ(m_tree.read("a/film"), film);
    EXPECT_EQ(destination()["blocksWritten"], 1);
    EXPECT_EQ(destination()["bytes"], BlockSize);
    EXPECT_EQ(destination()["alreadyThere"], 0);
    EXPECT_EQ(destination()["copied"], 1);
}

TEST_F(UpdateTest, EachDestinationGetsWhatItLacks)
{
    const auto film = content(4);
    m_tree.file("source/film", film);
    m_tree.file("a/film", film);
    m_tree.file("b/film", film.substr(0, BlockSize + 10));
    m_tree.folder("c");
    update({"a", "b", "c"});
    for (const auto *name : {"a", "b", "c"})
        EXPECT_EQ(m_tree.read(std::string(name) + "/film"), film);
    EXPECT_EQ(destination(0)["blocksWritten"], 0);
    EXPECT_EQ(destination(1)["blocksWritten"], 4) << "the block that was cut short, and what is missing";
    EXPECT_EQ(destination(2)["blocksWritten"], 5);
}

TEST_F(UpdateTest, TailIsCut)
{
    for (const std::size_t blocks : {std::size_t(0), std::size_t(2)}) {
        const auto film = content(blocks);
        m_tree.file("source/film", film);
        m_tree.file("a/film", film + "the end of an older, longer film");
        update();
        EXPECT_EQ(m_tree.read("a/film"), film);
        EXPECT_EQ(destination()["copied"], 1);
        EXPECT_EQ(destination()["alreadyThere"], 0) << "something was done to it";
        EXPECT_TRUE(report()["problems"].empty());
    }
}

TEST_F(UpdateTest, ExactCutsTheTailAndWritesEveryBlock)
{
    const auto film = content(2);
    m_tree.file("source/film", film);
    m_tree.file("source/empty", "");
    m_tree.file("a/film", film + std::string(3 * BlockSize, 'x'));
    m_tree.file("a/empty", "not empty");
    run({.exact = true});
    EXPECT_EQ(m_tree.read("a/film"), film);
    EXPECT_EQ(m_tree.read("a/empty"), "");
    EXPECT_EQ(destination()["blocksWritten"], 3);
    EXPECT_EQ(destination()["copied"], 2);
}

TEST_F(UpdateTest, WithoutItTheTailStaysAndIsTold)
{
    m_tree.file("source/film", "short");
    m_tree.file("a/film", "a longer one");
    run({});
    EXPECT_EQ(m_tree.read("a/film"), "shortger one");
    EXPECT_EQ(report()["problems"][0]["kind"], "keptTail");
}

TEST_F(UpdateTest, CopyOfASourceThatBreaksOffIsNotCut)
{
    m_tree.file("source/film", content(2));
    m_tree.file("a/film", content(4));
    faultsOf("source").readErrorAfter = BlockSize;
    run({.exact = true});
    EXPECT_EQ(m_tree.read("a/film").size(), content(4).size());
    EXPECT_EQ(destination()["failed"], 1);
    EXPECT_EQ(destination()["copied"], 0);
}

TEST_F(UpdateTest, FailureToCutIsAFailureOfTheFile)
{
    m_tree.file("source/film", "short");
    m_tree.file("a/film", "short and more");
    faultsOf("a").writeErrorAfter = 0;
    update();
    EXPECT_EQ(destination()["failed"], 1);
    EXPECT_EQ(destination()["copied"], 0);
    EXPECT_EQ(m_recorder.messages().back(), "Can`t Duplicate " + source("film") + " to " + m_tree.path("a"));
}

TEST_F(UpdateTest, BlockThatCannotBeReadIsWrittenAgain)
{
    m_tree.file("source/film", content(2));
    m_tree.file("a/film", content(2));
    faultsOf("a").readErrorAfter = BlockSize;
    update();
    EXPECT_EQ(destination()["copied"], 1);
    EXPECT_GE(destination()["blocksWritten"], 1);
}

TEST_F(UpdateTest, FileThatNobodyMayWriteToIsRightWhenItIsEqual)
{
    if (::geteuid() == 0) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    struct Back
    {
        ~Back() { (void)::seteuid(0); }
    } const back;
    test::TemporaryTree tree;
    tree.file("source/film", "film");
    tree.file("source/other", "other");
    tree.file("a/film", "film");
    tree.file("a/other", "OTHER");
    ASSERT_EQ(::chmod(tree.path("a/film").c_str(), 0444), 0);
    ASSERT_EQ(::chmod(tree.path("a/other").c_str(), 0444), 0);
    m_report = std::make_shared<RunReport>(tree.folder("reports"), "stamp", m_clock);
    m_engine.SetBackupDiskValue({tree.path("source")}, tree.path("source"), {tree.path("a")});
    m_engine.setReport(m_report);
    m_engine.setManner({.update = true});
    m_engine.StartBackup();
    EXPECT_EQ(destination()["alreadyThere"], 1);
    EXPECT_EQ(destination()["failed"], 1);
    EXPECT_EQ(tree.read("a/other"), "OTHER");
}

TEST_F(UpdateTest, UpdatedCopyIsVerifiedLikeAnyOther)
{
    m_tree.file("source/film", content(2));
    m_tree.file("a/film", content(1));
    m_engine.setBVerifyFiles(true);
    update();
    EXPECT_EQ(destination()["verified"], 1);
    EXPECT_EQ(destination()["mismatched"], 0);
}

TEST_F(UpdateTest, MessagesAreThoseOfAnyRun)
{
    m_tree.file("source/film", content(2));
    m_tree.file("a/film", content(2));
    run({});
    const auto plain = m_recorder.all();
    update();
    auto twice = plain;
    twice.insert(twice.end(), plain.begin(), plain.end());
    EXPECT_EQ(m_recorder.all(), twice);
}

} // namespace orvana
