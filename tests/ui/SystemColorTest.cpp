#include "ui/SystemColor.h"

#include <QPalette>
#include <gtest/gtest.h>

namespace orvana
{

TEST(SystemColor, ColoursAreToldApartByIdentity)
{
    EXPECT_TRUE(SystemColor::red() == SystemColor::red());
    EXPECT_FALSE(SystemColor::red() == SystemColor::blue());
    EXPECT_FALSE(SystemColor::black() == SystemColor::blue());
}

TEST(SystemColor, BlackIsThePalettesOwnTextAndRedHasAShadeForEachBackground)
{
    const QPalette light(Qt::black, Qt::white);
    QPalette dark(Qt::white, Qt::black);
    EXPECT_EQ(SystemColor::black().shadeFor(dark), dark.color(QPalette::WindowText));
    EXPECT_NE(SystemColor::red().shadeFor(light), SystemColor::red().shadeFor(dark));
}

} // namespace orvana
