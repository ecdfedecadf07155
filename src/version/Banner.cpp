#include "version/Banner.h"

#include <QtGlobal>

// In a static library nothing else would bring the images along. Qt's macro wants the global namespace.
static void loadImages()
{
    Q_INIT_RESOURCE(resources);
}

namespace orvana
{

QPixmap bannerImage(qreal pixelsPerPoint)
{
    loadImages();
    if (pixelsPerPoint <= 1)
        return QPixmap(QStringLiteral(":/PL_Banner.png"));
    QPixmap banner(QStringLiteral(":/PL_Banner@2x.png"));
    banner.setDevicePixelRatio(2);
    return banner;
}

} // namespace orvana
