// Runs that go on with the one before, and runs that make going on impossible.

#include "duplicate/journal/Journals.h"
#include "duplicate/run/JournalChoice.h"
#include "duplicate/run/RunFixture.h"

namespace orvana
{

class ResumedRun : public DuplicationRunTest
{
protected:
    /// Runs once, and fails on COPY2.
    void runThatFails()
    {
        start();
        m_host->faults(volume("COPY2")).writeErrorAfter = 0;
        m_run->start(order(false));
        untilEnded();
        m_host->faults(volume("COPY2")).writeErrorAfter = -1;
        m_ends = 0;
        ASSERT_EQ(m_summary.destinations.size(), 2U);
    }

    void goOn()
    {
        auto next = order(false);
        next.choice.settings.resume = true;
        m_run->start(std::move(next));
        untilEnded();
    }

    std::vector<JournalHead> journals()
    {
        const auto opened = Journals::open(m_host->volumeFiles(), m_tree.path("state"));
        return opened ? opened->heads() : std::vector<JournalHead>();
    }
};

TEST_F(ResumedRun, CopiesWhatIsMissingAndLeavesTheRest)
{
    runThatFails();
    EXPECT_EQ(m_summary.destinations[1].failed, 1);
    goOn();
    EXPECT_TRUE(isAllDone(m_summary));
    EXPECT_EQ(m_summary.destinations[0].alreadyThere, 1);
    EXPECT_EQ(m_summary.destinations[0].blocksWritten, 0);
    EXPECT_EQ(m_summary.destinations[1].alreadyThere, 0);
    EXPECT_EQ(m_summary.destinations[1].blocksWritten, 1);
    EXPECT_TRUE(journals().empty());
}

TEST_F(ResumedRun, JournalKnowsVolumesAndDisks)
{
    runThatFails();
    const auto all = journals();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_TRUE(isNamed(all[0].source)) << all[0].source.volume << " " << all[0].source.disk;
    ASSERT_EQ(all[0].destinations.size(), 2U);
    EXPECT_TRUE(isNamed(all[0].destinations[0].place));
    EXPECT_NE(all[0].destinations[0].place.disk, all[0].destinations[1].place.disk);
}

TEST_F(ResumedRun, EraseEndsWhatIsKnownOfTheDisk)
{
    runThatFails();
    m_machine["failing"] = Json::array();
    auto erasing = order(true);
    at("look at enclosures", [this] { EXPECT_TRUE(journals().empty()); });
    m_run->start(std::move(erasing));
    untilEnded();
    EXPECT_TRUE(told("Looking, look at enclosures"));
}

TEST_F(ResumedRun, RunWithoutItStartsAnew)
{
    runThatFails();
    m_run->start(order(false));
    untilEnded();
    EXPECT_EQ(m_summary.destinations[0].alreadyThere, 0);
    EXPECT_EQ(m_summary.destinations[0].blocksWritten, 1);
    EXPECT_TRUE(journals().empty());
}

TEST_F(ResumedRun, ErasesNothing)
{
    start();
    auto both = choice(true);
    both.settings.resume = true;
    const auto memory = rememberSource(*m_host, devices(), volume("Master"));
    const auto decided = decideOrder(*m_host, devices(), both, memory, {volume("Master/Read me.txt")});
    ASSERT_FALSE(decided);
    EXPECT_EQ(decided.error(), OrderRefusal::ErasesAndGoesOn);
    EXPECT_NE(refusalText(decided.error()).find("erases no disk"), std::string::npos);
}

} // namespace orvana
