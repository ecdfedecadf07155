#include "app/RunWords.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(RunWords, CompleteSaysWhatIsMissingForVerified)
{
    DestinationSummary destination;
    destination.copied = 3;
    destination.durability = Durability::OnDisk;
    const auto detail = [&] { return RunWords::detailOf(Verdict::Complete, destination); };
    EXPECT_EQ(detail(), QStringLiteral("not verified"));
    destination.verified = 2;
    destination.verifiedFrom = VerifiedFrom::Disk;
    EXPECT_EQ(detail(), QStringLiteral("not all verified"));
    destination.verified = 3;
    destination.verifiedFrom = VerifiedFrom::Cache;
    EXPECT_EQ(detail(), QStringLiteral("read from memory"));
    destination.durability = Durability::Memory;
    EXPECT_EQ(detail(), QStringLiteral("in memory only"));
}

} // namespace orvana
