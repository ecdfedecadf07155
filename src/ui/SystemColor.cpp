#include "ui/SystemColor.h"

#include <QPalette>

namespace orvana
{

const SystemColor &SystemColor::black()
{
    static const SystemColor color{QColor(), QColor()};
    return color;
}

const SystemColor &SystemColor::blue()
{
    static const SystemColor color{QColor(0x15, 0x4f, 0xa8), QColor(0x7f, 0xb6, 0xff)};
    return color;
}

const SystemColor &SystemColor::red()
{
    static const SystemColor color{QColor(0xb3, 0x12, 0x1d), QColor(0xff, 0x85, 0x80)};
    return color;
}

QColor SystemColor::shadeFor(const QPalette &palette) const
{
    if (!m_onLight.isValid())
        return palette.color(QPalette::WindowText);
    return palette.color(QPalette::Window).lightness() < 128 ? m_onDark : m_onLight;
}

} // namespace orvana
