#include "version/WebAddress.h"

#include "support/WebBase.h"

#include <gtest/gtest.h>

namespace orvana
{

TEST(WebAddress, IsOnTheServerOfTheBuildUnlessToldOtherwise)
{
    const test::WebBase none("");
    EXPECT_TRUE(webAddress(webpath::VersionFile).starts_with("http"));
    EXPECT_TRUE(webAddress(webpath::VersionFile).ends_with("/pl/version.txt"));
}

TEST(WebAddress, EnvironmentNamesAnotherServer)
{
    const test::WebBase base("http://127.0.0.1:8080");
    EXPECT_EQ(webAddress(webpath::VersionFile), "http://127.0.0.1:8080/pl/version.txt");
    EXPECT_EQ(webAddress(webpath::Help), "http://127.0.0.1:8080/software/orvana-plurimo");
}

TEST(WebAddress, SlashAtTheEndOfTheServerDoesNotCount)
{
    const test::WebBase base("http://127.0.0.1:8080//");
    EXPECT_EQ(webAddress("/a"), "http://127.0.0.1:8080/a");
}

} // namespace orvana
