#include "app/ScriptFile.h"
#include <gtest/gtest.h>

namespace orvana
{

TEST(ScriptFile, StepsAreLinesOfWordsWithNumbers)
{
    const auto steps =
        scriptSteps(QStringLiteral("# a remark\n\nselect-enclosure 1\n  type Slot-B \"REEL 7\"\n"));
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].line, 3);
    EXPECT_EQ(steps[0].name, QStringLiteral("select-enclosure"));
    EXPECT_EQ(steps[1].words, (QStringList{QStringLiteral("Slot-B"), QStringLiteral("REEL 7")}));
}

TEST(ScriptFile, MissingFileIsNamed)
{
    const auto read = readScript(QStringLiteral("/no/such/script"));
    ASSERT_FALSE(read);
    EXPECT_TRUE(read.error().contains(QStringLiteral("/no/such/script")));
}

} // namespace orvana
