#include "version/PublishedVersion.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

using namespace std::string_view_literals;

// Returns the version that an answer names, or "none".
std::string told(std::string_view answer)
{
    const auto version = publishedVersion(answer);
    return version ? version->text() : "none";
}

} // namespace

TEST(PublishedVersion, StandsBehindTheColon)
{
    EXPECT_EQ(told("Version: 1.2.3"), "1.2.3");
}

TEST(PublishedVersion, BlanksAndLineBreaksAroundItAreLeftOut)
{
    EXPECT_EQ(told("Version : 1.1"), "1.1");
    EXPECT_EQ(told("Version: \t\r\n 2.0 \r\n"), "2.0");
}

TEST(PublishedVersion, EndsAtTheSecondColon)
{
    EXPECT_EQ(told("Version: 1.2 : of today"), "1.2");
}

TEST(PublishedVersion, TextEndsAtAZeroByte)
{
    EXPECT_EQ(told("Version: 1.2.3\0rubbish\xFF"sv), "1.2.3");
    EXPECT_EQ(told("\0Version: 1.2.3"sv), "none");
    EXPECT_EQ(told("Version\0: 1.2.3"sv), "none");
}

TEST(PublishedVersion, IsNotThereWithoutAColon)
{
    EXPECT_EQ(told("1.2.3"), "none");
    EXPECT_EQ(told(""), "none");
}

TEST(PublishedVersion, IsNotTakenFromWhatIsNotUtf8)
{
    EXPECT_EQ(told("Version: 1.2.3 \xFF"), "none");
    EXPECT_EQ(told("\xE4: 1.2.3"), "none");
}

TEST(PublishedVersion, MayBeEmpty)
{
    EXPECT_EQ(told("Version:\n"), "");
}

} // namespace orvana
