#pragma once

#include <QPixmap>

namespace orvana
{

/// The product's banner, 605 by 70 points: the image "PL_Banner.png", or the finer one for a screen of more
/// than one pixel a point.
QPixmap bannerImage(qreal pixelsPerPoint);

} // namespace orvana
