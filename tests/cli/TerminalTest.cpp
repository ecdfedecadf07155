#include "cli/Terminal.h"
#include "cli/CopyProgress.h"

#include <gtest/gtest.h>

namespace orvana::cli
{

TEST(Terminal, LineThatFitsIsLeftAlone)
{
    EXPECT_EQ(fitted("Größe", 5), "Größe");
}

TEST(Terminal, LongLineLosesItsMiddle)
{
    EXPECT_EQ(fitted("Duplicating /a/b/c", 9), "Dupl…/b/c");
    EXPECT_EQ(fitted("äöüäöü", 3), "ä…ü");
    EXPECT_EQ(fitted("abcdef", 2), "ab");
}

TEST(Terminal, DurationsAndPercents)
{
    EXPECT_EQ(durationText(std::nullopt), "--:--");
    EXPECT_EQ(durationText(0), "0:00");
    EXPECT_EQ(durationText(75), "1:15");
    EXPECT_EQ(durationText(3723), "1:02:03");
    EXPECT_EQ(percentText(0, 0), "100%");
    EXPECT_EQ(percentText(1, 3), "33%");
    EXPECT_EQ(percentText(7, 3), "100%");
}

} // namespace orvana::cli
