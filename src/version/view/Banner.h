#pragma once

#include <QPixmap>

namespace orvana
{

/// The product's banner, 605 by 70 points: the image "PL_Banner.png", or the finer image for a screen with
/// more than one pixel per point.
QPixmap bannerImage(qreal pixelsPerPoint);

} // namespace orvana
