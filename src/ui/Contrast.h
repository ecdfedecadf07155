#pragma once

#include <QColor>

class QPalette;

namespace orvana
{

/// Returns the contrast of two opaque colours, from 1 for equal colours to 21 for black and white. Computed
/// as the Web Content Accessibility Guidelines 2.1 define it ("contrast ratio").
double contrast(const QColor &one, const QColor &other);

/// The least contrast of the edge of a control, and of a sign, with what is around it (the same guidelines,
/// criterion 1.4.11).
inline constexpr double LeastEdgeContrast = 3.0;

/// Returns a colour between the palette's text and its background that stands out by at least
/// `LeastEdgeContrast` from the background of windows, fields and buttons.
QColor edgeColor(const QPalette &palette);

/// Returns the colour of the edge of the control that has the keyboard: the palette's highlight or, where
/// that does not stand out enough, the colour of its links, or else that of its text.
QColor focusColor(const QPalette &palette);

} // namespace orvana
