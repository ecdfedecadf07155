#include "ui/FittingFont.h"

#include <QFontMetricsF>
#include <gtest/gtest.h>

namespace orvana
{

TEST(FittingFont, FontThatFitsStaysAndALargeOneGetsSmaller)
{
    QFont font;
    font.setPixelSize(10);
    EXPECT_EQ(fontThatFits(font, 100).pixelSize(), 10);
    font.setPixelSize(60);
    EXPECT_LE(QFontMetricsF(fontThatFits(font, 17)).height(), 17);
}

TEST(FittingFont, TextThatIsTooWideMakesItSmallerDownToSixPixels)
{
    QFont font;
    font.setPixelSize(20);
    const QString text(40, QLatin1Char('W'));
    const auto fitting = fontThatFits(font, 100, text, 300);
    EXPECT_LT(fitting.pixelSize(), 20);
    EXPECT_EQ(fontThatFits(font, 100, text, 1).pixelSize(), 6);
}

} // namespace orvana
