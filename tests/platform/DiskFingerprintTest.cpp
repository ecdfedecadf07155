#include "platform/DiskFingerprint.h"

#include <gtest/gtest.h>

namespace orvana::platform
{

namespace
{

const DiskFingerprint Known{"/dev/disk3", "S1", "0x5000", 12, 1000};

} // namespace

TEST(DiskFingerprint, OneMarkThatAgreesIsEnoughToProtect)
{
    EXPECT_TRUE(mayBeTheSame(Known, {"/dev/disk3", {}, {}, {}, {}}));
    EXPECT_TRUE(mayBeTheSame(Known, {"", {}, "0x5000", {}, {}}));
    EXPECT_TRUE(mayBeTheSame(Known, {"", {}, {}, 12, {}}));
    EXPECT_TRUE(mayBeTheSame(Known, {"/dev/disk9", "S1", "0x6000", 99, 1000}));
}

TEST(DiskFingerprint, SerialNumberCountsTogetherWithTheSize)
{
    EXPECT_FALSE(mayBeTheSame(Known, {"/dev/disk9", "S1", {}, 99, 2000}));
    EXPECT_FALSE(mayBeTheSame(Known, {"/dev/disk9", "S2", {}, 99, 1000}));
}

TEST(DiskFingerprint, MarksThatAreMissingAgreeWithNothing)
{
    EXPECT_FALSE(mayBeTheSame({"", "S1", {}, {}, {}}, {"", "S2", {}, {}, {}}));
    EXPECT_FALSE(mayBeTheSame({"", "S1", "", {}, {}}, {"", "S2", "", {}, {}}));
}

TEST(DiskFingerprint, DiskWithoutASerialNumberMayBeAnyOfItsSize)
{
    for (const auto &serial : {std::optional<std::string>(), std::optional<std::string>("")}) {
        const DiskFingerprint nameless{"/dev/disk3", serial, {}, {}, 1000};
        EXPECT_TRUE(mayBeTheSame(nameless, {"/dev/disk9", "S9", {}, {}, 1000}));
        EXPECT_FALSE(mayBeTheSame(nameless, {"/dev/disk9", "S9", {}, {}, 1001}));
    }
}

TEST(DiskFingerprint, ToActAllMarksMustAgree)
{
    auto other = Known;
    EXPECT_EQ(other, Known);
    other.wwn.reset();
    EXPECT_NE(other, Known);
    other = Known;
    other.arrival = 13;
    EXPECT_NE(other, Known);
}

} // namespace orvana::platform
