#include "foundation/SizeText.h"
#include <gtest/gtest.h>

namespace orvana
{

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

TEST(RateText, HasADecimalOnlyBelowTen)
{
    EXPECT_EQ(rateText(0), "0 Bytes/s");
    EXPECT_EQ(rateText(5), "5 Bytes/s");
    EXPECT_EQ(rateText(4.1 * 1024), "4.1 KB/s");
    EXPECT_EQ(rateText(9.94 * 1048576), "9.9 MB/s");
    EXPECT_EQ(rateText(9.96 * 1048576), "10 MB/s");
    EXPECT_EQ(rateText(41.2 * 1048576), "41 MB/s");
    EXPECT_EQ(rateText(1.2 * 1073741824), "1.2 GB/s");
}

} // namespace orvana
