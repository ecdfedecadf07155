#include "version/VersionNumber.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

std::weak_ordering compare(const char *left, const char *right)
{
    return VersionNumber(left) <=> VersionNumber(right);
}

} // namespace

TEST(VersionNumber, RunsOfDigitsCompareByValue)
{
    EXPECT_TRUE(compare("1.9", "1.10") < 0);
    EXPECT_TRUE(compare("1.0.10", "1.0.9") > 0);
    EXPECT_TRUE(compare("2.0", "1.99.99") > 0);
}

TEST(VersionNumber, SameVersionsAreEqual)
{
    EXPECT_EQ(VersionNumber("2.0"), VersionNumber("2.0"));
    EXPECT_EQ(VersionNumber(""), VersionNumber(""));
}

TEST(VersionNumber, LeadingZerosDoNotCount)
{
    EXPECT_EQ(VersionNumber("1.01"), VersionNumber("1.1"));
    EXPECT_EQ(VersionNumber("1.00"), VersionNumber("1.0"));
    EXPECT_TRUE(compare("1.010", "1.9") > 0);
}

TEST(VersionNumber, OneThatEndsFirstComesFirst)
{
    EXPECT_TRUE(compare("1.0", "1.0.0") < 0);
    EXPECT_TRUE(compare("1.0", "1.0b") < 0);
    EXPECT_TRUE(compare("", "0") < 0);
}

TEST(VersionNumber, LettersCompareByteByByteAndComeAfterDigits)
{
    EXPECT_TRUE(compare("1.0a", "1.0b") < 0);
    EXPECT_TRUE(compare("1.0B", "1.0a") < 0);
    EXPECT_TRUE(compare("1.9", "1.a") < 0);
    EXPECT_TRUE(compare("1.0rc9", "1.0rc10") < 0);
    EXPECT_TRUE(compare("1.z", "1.ä") < 0);
}

TEST(VersionNumber, NumbersMayBeLongerThanAMachineWord)
{
    EXPECT_TRUE(compare("1.99999999999999999999999999999998", "1.99999999999999999999999999999999") < 0);
    EXPECT_TRUE(compare("1.100000000000000000000000000000000", "1.99999999999999999999999999999999") > 0);
}

} // namespace orvana
