#pragma once

#include <QColor>

class QPalette;

namespace orvana
{

/// The three colours of a row: blue for the source, black for a destination that is large enough, red for a
/// destination that is too small. The objects are shared and compared by identity.
class SystemColor
{
public:
    static const SystemColor &black();
    static const SystemColor &blue();
    static const SystemColor &red();

    SystemColor(const SystemColor &) = delete;
    SystemColor &operator=(const SystemColor &) = delete;

    bool operator==(const SystemColor &other) const { return this == &other; }

    /// Returns the shade of this colour that is readable on the palette's background. For black this is the
    /// palette's own text colour.
    QColor shadeFor(const QPalette &palette) const;

private:
    SystemColor(QColor onLight, QColor onDark) : m_onLight(onLight), m_onDark(onDark) {}

    QColor m_onLight; // invalid for black: the palette's own text colour
    QColor m_onDark;
};

} // namespace orvana
