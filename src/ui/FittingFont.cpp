#include "ui/FittingFont.h"

#include <QFontInfo>
#include <QFontMetricsF>

#include <algorithm>

namespace orvana
{

QFont fontThatFits(const QFont &font, int height, const QString &text, double width)
{
    constexpr int Smallest = 6;
    auto fitting = font;
    for (int size = std::min(height, QFontInfo(font).pixelSize()); size >= Smallest; --size) {
        fitting.setPixelSize(size);
        const QFontMetricsF metrics(fitting);
        if (metrics.height() <= height && metrics.horizontalAdvance(text) <= width)
            break;
    }
    return fitting;
}

} // namespace orvana
