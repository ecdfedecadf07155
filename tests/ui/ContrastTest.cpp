#include "ui/Contrast.h"

#include "ui/Palettes.h"
#include "ui/SystemColor.h"

#include <QPalette>
#include <gtest/gtest.h>

namespace orvana
{

TEST(Contrast, IsThatOfTheGuidelines)
{
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.001);
    EXPECT_NEAR(contrast(Qt::red, Qt::red), 1, 0.001);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

class PaletteContrast : public testing::TestWithParam<bool>
{
protected:
    const QPalette palette = GetParam() ? darkPalette() : lightPalette();
    const QColor window = palette.color(QPalette::Window);
};

INSTANTIATE_TEST_SUITE_P(LightAndDark, PaletteContrast, testing::Bool(),
                         [](const auto &value) { return value.param ? "Dark" : "Light"; });

TEST_P(PaletteContrast, EdgesStandOutFromAllThatIsBesideThem)
{
    const auto edge = edgeColor(palette);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        EXPECT_GE(contrast(edge, palette.color(role)), LeastEdgeContrast) << role;
    EXPECT_NE(edge, palette.color(QPalette::WindowText)) << "an edge is quieter than a text";
}

TEST_P(PaletteContrast, FocusStandsOutFromAllThatIsBesideIt)
{
    for (const auto role : {QPalette::Window, QPalette::Base})
        EXPECT_GE(contrast(focusColor(palette), palette.color(role)), LeastEdgeContrast) << role;
}

TEST_P(PaletteContrast, TextIsReadableAlsoWhenItIsDisabled)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        EXPECT_GE(contrast(palette.color(group, QPalette::WindowText), window), 4.5) << group;
        EXPECT_GE(contrast(palette.color(group, QPalette::Text), palette.color(group, QPalette::Base)), 4.5)
            << group;
        EXPECT_GE(
            contrast(palette.color(group, QPalette::ButtonText), palette.color(group, QPalette::Button)), 4.5)
            << group;
        EXPECT_GE(contrast(palette.color(group, QPalette::PlaceholderText), window), 4.5) << group;
    }
    EXPECT_GE(contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)), 4.5);
}

TEST_P(PaletteContrast, ColoursOfRowsAreReadable)
{
    for (const auto *color : {&SystemColor::black(), &SystemColor::blue(), &SystemColor::red()})
        EXPECT_GE(contrast(color->shadeFor(palette), window), 4.5);
}

} // namespace orvana
