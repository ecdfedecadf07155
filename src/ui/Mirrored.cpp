#include "ui/Mirrored.h"

#include <QStyle>
#include <QWidget>

namespace orvana
{

QRect mirrored(const QRect &frame, const QWidget &parent)
{
    return QStyle::visualRect(parent.layoutDirection(), parent.rect(), frame);
}

void mirrorChildren(QWidget &parent)
{
    for (auto *child : parent.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (!child->isWindow())
            child->setGeometry(mirrored(child->geometry(), parent));
    }
}

} // namespace orvana
