#include "filetree/view/FileTreeView.h"

#include "filetree/view/ImageAndTextCell.h"

#include <QKeyEvent>

namespace orvana
{

FileTreeView::FileTreeView(QWidget *parent) : QTreeView(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true); // otherwise opening a folder asks every entry for its height
    setTextElideMode(Qt::ElideMiddle);
    setIconSize({16, 16});
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setItemDelegate(new ImageAndTextCell(this));
}

void FileTreeView::keyPressEvent(QKeyEvent *event)
{
    // In other trees this key opens everything below the row. Here that may be a whole disk.
    if (event->key() == Qt::Key_Asterisk) {
        event->accept();
        return;
    }
    QTreeView::keyPressEvent(event);
    if ((event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) && currentIndex().isValid())
        Q_EMIT clicked(currentIndex());
}

} // namespace orvana
