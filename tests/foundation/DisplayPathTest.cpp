#include "foundation/DisplayPath.h"
#include <gtest/gtest.h>

namespace orvana
{

TEST(DisplayPath, LeavesReadableTextAlone)
{
    EXPECT_EQ(displayPath("/Volumes/Copy 1/Größe 文.txt"), "/Volumes/Copy 1/Größe 文.txt");
    EXPECT_EQ(displayPath(""), "");
}

TEST(DisplayPath, EscapesControlCharactersAndInvalidBytes)
{
    EXPECT_EQ(displayPath("a\nb\tc\x7F"), "a\\x0Ab\\x09c\\x7F");
    EXPECT_EQ(displayPath("\xFF\xC3("), "\\xFF\\xC3(");
    EXPECT_EQ(displayPath("cut \xE6\x96"), "cut \\xE6\\x96");
    EXPECT_EQ(displayPath("\xC0\xAF"), "\\xC0\\xAF") << "an overlong form is no character";
    EXPECT_EQ(displayPath("\xED\xA0\x80"), "\\xED\\xA0\\x80") << "half of a pair is no character";
    EXPECT_EQ(displayPath(std::string_view("a\0b", 3)), "a\\x00b");
}

TEST(DisplayPath, EscapesWhatBreaksLinesOrTurnsTheDirection)
{
    EXPECT_EQ(displayPath("x\xE2\x80\xAEgpj.exe"), "x\\xE2\\x80\\xAEgpj.exe");
    EXPECT_EQ(displayPath("a\xE2\x80\xA8z"), "a\\xE2\\x80\\xA8z");
    EXPECT_EQ(displayPath("a\xC2\x85z"), "a\\xC2\\x85z");
}

TEST(DisplayPath, EveryByteGivesValidUtf8)
{
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second)};
            EXPECT_TRUE(isUtf8(displayPath(bytes)));
        }
    }
}

} // namespace orvana
