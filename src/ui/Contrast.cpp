#include "ui/Contrast.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace orvana
{

namespace
{

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

int mixed(int one, int other, int percentOfOne)
{
    return (one * percentOfOne + other * (100 - percentOfOne)) / 100;
}

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor focusColor(const QPalette &palette)
{
    for (const auto role : {QPalette::Highlight, QPalette::Link}) {
        const auto color = palette.color(QPalette::Active, role);
        if (contrast(color, palette.color(QPalette::Active, QPalette::Window)) >= LeastEdgeContrast &&
            contrast(color, palette.color(QPalette::Active, QPalette::Base)) >= LeastEdgeContrast)
            return color;
    }
    return palette.color(QPalette::Active, QPalette::WindowText);
}

QColor edgeColor(const QPalette &palette)
{
    constexpr int Step = 5;
    const auto text = palette.color(QPalette::Active, QPalette::WindowText);
    const auto ground = palette.color(QPalette::Active, QPalette::Window);
    for (int percent = 30; percent < 100; percent += Step) {
        const QColor color(mixed(text.red(), ground.red(), percent),
                           mixed(text.green(), ground.green(), percent),
                           mixed(text.blue(), ground.blue(), percent));
        const auto standsOut = [&](QPalette::ColorRole role) {
            return contrast(color, palette.color(QPalette::Active, role)) >= LeastEdgeContrast;
        };
        if (standsOut(QPalette::Window) && standsOut(QPalette::Base) && standsOut(QPalette::Button))
            return color;
    }
    return text;
}

} // namespace orvana
