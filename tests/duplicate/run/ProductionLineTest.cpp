#include "duplicate/run/LineFixture.h"

#include <set>

namespace orvana
{

TEST_F(ProductionLineTest, BlankDiskIsCountedDownErasedCopiedVerifiedAndEjected)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    seconds(3);
    EXPECT_EQ(state(Bay::B), LineBayState::Waiting);
    EXPECT_EQ(state(Bay::A), LineBayState::Disarmed);
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::CountingDown);
    EXPECT_TRUE(m_toolCommands.empty());
    untilState(Bay::B, LineBayState::Passed);
    EXPECT_EQ(text(Bay::B), "");
    ASSERT_EQ(entries().size(), 1U);
    const auto entry = entries().front();
    EXPECT_EQ(entry.disk.name, "REEL 001");
    EXPECT_EQ(entry.disk.serial, "N1");
    ASSERT_TRUE(entry.result);
    EXPECT_EQ(entry.result->verdict, LineVerdict::Passed);
    EXPECT_EQ(entry.result->files, 4);
    EXPECT_EQ(entry.result->bytes, 6120U);
    const auto page = m_tree.read("certificates/" + entry.result->certificate);
    EXPECT_NE(page.find("<td>Number</td><td>1 of 2</td>"), std::string::npos);
    EXPECT_NE(page.find("<td>Serial number</td><td>N1</td>"), std::string::npos);
    ASSERT_EQ(m_toolCommands.size(), 2U);
    EXPECT_TRUE(m_toolCommands[0].starts_with("eraseDisk"));
    EXPECT_TRUE(m_toolCommands[1].starts_with("eject"));
    EXPECT_TRUE(m_line->isArmed());
}

TEST_F(ProductionLineTest, CountdownTakesTenSecondsAtLeast)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::CountingDown);
    EXPECT_EQ(m_line->bay(Bay::B).countdown, 10);
    seconds(9);
    EXPECT_EQ(state(Bay::B), LineBayState::CountingDown);
    EXPECT_TRUE(m_toolCommands.empty());
}

TEST_F(ProductionLineTest, WarningsOfADisksHealthAreInItsRowAndInTheLedger)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1", [](Json &entry) {
        entry["health"] = {{"failing", false}, {"celsius", 71}, {"link", "1.5 Gbps"}, {"hours", 1}};
    });
    untilState(Bay::B, LineBayState::CountingDown);
    EXPECT_EQ(m_line->bay(Bay::B).health, "warning: hot, 71 °C, the link is down to 1.5 Gbps, 1 hour");
    until([&] { return !m_line->isArmed(); }, "disarmed");
    EXPECT_EQ(entries().front().result->verdict, LineVerdict::Passed);
    EXPECT_EQ(entries().front().result->health, "warning: hot, 71 °C, the link is down to 1.5 Gbps, 1 hour");
}

TEST_F(ProductionLineTest, FakeDiskFailsAndIsNamedSo)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1", [](Json &entry) { entry["realSize"] = 500'000; });
    untilState(Bay::B, LineBayState::Failed);
    EXPECT_TRUE(text(Bay::B).ends_with("was emptied; it is smaller than it says")) << text(Bay::B);
    EXPECT_EQ(textOf(m_line->store().counts()), "0 of 2, 1 failed");
}

TEST_F(ProductionLineTest, MemberOfARaidSetDisarmsTheLine)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1", [](Json &entry) {
        withContent(entry);
        entry["raid"] = true;
    });
    until([&] { return !m_line->isArmed(); }, "disarmed");
    EXPECT_TRUE(m_toolCommands.empty());
}

TEST_F(ProductionLineTest, EnclosureThatGoesDisarmsTheLine)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    changeMachine([](Json &machine) { machine["enclosures"][0]["attached"] = false; });
    until([&] { return !m_line->isArmed(); }, "disarmed");
    ASSERT_EQ(m_disarmed.size(), 1U);
    changeMachine([](Json &machine) { machine["enclosures"][0]["attached"] = true; });
    insert(Bay::B, "N1");
    seconds(60);
    EXPECT_TRUE(m_toolCommands.empty());
}

TEST_F(ProductionLineTest, SourceThatGoesDisarmsTheLine)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    pull(Bay::A);
    until([&] { return !m_line->isArmed(); }, "disarmed");
    EXPECT_NE(m_disarmed.front().find("the source is not there any more"), std::string::npos);
}

TEST_F(ProductionLineTest, BaysThatAreReadyTogetherShareARun)
{
    makeLine(3);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    seconds(4);
    insert(Bay::C, "N2");
    untilState(Bay::B, LineBayState::Passed);
    untilState(Bay::C, LineBayState::Passed);
    std::set<std::string> reports;
    for (const auto &name : test::treeOf(m_tree.path("logs"))) {
        if (name.find("-Report") != std::string::npos)
            reports.insert(name);
    }
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(ProductionLineTest, LineEndsWhenAsManyDisksPassedAsAreWanted)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    until([&] { return !m_line->isArmed(); }, "disarmed");
    EXPECT_EQ(m_line->store().state(), LineState::Ended);
    EXPECT_EQ(textOf(m_line->store().counts()), "1 of 1");
    EXPECT_EQ(state(Bay::B), LineBayState::Passed) << "it stays to be read";
    insert(Bay::C, "N2");
    seconds(60);
    EXPECT_EQ(entries().size(), 1U);
    EXPECT_FALSE(arm());
}

