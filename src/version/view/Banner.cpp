#include "version/view/Banner.h"

#include "resources/Resources.h"

namespace orvana
{

QPixmap bannerImage(qreal pixelsPerPoint)
{
    loadResources();
    if (pixelsPerPoint <= 1)
        return QPixmap(QStringLiteral(":/PL_Banner.png"));
    QPixmap banner(QStringLiteral(":/PL_Banner@2x.png"));
    banner.setDevicePixelRatio(2);
    return banner;
}

} // namespace orvana
