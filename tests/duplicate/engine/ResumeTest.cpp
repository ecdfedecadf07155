// Runs that go on where an earlier run was broken off.

#include "duplicate/engine/EngineFixture.h"
#include "duplicate/journal/Journals.h"
#include "platform/posix/PosixVolumeFiles.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <future>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana
{

class ResumeTest : public test::EngineTest
{
protected:
    JournalPlace placeOf(const std::string &name) const { return {m_tree.path(name), {}, {}}; }

    JournalOrder order(const std::vector<std::string> &destinations, bool resume) const
    {
        JournalOrder order{m_tree.path("state"), {source(), {}, {}}, {}, {}, resume};
        for (const auto &name : destinations)
            order.destinations.push_back(placeOf(name));
        return order;
    }

    void run(bool resume, const std::vector<std::string> &destinations = {"a"})
    {
        setJob({""}, destinations, 1);
        useReport();
        m_engine.setJournal(order(destinations, resume));
        m_engine.StartBackup();
    }

    /// Runs until `broken` cannot be copied any more; its journal stays.
    void runThatBreaks(const std::vector<std::string> &destinations = {"a"})
    {
        m_tree.file("source/zz-broken", "x");
        for (const auto &name : destinations)
            m_tree.folder(name + "/zz-broken");
        run(false, destinations);
        std::filesystem::remove(source("zz-broken"));
        for (const auto &name : destinations)
            std::filesystem::remove(m_tree.path(name + "/zz-broken"));
        makeOld();
    }

    /// Adds records to the journals that are so large that those before them are not among the last.
    void makeOld() const
    {
        for (const auto &head : journals().heads()) {
            auto copies = journals().openCopies(head);
            ASSERT_TRUE(copies);
            for (const auto &destination : head.destinations) {
                JournalRecord record;
                record.destination = destination.number;
                record.group = 1'000'000;
                record.bytes = 1ULL << 40U;
                record.path = "later";
                ASSERT_TRUE(copies->append(lineOf(record)));
            }
        }
    }

    Journals journals() const
    {
        static platform::posix::PosixVolumeFiles files;
        return std::move(*Journals::open(files, m_tree.path("state")));
    }

    Json destination(std::size_t index = 0) const { return report()["destinations"][index]; }

    /// Changes the content of a file and gives it its old times back.
    void changeUnseen(const std::string &path) const
    {
        struct stat before{};
        ASSERT_EQ(::stat(path.c_str(), &before), 0);
        const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
        ASSERT_EQ(::pwrite(file, "X", 1, 0), 1);
        ::close(file);
        const struct timespec times[2] = {before.st_atim, before.st_mtim};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }
};

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

TEST_F(ResumeTest, CopyInTheJournalIsNeitherReadNorWritten)
{
    m_tree.file("source/film", "film");
    m_tree.file("source/other", "other");
    runThatBreaks();
    // Reading would be noticed.
    faultsOf("source").readErrorAfter = 0;
    faultsOf("a").readErrorAfter = 0;
    faultsOf("a").writeErrorAfter = 0;
    run(true);
    EXPECT_EQ(destination()["copied"], 2);
    EXPECT_EQ(destination()["alreadyThere"], 2);
    EXPECT_EQ(destination()["failed"], 0);
    EXPECT_EQ(destination()["bytes"], 0);
    EXPECT_TRUE(journals().heads().empty()) << "all is well now";
}

TEST_F(ResumeTest, WhatIsMissingIsCopied)
{
    m_tree.file("source/film", "film");
    runThatBreaks();
    m_tree.file("source/later", "a file that came later");
    run(true);
    EXPECT_EQ(m_tree.read("a/later"), "a file that came later");
    EXPECT_EQ(destination()["copied"], 2);
    EXPECT_EQ(destination()["alreadyThere"], 1);
}

TEST_F(ResumeTest, SourceThatChangedIsCopiedAgain)
{
    m_tree.file("source/film", "film");
    m_tree.file("source/sly", "sly");
    runThatBreaks();
    m_tree.file("source/film", "another film");
    changeUnseen(source("sly"));
    run(true);
    EXPECT_EQ(m_tree.read("a/film"), "another film");
    EXPECT_EQ(m_tree.read("a/sly"), "Xly") << "its time is as before";
    EXPECT_EQ(destination()["alreadyThere"], 0);
}

TEST_F(ResumeTest, CopyThatChangedIsNotTakenForDone)
{
    m_tree.file("source/film", "film");
    m_tree.file("source/sly", "sly");
    m_tree.file("source/gone", "gone");
    runThatBreaks();
    m_tree.file("a/film", "flim");
    changeUnseen(m_tree.path("a/sly"));
    std::filesystem::remove(m_tree.path("a/gone"));
    run(true);
    EXPECT_EQ(m_tree.read("a/film"), "film");
    EXPECT_EQ(m_tree.read("a/sly"), "sly");
    EXPECT_EQ(m_tree.read("a/gone"), "gone");
    EXPECT_EQ(destination()["alreadyThere"], 0);
    EXPECT_EQ(destination()["copied"], 3);
}

TEST_F(ResumeTest, FileThatAnotherPutInItsPlaceIsNotTakenForDone)
{
    m_tree.file("source/film", "film");
    runThatBreaks();
    m_tree.file("a/other", "flim");
    std::filesystem::rename(m_tree.path("a/other"), m_tree.path("a/film"));
    run(true);
    EXPECT_EQ(m_tree.read("a/film"), "film");
}

TEST_F(ResumeTest, LastGroupIsReadBackFirst)
{
    m_tree.file("source/film", "film");
    m_tree.file("source/zz-broken", "x");
    m_tree.folder("a/zz-broken");
    run(false);
    std::filesystem::remove(m_tree.path("a/zz-broken"));
    std::filesystem::remove(source("zz-broken"));
    run(true);
    EXPECT_EQ(destination()["alreadyThere"], 1);
    EXPECT_EQ(destination()["blocksWritten"], 0) << "it was compared, and was right";
}

TEST_F(ResumeTest, LostBlockOfTheLastGroupIsWrittenAgain)
{
    const std::string film(3 * BlockSize, 'f');
    m_tree.file("source/film", film);
    m_tree.file("source/zz-broken", "x");
    m_tree.folder("a/zz-broken");
    run(false);
    std::filesystem::remove(m_tree.path("a/zz-broken"));
    changeUnseen(m_tree.path("a/film"));
    run(true);
    EXPECT_EQ(m_tree.read("a/film"), film);
    EXPECT_EQ(destination()["blocksWritten"], 2) << "the lost one, and the file that was missing";
}

TEST_F(ResumeTest, DoubtOutlastsARunThatDoesNotComeToIt)
{
    m_tree.file("source/film", "film");
    m_tree.file("source/zz-broken", "x");
    m_tree.folder("a/zz-broken");
    run(false);
    std::filesystem::remove(m_tree.path("a/zz-broken"));
    {
        // A second run goes on and dies at once, after it has recorded something else.
        auto copies = journals().openCopies(journals().heads()[0]);
        JournalRecord record;
        record.group = 77;
        record.bytes = 1ULL << 40U;
        record.path = "elsewhere";
        ASSERT_TRUE(copies->append(resumedLine() + lineOf(record)));
    }
    changeUnseen(m_tree.path("a/film"));
    run(true);
    EXPECT_EQ(m_tree.read("a/film"), "film");
}

TEST_F(ResumeTest, OtherDestinationStartsFromTheBeginning)
{
    m_tree.file("source/film", "film");
    runThatBreaks();
    m_tree.file("b/film", "flim");
    run(true, {"a", "b"});
    EXPECT_EQ(destination(0)["alreadyThere"], 1);
    EXPECT_EQ(destination(1)["alreadyThere"], 0);
    EXPECT_EQ(destination(1)["blocksWritten"], 1);
    EXPECT_EQ(m_tree.read("b/film"), "film");
}

TEST_F(ResumeTest, DiskThatWasSwappedStartsFromTheBeginning)
{
    m_tree.file("source/film", "film");
    runThatBreaks();
    setJob({""}, {"a"}, 1);
    useReport();
    auto swapped = order({"a"}, true);
    swapped.destinations[0].volume = "OTHER";
    swapped.destinations[0].disk = "S2";
    m_engine.setJournal(swapped);
    m_engine.StartBackup();
    EXPECT_EQ(destination()["alreadyThere"], 0);
    EXPECT_EQ(destination()["blocksWritten"], 1);
}

TEST_F(ResumeTest, RunWithoutItVoidsWhatWasKnown)
{
    m_tree.file("source/film", "film");
    runThatBreaks({"a", "b"});
    m_tree.file("source/zz-broken", "x");
    m_tree.folder("a/zz-broken");
    run(false, {"a"});
    const auto heads = journals().heads();
    ASSERT_EQ(heads.size(), 2U);
    EXPECT_EQ(heads[0].find(placeOf("a")), nullptr) << "it was written to since";
    EXPECT_NE(heads[0].find(placeOf("b")), nullptr);
    EXPECT_NE(heads[1].find(placeOf("a")), nullptr);
}

TEST_F(ResumeTest, VerifiedCopyIsNotVerifiedAgainAndAnotherIs)
{
    m_tree.file("source/film", "film");
    runThatBreaks();
    m_engine.setBVerifyFiles(true);
    run(true);
    EXPECT_EQ(destination()["verified"], 1) << "it was only copied before";
    EXPECT_EQ(destination()["alreadyThere"], 1);
    EXPECT_EQ(destination()["bytes"], 0);
}

TEST_F(ResumeTest, CopyThatWasVerifiedFromMemoryIsVerifiedAgain)
{
    m_engine.setBVerifyFiles(true);
    m_tree.file("source/film", "film");
    runThatBreaks();
    run(true);
    EXPECT_EQ(destination()["verified"], 1);
    EXPECT_EQ(destination()["mismatched"], 0);
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

} // namespace orvana
