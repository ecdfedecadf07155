// Runs that go on where an earlier run was broken off.

#include "duplicate/engine/ResumeFixture.h"

namespace orvana
{

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

} // namespace orvana
