// A line and its ledger, after the end of the program, a crash, and beside other programs.

#include "duplicate/run/LineFixture.h"

#include <set>

namespace orvana
{

TEST_F(ProductionLineTest, WishOfAnotherProgramIsGranted)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    const auto other =
        LineStore::open(m_host->volumeFiles(), statePath(), m_line->store().head().id, LineStore::Use::Look);
    ASSERT_TRUE(other);
    EXPECT_TRUE(other->isRunning(m_host->volumeFiles()));
    ASSERT_TRUE(other->wish(LineWish::Pause));
    seconds(2);
    EXPECT_EQ(m_line->store().state(), LineState::Paused);
    ASSERT_TRUE(other->wish(LineWish::End));
    seconds(2);
    EXPECT_FALSE(m_line->isArmed());
}

TEST_F(ProductionLineTest, ArmingDoesNotSurviveTheProgram)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    openAgain();
    insert(Bay::B, "N1");
    seconds(60);
    EXPECT_TRUE(m_toolCommands.empty());
    ASSERT_TRUE(arm());
    untilState(Bay::B, LineBayState::Asking);
    EXPECT_EQ(text(Bay::B), "it was in the bay already");
}

TEST_F(ProductionLineTest, DiskInWorkWhenTheProgramEndedHasFailedAndItsNumberIsNotGivenAgain)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    crashAt("eraseDisk");
    ASSERT_EQ(entries().size(), 1U);
    ASSERT_TRUE(entries().front().result);
    EXPECT_EQ(entries().front().result->verdict, LineVerdict::Failed);
    EXPECT_EQ(entries().front().result->reason, "the program ended while the disk was in work");
    EXPECT_EQ(m_line->store().nextNumber(), 2);
}

TEST_F(ProductionLineTest, DiskThatWasNotedBeforeACrashCountsAlthoughItWasNotEjected)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    crashAt("eject");
    EXPECT_EQ(textOf(m_line->store().counts()), "1 of 2");
    EXPECT_EQ(m_line->store().nextNumber(), 2);
}

TEST_F(ProductionLineTest, LineWhoseLastDiskWasNotedBeforeACrashEndsWhenItIsArmed)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    crashAt("eject");
    EXPECT_EQ(textOf(m_line->store().counts()), "1 of 1");
    ASSERT_NE(m_line->store().state(), LineState::Ended);
    ASSERT_TRUE(arm());
    seconds(2);
    EXPECT_FALSE(m_line->isArmed());
    EXPECT_EQ(m_line->store().state(), LineState::Ended);
}

TEST_F(ProductionLineTest, SourceThatChangedBetweenTwoDisksIsNotPassedOverInSilence)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::Passed);
    m_tree.file("machine.json.volumes/Volumes/Master/Late.txt", "late");
    insert(Bay::C, "N2");
    untilState(Bay::C, LineBayState::NotProven);
    EXPECT_EQ(text(Bay::C), "it holds 5 files with 6124 bytes, the disks before it 4 files with 6120 bytes");
    EXPECT_EQ(textOf(m_line->store().counts()), "1 of 2, 1 not proven");
}

TEST_F(ProductionLineTest, LineWhoseLedgerCannotBeWrittenIsDisarmedBeforeTheErase)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::CountingDown);
    m_line->end();
    seconds(60);
    EXPECT_TRUE(m_toolCommands.empty());
}

TEST_F(ProductionLineTest, LineOfFortyDisksWithBadOnesAndFiveCrashesHasALedgerThatIsRightToTheDisk)
{
    makeLine(40);
    std::set<std::string> passed;
    int serial = 0;
    int crashes = 0;
    for (int round = 0; m_line->store().state() != LineState::Ended; ++round) {
        ASSERT_LT(round, 80);
        if (!m_line->isArmed()) {
            for (const auto bay : {Bay::B, Bay::C, Bay::D})
                pull(bay);
            ASSERT_TRUE(arm());
        }
        changeMachine([&](Json &machine) {
            machine["failing"] =
                round == 2 || round == 5 || round == 9 ? Json::array({"eraseDisk C"}) : Json::array();
        });
        for (const auto bay : {Bay::B, Bay::C, Bay::D})
            insert(bay, "N" + std::to_string(++serial), round == 4 && bay == Bay::D ? withContent : nullptr);
        if (round == 4) {
            untilState(Bay::D, LineBayState::Asking);
            m_line->agree(Bay::D);
        }
        if (round == 7) { // a disk that is pulled
            untilState(Bay::C, LineBayState::CountingDown);
            pull(Bay::C);
        }
        if (round % 3 == 1 && crashes < 5) {
            crashAt(crashes % 2 == 0 ? "eraseDisk" : "eject");
            ++crashes;
            continue;
        }
        const auto isQuiet = [&] {
            return !m_line->isAtWork() && state(Bay::B) != LineBayState::CountingDown &&
                   state(Bay::B) != LineBayState::Looking && state(Bay::D) != LineBayState::CountingDown &&
                   state(Bay::D) != LineBayState::Looking && state(Bay::C) != LineBayState::CountingDown &&
                   state(Bay::C) != LineBayState::Looking;
        };
        seconds(2);
        until(isQuiet, "all bays are done");
    }
    EXPECT_EQ(crashes, 5);
    EXPECT_GT(m_line->store().counts().failed, 3) << "the bad disks, and those of the crashes";
    std::set<std::int64_t> numbers;
    for (const auto &entry : entries()) {
        EXPECT_TRUE(numbers.insert(entry.disk.number).second);
        ASSERT_TRUE(entry.result);
        if (entry.result->verdict == LineVerdict::Passed) {
            EXPECT_TRUE(passed.insert(entry.disk.serial).second) << entry.disk.serial << " twice";
        }
    }
    EXPECT_EQ(passed.size(), 40U);
    EXPECT_EQ(m_line->store().counts().passed, 40);
}

} // namespace orvana
