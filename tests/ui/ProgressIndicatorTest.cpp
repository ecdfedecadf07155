#include "ui/ProgressIndicator.h"

#include <gtest/gtest.h>
#include <limits>

namespace orvana
{

TEST(ProgressIndicator, ExactlyMinusOneHidesItAndAnyOtherValueShowsIt)
{
    ProgressIndicator bar;
    bar.setMaxValue(100);
    bar.showValue(40);
    EXPECT_FALSE(bar.isHidden());
    EXPECT_EQ(bar.doubleValue(), 40);
    bar.showValue(ProgressIndicator::Hidden);
    EXPECT_TRUE(bar.isHidden());
    bar.showValue(-0.5F);
    EXPECT_FALSE(bar.isHidden());
    EXPECT_EQ(bar.doubleValue(), 0);
    bar.showValue(1000);
    EXPECT_EQ(bar.doubleValue(), 100);
}

TEST(ProgressIndicator, IndeterminateBarKeepsItsValueForLater)
{
    ProgressIndicator bar;
    bar.showValue(0.5F);
    bar.setKind(ProgressIndicator::Kind::Indeterminate);
    EXPECT_EQ(bar.maximum(), 0) << "it moves by itself";
    bar.setKind(ProgressIndicator::Kind::Determinate);
    EXPECT_EQ(bar.doubleValue(), 0.5);
    EXPECT_GT(bar.maximum(), 0);
}

TEST(ProgressIndicator, ValueThatIsNoNumberOrOutOfRangeStaysInTheBar)
{
    ProgressIndicator bar;
    bar.showValue(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(bar.doubleValue(), 0.0);
    bar.showValue(7.0F);
    EXPECT_EQ(bar.doubleValue(), 1.0);
    bar.showValue(-0.5F);
    EXPECT_EQ(bar.doubleValue(), 0.0);
    EXPECT_FALSE(bar.isHidden());
}

} // namespace orvana
