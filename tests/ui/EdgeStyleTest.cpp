#include "ui/EdgeStyle.h"

#include "ui/Contrast.h"
#include "ui/Palettes.h"
#include "ui/ProgressIndicator.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleOptionButton>
#include <gtest/gtest.h>

namespace orvana
{

class EdgeStyleTest : public testing::TestWithParam<bool>
{
protected:
    EdgeStyleTest()
    {
        window.setPalette(palette);
        window.resize(200, 80);
        window.show();
    }

    // Returns the best contrast with the window's background that is found within the first columns of the
    // widget, at half its height: there is its edge.
    double edgeOf(QWidget &widget, int left = 0)
    {
        widget.setGeometry(20, 20, 120, 26);
        widget.show();
        QImage image(window.size(), QImage::Format_RGB32);
        window.render(&image);
        double best = 1;
        for (int x = 20 + left; x < 24 + left; ++x)
            best = std::max(best, contrast(image.pixelColor(x, 33), palette.color(QPalette::Window)));
        return best;
    }

    const QPalette palette = GetParam() ? darkPalette() : lightPalette();
    QWidget window;
};

INSTANTIATE_TEST_SUITE_P(LightAndDark, EdgeStyleTest, testing::Bool(),
                         [](const auto &value) { return value.param ? "Dark" : "Light"; });

TEST_P(EdgeStyleTest, UntickedBoxHasAnEdge)
{
    QCheckBox box(&window);
    EXPECT_GE(edgeOf(box), LeastEdgeContrast);
}

TEST_P(EdgeStyleTest, FieldHasAnEdge)
{
    QLineEdit field(&window);
    EXPECT_GE(edgeOf(field), LeastEdgeContrast);
}

TEST_P(EdgeStyleTest, EmptyBarHasAnEdge)
{
    ProgressIndicator bar(&window);
    bar.showValue(0);
    EXPECT_GE(edgeOf(bar), LeastEdgeContrast);
}

TEST_P(EdgeStyleTest, ButtonAndListHaveEdges)
{
    QPushButton button(&window);
    EXPECT_GE(edgeOf(button), LeastEdgeContrast);
    button.hide();
    QComboBox list(&window);
    EXPECT_GE(edgeOf(list), LeastEdgeContrast);
}

} // namespace orvana
