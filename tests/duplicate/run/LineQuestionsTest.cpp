// Disks for which somebody has to say yes, and disks that are not taken.

#include "duplicate/run/LineFixture.h"

namespace orvana
{

TEST_F(ProductionLineTest, KeyStopsTheCountdownAndTheDiskAsks)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    EXPECT_FALSE(m_line->stopCountdowns());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::CountingDown);
    EXPECT_TRUE(m_line->stopCountdowns());
    seconds(60);
    EXPECT_EQ(state(Bay::B), LineBayState::Asking);
    EXPECT_TRUE(m_toolCommands.empty());
    m_line->agree(Bay::B);
    untilState(Bay::B, LineBayState::Passed);
}

TEST_F(ProductionLineTest, DiskThatIsPulledInItsCountdownAsksWhenItComesBack)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::CountingDown);
    pull(Bay::B);
    untilState(Bay::B, LineBayState::Waiting);
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::Asking);
    EXPECT_EQ(text(Bay::B), "its countdown was stopped");
}

TEST_F(ProductionLineTest, DiskThatTakesThePlaceOfAnotherInItsCountdownIsLookedAtAnew)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::CountingDown);
    insert(Bay::B, "N2", withContent);
    untilState(Bay::B, LineBayState::Asking);
    seconds(60);
    EXPECT_TRUE(m_toolCommands.empty());
}

TEST_F(ProductionLineTest, DiskThatHoldsAnythingAsks)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::C, "N1", withContent);
    untilState(Bay::C, LineBayState::Asking);
    EXPECT_EQ(text(Bay::C), "it holds 1 file");
    seconds(60);
    EXPECT_TRUE(m_toolCommands.empty());
}

TEST_F(ProductionLineTest, DiskThatHoldsSomethingDoesNotAskWhereEverythingMayBeErased)
{
    makeLine(1);
    ASSERT_TRUE(arm({Bay::C}, ProductionLine::Consent::EraseWhateverComes));
    insert(Bay::C, "N1", withContent);
    untilState(Bay::C, LineBayState::Passed);
}

TEST_F(ProductionLineTest, DiskThatWasThereWhenTheBayWasArmedAlwaysAsks)
{
    m_machine["enclosures"][0]["bays"][3]["attached"] = true;
    makeLine(1);
    ASSERT_TRUE(arm({Bay::B, Bay::C, Bay::D}, ProductionLine::Consent::EraseWhateverComes));
    untilState(Bay::D, LineBayState::Asking);
    EXPECT_EQ(text(Bay::D), "it was in the bay already");
    seconds(60);
    EXPECT_TRUE(m_toolCommands.empty());
    m_line->agree(Bay::D);
    untilState(Bay::D, LineBayState::Passed);
}

TEST_F(ProductionLineTest, DiskInABayThatIsNotArmedIsNeverTouched)
{
    makeLine(1);
    ASSERT_TRUE(arm({Bay::B}, ProductionLine::Consent::EraseWhateverComes));
    insert(Bay::C, "N1");
    insert(Bay::D, "N2", withContent);
    seconds(60);
    EXPECT_EQ(state(Bay::C), LineBayState::Disarmed);
    EXPECT_TRUE(m_toolCommands.empty());
    insert(Bay::B, "N3");
    untilState(Bay::B, LineBayState::Passed);
    EXPECT_EQ(m_toolCommands.size(), 2U) << "erase and eject of the disk in bay B";
    EXPECT_TRUE(test::pathExists(m_tree.path("machine.json.volumes/Volumes/OLD/old")));
}

TEST_F(ProductionLineTest, SameSerialNumberTwiceAsks)
{
    makeLine(3);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::Passed);
    insert(Bay::C, "N1");
    untilState(Bay::C, LineBayState::Asking);
    EXPECT_EQ(text(Bay::C), "it was number 1 of this line, passed");
}

TEST_F(ProductionLineTest, DiskWithoutASerialNumberIsNotTaken)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "", [](Json &entry) { entry.erase("serial"); });
    untilState(Bay::B, LineBayState::NotTaken);
    EXPECT_EQ(text(Bay::B), "it has no serial number");
}

TEST_F(ProductionLineTest, DiskThatIsTooSmallIsNotTaken)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1", [](Json &entry) { entry["size"] = 6000; });
    untilState(Bay::B, LineBayState::NotTaken);
    EXPECT_EQ(text(Bay::B), "the selection does not fit");
}

TEST_F(ProductionLineTest, DiskThatCallsItselfFailingAsks)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1", [](Json &entry) { entry["health"] = {{"failing", true}, {"badSectors", 2000}}; });
    untilState(Bay::B, LineBayState::Asking);
    EXPECT_EQ(text(Bay::B), "it calls itself failing: 2000 bad sectors");
    m_line->agree(Bay::B);
    untilState(Bay::B, LineBayState::NotProven);
    EXPECT_EQ(entries().front().result->health, "calls itself failing: 2000 bad sectors");
}

} // namespace orvana
