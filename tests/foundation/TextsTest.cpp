#include "foundation/DisplayPath.h"
#include "foundation/PathJson.h"
#include "foundation/SizeText.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

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

TEST(SizeText, StepsBy1024AsSoonAsTheValueExceeds1023)
{
    EXPECT_EQ(sizeText(0), "0.00 Bytes");
    EXPECT_EQ(sizeText(1023), "1023.00 Bytes");
    EXPECT_EQ(sizeText(1024), "1.00 KB");
    EXPECT_EQ(sizeText(1'048'000), "1.00 MB");
    EXPECT_EQ(sizeText(1'610'612'736), "1.50 GB");
}

TEST(SizeText, StopsAtTerabytes)
{
    EXPECT_EQ(sizeText(std::uint64_t{5000} << 40U), "5000.00 TB");
    EXPECT_EQ(sizeText(~std::uint64_t{0}), "16777216.00 TB");
}

TEST(PathJson, PathThatIsNotUtf8CarriesItsBytes)
{
    Json object = Json::object();
    putPath(object, "path", "/a\xFF");
    EXPECT_EQ(object.dump(), R"({"path":"/a\\xFF","pathBytes":"L2H/"})");
    Json controls = Json::object();
    putPath(controls, "path", "/a\n");
    EXPECT_EQ(controls.dump(), R"({"path":"/a\\x0A","pathBytes":"L2EK"})");
    Json plain = Json::object();
    putPath(plain, "path", "/a");
    EXPECT_EQ(plain.dump(), R"({"path":"/a"})");
}

TEST(PathJson, Base64IsPadded)
{
    EXPECT_EQ(base64(""), "");
    EXPECT_EQ(base64("M"), "TQ==");
    EXPECT_EQ(base64("Ma"), "TWE=");
    EXPECT_EQ(base64("Man"), "TWFu");
    EXPECT_EQ(base64("Many"), "TWFueQ==");
}

} // namespace orvana
