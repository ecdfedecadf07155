#include "panels/FittingFont.h"

#include <QFontMetricsF>

namespace orvana
{

QFont fontThatFits(const QFont &family, int height, const QString &text, double width)
{
    constexpr int Smallest = 6;
    auto font = family;
    for (int size = height; size >= Smallest; --size) {
        font.setPixelSize(size);
        const QFontMetricsF metrics(font);
        if (metrics.height() <= height && metrics.horizontalAdvance(text) <= width)
            break;
    }
    return font;
}

} // namespace orvana