TEST_F(ProductionLineTest, NoMoreDisksAreBegunThanAreWanted)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    insert(Bay::C, "N2");
    insert(Bay::D, "N3");
    until([&] { return !m_line->isArmed(); }, "disarmed");
    EXPECT_EQ(entries().size(), 1U);
}

TEST_F(ProductionLineTest, DiskThatCannotBeErasedFailsAndIsNotCounted)
{
    m_machine["failing"] = Json::array({"eraseDisk B"});
    makeLine(2);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    insert(Bay::C, "N2");
    untilState(Bay::B, LineBayState::Failed);
    untilState(Bay::C, LineBayState::Passed);
    EXPECT_EQ(textOf(m_line->store().counts()), "1 of 2, 1 failed");
    EXPECT_EQ(text(Bay::B), "Error: the disk could not be erased");
    for (const auto &command : m_toolCommands)
        EXPECT_FALSE(command.starts_with("eject") && command.ends_with("disk3"));
}

TEST_F(ProductionLineTest, PausedLineTakesNoDisk)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::CountingDown);
    m_line->pause();
    EXPECT_EQ(state(Bay::B), LineBayState::Asking);
    m_line->agree(Bay::B);
    insert(Bay::C, "N2");
    seconds(30);
    EXPECT_EQ(state(Bay::C), LineBayState::Waiting);
    EXPECT_TRUE(m_toolCommands.empty());
    m_line->resume();
    untilState(Bay::C, LineBayState::Passed);
}

TEST_F(ProductionLineTest, DiskThatIsLookedAtWhenTheLineIsPausedIsNotTaken)
{
    makeLine(2);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::Looking);
    m_line->pause();
    seconds(60);
    EXPECT_EQ(state(Bay::B), LineBayState::Waiting);
    EXPECT_TRUE(m_toolCommands.empty());
}

TEST_F(ProductionLineTest, YesToABlankDiskIsNoneToWhatCameOntoItMeanwhile)
{
    m_machine["enclosures"][0]["bays"][3]["attached"] = true;
    makeLine(1);
    ASSERT_TRUE(arm());
    untilState(Bay::D, LineBayState::Asking);
    m_line->agree(Bay::D);
    changeMachine([](Json &machine) { withContent(machine["enclosures"][0]["bays"][3]); });
    untilState(Bay::D, LineBayState::Asking);
    EXPECT_EQ(text(Bay::D), "it was in the bay already; it holds 1 file");
    EXPECT_TRUE(m_toolCommands.empty());
}

TEST_F(ProductionLineTest, QuestionStandsWhenACountdownIsStopped)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1", withContent);
    untilState(Bay::B, LineBayState::Asking);
    m_line->agree(Bay::B);
    ASSERT_TRUE(m_line->stopCountdowns());
    EXPECT_EQ(text(Bay::B), "it holds 1 file; its countdown was stopped");
}

TEST_F(ProductionLineTest, DiskThatWasThereAndLostItsContactStillAsks)
{
    m_machine["enclosures"][0]["bays"][3]["attached"] = true;
    makeLine(1);
    ASSERT_TRUE(arm({Bay::D}, ProductionLine::Consent::EraseWhateverComes));
    pull(Bay::D);
    changeMachine([](Json &machine) { machine["enclosures"][0]["bays"][3]["attached"] = true; });
    untilState(Bay::D, LineBayState::Asking);
    EXPECT_EQ(text(Bay::D), "it was in the bay already");
}

TEST_F(ProductionLineTest, DiskThatIsMadeTwiceCountsOnce)
{
    makeLine(3);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::Passed);
    insert(Bay::B, "N1");
    untilState(Bay::B, LineBayState::Asking);
    m_line->agree(Bay::B);
    untilState(Bay::B, LineBayState::Passed);
    EXPECT_EQ(entries().size(), 2U);
    EXPECT_EQ(textOf(m_line->store().counts()), "1 of 3");
}

TEST_F(ProductionLineTest, StopKeepsTheDiskUtilityFromItsNextDisk)
{
    makeLine(3);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1");
    insert(Bay::C, "N2");
    m_onTool = [this] { m_line->requestStop(); }; // as a signal does in mid-erase
    until([this] { return !m_ended.empty(); }, "the run ends");
    EXPECT_EQ(m_toolCommands.size(), 1U);
    EXPECT_EQ(m_line->store().counts().failed, 2);
}

TEST_F(ProductionLineTest, BayIsArmedForOneLineOnly)
{
    makeLine(1);
    ASSERT_TRUE(arm({Bay::B, Bay::C}));
    auto first = std::move(m_line);
    makeLine(1);
    const auto refused = arm({Bay::C, Bay::D});
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().reason, "Slot-C is armed for another line");
    EXPECT_TRUE(arm({Bay::D}));
    first->disarm("enough");
    EXPECT_TRUE(arm({Bay::C}));
    first.reset();
}

TEST_F(ProductionLineTest, CountdownAfterAYesIsWhole)
{
    makeLine(1);
    ASSERT_TRUE(arm());
    insert(Bay::B, "N1", withContent);
    untilState(Bay::B, LineBayState::Asking);
    m_queue.advance(std::chrono::milliseconds(900)); // just before the next look
    m_line->agree(Bay::B);
    for (int tenths = 0; tenths < 99; ++tenths)
        m_queue.advance(std::chrono::milliseconds(100));
    EXPECT_TRUE(m_toolCommands.empty());
    EXPECT_EQ(state(Bay::B), LineBayState::CountingDown);
}

} // namespace orvana
