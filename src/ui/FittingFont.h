#pragma once

#include <QFont>

namespace orvana
{

/// The font at its own size, or smaller where a line of it would be higher than `height` points or, if a text
/// is given, that text wider than `width`. Never below 6 pixels.
QFont fontThatFits(const QFont &font, int height, const QString &text = QString(), double width = 0);

} // namespace orvana
