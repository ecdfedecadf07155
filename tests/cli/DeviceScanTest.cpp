#include "cli/DeviceScan.h"

#include <gtest/gtest.h>

namespace orvana::cli
{

TEST(DeviceScanWords, BaysAreLettersEachOnce)
{
    EXPECT_EQ(parseBays({"B", "D"}).value(), (std::vector{Bay::B, Bay::D}));
    for (const auto &words : {std::vector<std::string>{"E"}, {"b"}, {""}, {"Slot-B"}, {"B", "B"}}) {
        const auto bays = parseBays(words);
        ASSERT_FALSE(bays);
        EXPECT_EQ(bays.error().status, WrongUsage);
        EXPECT_NE(bays.error().reason.find(words.back()), std::string::npos) << bays.error().reason;
    }
}

TEST(DeviceScanWords, NameMayHoldAnythingBehindTheFirstEqualsSign)
{
    const auto names = parseNames({"B=A=B", "C="});
    ASSERT_TRUE(names);
    EXPECT_EQ((*names)[Bay::B], "A=B");
    EXPECT_EQ((*names)[Bay::C], "");
    EXPECT_EQ((*names)[Bay::D], std::nullopt);
    for (const auto &words : {std::vector<std::string>{"COPY1"}, {"E=x"}, {"=x"}, {"B=1", "B=2"}})
        EXPECT_FALSE(parseNames(words)) << words.front();
}

} // namespace orvana::cli
