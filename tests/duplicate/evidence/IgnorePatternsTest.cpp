#include "duplicate/evidence/IgnorePatterns.h"

#include <gtest/gtest.h>

namespace orvana
{

namespace
{

struct Case
{
    const char *pattern;
    const char *path;
    bool isLeftOut;
};

bool matches(std::vector<std::string> patterns, std::string_view path, bool isFolder = false)
{
    return IgnorePatterns(patterns).matches(path, isFolder);
}

} // namespace

TEST(IgnorePatterns, FollowTheRulesOfGitignore)
{
    for (const auto &[pattern, path, isLeftOut] : {Case{"name", "name", true},
                                                   Case{"name", "a/b/name", true},
                                                   Case{"name", "a/name/b", true},
                                                   Case{"name", "names", false},
                                                   Case{"/name", "name", true},
                                                   Case{"/name", "a/name", false},
                                                   Case{"a/name", "a/name", true},
                                                   Case{"a/name", "b/a/name", false},
                                                   Case{"a/name", "a/name/x", true},
                                                   Case{"*.tmp", "x.tmp", true},
                                                   Case{"*.tmp", "a/.tmp", true},
                                                   Case{"*.tmp", "x.tmpx", false},
                                                   Case{"a*b*c", "aXbXbc", true},
                                                   Case{"a*b*c", "aXbX", false},
                                                   Case{"*", "x", true},
                                                   Case{"?.mov", "A.mov", true},
                                                   Case{"?.mov", "AB.mov", false},
                                                   Case{"a/*", "a/b", true},
                                                   Case{"a/*/c", "a/b/c", true},
                                                   Case{"a/*/c", "a/b/b/c", false},
                                                   Case{"a/**/c", "a/c", true},
                                                   Case{"a/**/c", "a/b/b/c", true},
                                                   Case{"**/c", "a/b/c", true},
                                                   Case{"**/c", "c", true},
                                                   Case{"a/**", "a/b/c", true},
                                                   Case{"a/**", "a", false},
                                                   Case{"[abc]x", "bx", true},
                                                   Case{"[a-c]x", "dx", false},
                                                   Case{"[!a-c]x", "dx", true},
                                                   Case{"[]]x", "]x", true},
                                                   Case{"[x", "[x", true},
                                                   Case{"\\*", "*", true},
                                                   Case{"\\*", "a", false},
                                                   Case{"#name", "#name", false},
                                                   Case{"\\#name", "#name", true},
                                                   Case{"", "name", false},
                                                   Case{"/", "name", false},
                                                   Case{"name  ", "name", true},
                                                   Case{"name\\ ", "name ", true}})
        EXPECT_EQ(matches({pattern}, path), isLeftOut) << "'" << pattern << "' and '" << path << "'";
}

TEST(IgnorePatterns, SlashAtTheEndIsAboutFoldersAndTheirContent)
{
    EXPECT_FALSE(matches({"name/"}, "name", false));
    EXPECT_TRUE(matches({"name/"}, "name", true));
    EXPECT_TRUE(matches({"name/"}, "a/name/file"));
}

TEST(IgnorePatterns, LastPatternThatMatchesDecides)
{
    EXPECT_FALSE(matches({"*.mov", "!keep.mov"}, "keep.mov"));
    EXPECT_TRUE(matches({"!keep.mov", "*.mov"}, "keep.mov"));
    EXPECT_TRUE(matches({"folder", "!folder/keep"}, "folder/keep"))
        << "nothing comes back in a folder left out";
}

TEST(IgnorePatterns, PatternOfAPathMatchesThatPathAlone)
{
    for (const std::string path : {"plain", "a/b", "st*r", "qu?stion", "[set]", "back\\slash", " blanks ",
                                   "#sign", "!sign", "a/#b", "**", "ends/with/blank "}) {
        const auto pattern = IgnorePatterns::patternOf(path);
        EXPECT_TRUE(matches({pattern}, path)) << pattern;
        EXPECT_TRUE(matches({pattern}, path + "/below")) << pattern;
        EXPECT_FALSE(matches({pattern}, "x" + path)) << pattern;
        EXPECT_FALSE(matches({pattern}, path + "x")) << pattern;
        EXPECT_FALSE(matches({pattern}, "a/a/" + path)) << pattern;
    }
}

TEST(IgnorePatterns, PatternMadeToTakeForeverDoesNot)
{
    std::string pattern;
    for (int i = 0; i < 2000; ++i)
        pattern += "*a";
    EXPECT_FALSE(matches({pattern + "b"}, std::string(5000, 'a')));
    std::string folders;
    for (int i = 0; i < 500; ++i)
        folders += "**/a/";
    std::string path;
    for (int i = 0; i < 1000; ++i)
        path += "a/";
    EXPECT_FALSE(matches({folders + "b"}, path + "c"));
}

} // namespace orvana
