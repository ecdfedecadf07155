// The journal of a run: when it stays, and what is in it.

#include "duplicate/engine/ResumeFixture.h"

#include <fstream>
#include <future>

namespace orvana
{

TEST_F(ResumeTest, JournalGoesWhenTheRunEndsWell)
{
    m_tree.file("source/film", "film");
    run(false);
    EXPECT_EQ(destination()["copied"], 1);
    EXPECT_TRUE(journals().heads().empty());
    EXPECT_TRUE(std::filesystem::is_empty(m_tree.path("state")));
}

TEST_F(ResumeTest, JournalStaysWhenSomethingIsLeftUndone)
{
    m_tree.file("source/film", "film");
    runThatBreaks();
    const auto heads = journals().heads();
    ASSERT_EQ(heads.size(), 1U);
    EXPECT_EQ(heads[0].source.root, source());
    ASSERT_EQ(heads[0].destinations.size(), 1U);
    EXPECT_EQ(heads[0].destinations[0].place, placeOf("a"));
}

TEST_F(ResumeTest, TornJournalIsReadAsFarAsItIsWhole)
{
    m_tree.file("source/film", "film");
    m_tree.file("source/other", "other");
    runThatBreaks();
    for (const auto &entry : std::filesystem::directory_iterator(m_tree.path("state"))) {
        std::ofstream(entry.path(), std::ios::app) << "0123456789abcdef copy 0 1 2 c 3";
    }
    run(true);
    EXPECT_EQ(destination()["alreadyThere"], 2);
}

TEST_F(ResumeTest, JournalOfAnotherSourceIsNotUsed)
{
    m_tree.file("source/film", "film");
    runThatBreaks();
    auto other = order({"a"}, true);
    other.source.root = m_tree.folder("elsewhere");
    setJob({""}, {"a"}, 1);
    useReport();
    m_engine.setJournal(other);
    m_engine.StartBackup();
    EXPECT_EQ(destination()["alreadyThere"], 0);
}

TEST_F(ResumeTest, RunGoesOnWithoutAFolderForItsJournal)
{
    m_tree.file("source/film", "film");
    m_tree.file("state", "a file is in the way");
    run(false);
    EXPECT_EQ(m_tree.read("a/film"), "film");
    EXPECT_EQ(report()["outcome"], "finished");
    ASSERT_FALSE(m_systemLog.all().empty());
    EXPECT_NE(m_systemLog.all().front().find("There is no journal of this run"), std::string::npos);
}

TEST_F(ResumeTest, JournalOfACancelledRunStays)
{
    for (int i = 0; i < 50; ++i)
        m_tree.file("source/film" + std::to_string(i), "film");
    setJob({""}, {"a"}, 50);
    useReport();
    m_engine.setJournal(order({"a"}, false));
    std::promise<void> isReached;
    std::promise<void> isCancelled;
    m_recorder.onEach([&](const std::string &line) {
        if (!line.ends_with("film30"))
            return;
        isReached.set_value();
        isCancelled.get_future().wait();
    });
    m_engine.startCopyThread();
    isReached.get_future().wait();
    m_engine.stopCopyThread();
    isCancelled.set_value();
    ASSERT_TRUE(m_engine.waitForEnd(std::chrono::seconds(10)));
    m_recorder.onEach([](const std::string &) {});
    EXPECT_EQ(journals().heads().size(), 1U);
    run(true);
    EXPECT_EQ(destination()["copied"], 50);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(m_tree.read("a/film" + std::to_string(i)), "film");
    EXPECT_TRUE(journals().heads().empty());
}

TEST_F(ResumeTest, CopyOfADiskThatLostDataIsNotInTheJournal)
{
    m_tree.file("source/film", "film");
    m_tree.folder("a");
    faultsOf("a").syncError = true;
    run(false);
    makeOld();
    faultsOf("a").syncError = false;
    changeUnseen(m_tree.path("a/film"));
    run(true);
    EXPECT_EQ(m_tree.read("a/film"), "film");
}

TEST_F(ResumeTest, CopyOfADiskWhoseWriteOutFailedIsNotInTheJournal)
{
    m_tree.file("source/film", "film");
    m_tree.folder("a");
    faultsOf("a").writeOutError = true;
    m_engine.setBVerifyFiles(true);
    run(false);
    EXPECT_EQ(destination()["copied"], 0);
    m_engine.setBVerifyFiles(false);
    faultsOf("a").writeOutError = false;
    makeOld();
    changeUnseen(m_tree.path("a/film"));
    run(true);
    EXPECT_EQ(m_tree.read("a/film"), "film");
}

} // namespace orvana
