#include "foundation/PathJson.h"
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

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

TEST(PathJson, Base64IsReadBackAndNothingElse)
{
    for (const char *text : {"", "M", "Ma", "Man", "Many", "\xFF\n"})
        EXPECT_EQ(fromBase64(base64(text)), text);
    for (const char *text : {"TQ", "TQ=", "=TQ=", "T===", "TR==", "TW F", "TWFu=", "TQ==TQ==", "!!!!"})
        EXPECT_EQ(fromBase64(text), std::nullopt) << text;
}

} // namespace orvana
