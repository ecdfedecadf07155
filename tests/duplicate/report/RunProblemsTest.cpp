#include "duplicate/report/RunProblems.h"
#include <gtest/gtest.h>

namespace orvana
{

TEST(RunProblems, FirstThousandAreKeptAndTheRestIsCounted)
{
    RunProblems problems;
    for (int i = 0; i < 1002; ++i)
        problems.add({ProblemKind::Failed, std::to_string(i), "/d", "full"});
    const auto lines = problems.lines();
    ASSERT_EQ(lines.size(), 1001U);
    EXPECT_EQ(lines.front(), "/d: 0: failed, full");
    EXPECT_EQ(lines.back(), "and 2 more, which the report lists");
}

} // namespace orvana
