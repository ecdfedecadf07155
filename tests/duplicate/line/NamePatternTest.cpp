#include "duplicate/line/NamePattern.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

std::string nameOf(const std::string &pattern)
{
    const auto parsed = NamePattern::parse(pattern);
    return parsed ? parsed->nameFor({.number = 7, .serial = "WD-1", .bay = "B", .date = "2026-11-23"})
                  : "error: " + parsed.error();
}

} // namespace

TEST(NamePattern, FieldsAreReplaced)
{
    EXPECT_EQ(nameOf("REEL 7 {n:03}"), "REEL 7 007");
    EXPECT_EQ(nameOf("{n}"), "7");
    EXPECT_EQ(nameOf("{serial}/{bay}/{date}"), "WD-1/B/2026-11-23");
    EXPECT_EQ(nameOf("plain"), "plain");
    EXPECT_EQ(nameOf("{n:09}"), "000000007");
}

TEST(NamePattern, DoubleBracesAreBraces)
{
    EXPECT_EQ(nameOf("{{n}}"), "{n}");
}

TEST(NamePattern, WrongFieldsAreNamed)
{
    EXPECT_TRUE(nameOf("{number}").starts_with("error: {number}: no field"));
    EXPECT_TRUE(nameOf("{n:3}").starts_with("error: {n:3}"));
    EXPECT_TRUE(nameOf("{n:00}").starts_with("error: {n:00}"));
    EXPECT_TRUE(nameOf("A {n").starts_with("error: a brace"));
    EXPECT_TRUE(nameOf("A }").starts_with("error: a brace"));
    EXPECT_TRUE(nameOf("{}").starts_with("error: {}"));
}

TEST(NamePattern, TellsBaysApartByNumberOrBayOnly)
{
    EXPECT_TRUE(NamePattern::parse("{n}")->tellsBaysApart());
    EXPECT_TRUE(NamePattern::parse("{bay}")->tellsBaysApart());
    EXPECT_FALSE(NamePattern::parse("{serial}")->tellsBaysApart()) << "two disks may lack one";
    EXPECT_FALSE(NamePattern::parse("{date}")->tellsBaysApart());
}

} // namespace orvana
