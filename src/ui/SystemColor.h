#pragma once

#include <QColor>

class QPalette;

namespace orvana
{

/// The three colours that tell what a row is: blue for the source, black for a destination that fits, red for
/// one that does not. Shared objects, compared by identity.
class SystemColor
{
public:
    static const SystemColor &black();
    static const SystemColor &blue();
    static const SystemColor &red();

    SystemColor(const SystemColor &) = delete;
    SystemColor &operator=(const SystemColor &) = delete;

    bool operator==(const SystemColor &other) const { return this == &other; }

    /// The shade of this hue that is readable on the palette's background; black is its own text colour.
    QColor shadeFor(const QPalette &palette) const;

private:
    SystemColor(QColor onLight, QColor onDark) : m_onLight(onLight), m_onDark(onDark) {}

    QColor m_onLight; // invalid for the palette's own
    QColor m_onDark;
};

} // namespace orvana
