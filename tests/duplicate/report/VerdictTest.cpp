#include "duplicate/report/Verdict.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace orvana
{

class VerdictTest : public testing::Test
{
protected:
    VerdictTest()
    {
        destination.copied = 3;
        destination.verified = 3;
        destination.verifiedFrom = VerifiedFrom::Disk;
        destination.durability = Durability::OnDisk;
    }

    Verdict verdict() const { return verdictOf(destination, run); }

    DestinationSummary destination;
    RunSummary run;
};

TEST_F(VerdictTest, VerifiedNeedsEveryFileReadBackFromTheDisk)
{
    EXPECT_EQ(verdict(), Verdict::Verified);
    destination.verifiedFrom = VerifiedFrom::Cache;
    EXPECT_EQ(verdict(), Verdict::Complete);
    destination.verifiedFrom = VerifiedFrom::Disk;
    destination.verified = 2;
    EXPECT_EQ(verdict(), Verdict::Complete);
    destination.verified = 0;
    EXPECT_EQ(verdict(), Verdict::Complete);
}

TEST_F(VerdictTest, WorstIsSaidFirst)
{
    destination.unverified = 1;
    EXPECT_EQ(verdict(), Verdict::NotCompared);
    destination.durability = Durability::NotKnown;
    EXPECT_EQ(verdict(), Verdict::NotOnDisk);
    destination.failed = 1;
    EXPECT_EQ(verdict(), Verdict::Incomplete);
    destination.mismatched = 1;
    EXPECT_EQ(verdict(), Verdict::Differs);
}

TEST_F(VerdictTest, RunThatWasEndedHasFinishedNoDisk)
{
    run.outcome = RunOutcome::Cancelled;
    EXPECT_EQ(verdict(), Verdict::NotFinished);
    run.outcome = RunOutcome::Finished;
    run.ending = RunEnding::Cancelled; // before the copy thread has noted it
    EXPECT_EQ(verdict(), Verdict::NotFinished);
    run.ending = RunEnding::EnclosureLost;
    EXPECT_EQ(verdict(), Verdict::NotFinished);
}

TEST_F(VerdictTest, SignTellsGoodFromBadAndEachWordIsAnother)
{
    std::set<std::string> words;
    for (const auto verdict : {Verdict::Verified, Verdict::Complete, Verdict::Incomplete, Verdict::Differs,
                               Verdict::NotCompared, Verdict::NotOnDisk, Verdict::NotFinished}) {
        const bool isGood = verdict == Verdict::Verified || verdict == Verdict::Complete;
        EXPECT_EQ(signOf(verdict) == std::string("\u2713"), isGood) << wordOf(verdict);
        words.insert(wordOf(verdict));
    }
    EXPECT_EQ(words.size(), 7U);
}

} // namespace orvana
