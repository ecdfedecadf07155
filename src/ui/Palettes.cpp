#include "ui/Palettes.h"

namespace orvana
{

namespace
{

// A disabled text must stay readable: the names of the disks are disabled in a run.
void setDisabledText(QPalette &palette, const QColor &color)
{
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, color);
}

} // namespace

QPalette lightPalette()
{
    QPalette palette(QColor(0xef, 0xef, 0xef));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(0x62, 0x62, 0x62));
    setDisabledText(palette, QColor(0x62, 0x62, 0x62));
    return palette;
}

QPalette darkPalette()
{
    const QColor window(0x2b, 0x2d, 0x30);
    QPalette palette(QColor(0x3a, 0x3d, 0x41), window);
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, QColor(0x25, 0x27, 0x2a));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x7f, 0xb6, 0xff));
    palette.setColor(QPalette::PlaceholderText, QColor(0xa6, 0xaa, 0xb0));
    setDisabledText(palette, QColor(0xa6, 0xaa, 0xb0));
    return palette;
}

} // namespace orvana
