#pragma once

#include <QFont>

namespace orvana
{

/// Returns the font at its own size, or at the largest smaller size at which a line is at most `height`
/// points high and `text`, if given, at most `width` points wide. Never goes below 6 pixels.
QFont fontThatFits(const QFont &font, int height, const QString &text = QString(), double width = 0);

} // namespace orvana
