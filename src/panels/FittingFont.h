#pragma once

#include <QFont>

namespace orvana
{

/// The family and weight of `family` at the largest pixel size at which a line is no higher than `height`
/// points and, if a text is given, that text no wider than `width`. Never below 6 pixels.
QFont fontThatFits(const QFont &family, int height, const QString &text = QString(), double width = 0);

} // namespace orvana
