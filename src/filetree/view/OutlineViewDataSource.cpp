#include "filetree/view/OutlineViewDataSource.h"

#include "foundation/NotificationCenter.h"
#include "foundation/NotificationNames.h"
#include "ui/ShownText.h"

#include <QApplication>
#include <QMimeDatabase>
#include <QStyle>

#include <algorithm>

namespace orvana
{

OutlineViewDataSource::OutlineViewDataSource(NotificationCenter &center, QObject *parent)
    : QAbstractItemModel(parent), m_center(center), m_root(FileSystemItem::rootItem())
{
}

FileSystemItem *OutlineViewDataSource::itemAt(const QModelIndex &index)
{
    return static_cast<FileSystemItem *>(index.internalPointer());
}

QModelIndex OutlineViewDataSource::indexOf(FileSystemItem &item) const
{
    return createIndex(static_cast<int>(item.row()), 0, &item);
}

void OutlineViewDataSource::reloadData()
{
    const auto root = FileSystemItem::rootItem();
    if (root == m_root) {
        tellStates(*m_root);
        return;
    }
    beginResetModel();
    m_root = root;
    endResetModel();
}

// Tells the view that the node, and every node that was built below it, may look different.
void OutlineViewDataSource::tellStates(FileSystemItem &item)
{
    Q_EMIT dataChanged(indexOf(item), indexOf(item));
    std::vector<FileSystemItem *> waiting{&item};
    while (!waiting.empty()) {
        const auto &children = waiting.back()->builtChildren();
        waiting.pop_back();
        if (children.empty())
            continue;
        Q_EMIT dataChanged(indexOf(*children.front()), indexOf(*children.back()));
        for (const auto &child : children) {
            if (!child->builtChildren().empty())
                waiting.push_back(child.get());
        }
    }
}

std::int64_t OutlineViewDataSource::stateAfterClick(const FileSystemItem &item)
{
    if (item.isExpand() && item.isChecked() == FileSystemItem::On)
        return FileSystemItem::Mixed;
    return item.isChecked() == FileSystemItem::Off ? FileSystemItem::On : FileSystemItem::Off;
}

void OutlineViewDataSource::itemDidExpand(const QModelIndex &index)
{
    auto &item = *itemAt(index);
    item.setExpanded(true);
    item.children(); // its rows exist from now on, even if the view lays them out later
    item.setChecked(FileSystemItem::Mixed);
    tellStates(item);
    m_center.post(notification::OutlineViewItemChange);
}

void OutlineViewDataSource::itemDidCollapse(const QModelIndex &index)
{
    auto &item = *itemAt(index);
    item.setExpanded(false);
    if (item.numberOfChildren() > 0)
        item.setChecked(FileSystemItem::Off);
    tellStates(item);
    m_center.post(notification::OutlineViewItemChange);
}

QModelIndex OutlineViewDataSource::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    if (!parent.isValid())
        return indexOf(*m_root);
    return indexOf(*itemAt(parent)->childAtIndex(static_cast<std::size_t>(row)));
}

QModelIndex OutlineViewDataSource::parent(const QModelIndex &child) const
{
    auto *above = child.isValid() ? itemAt(child)->parent() : nullptr;
    return above ? indexOf(*above) : QModelIndex();
}

int OutlineViewDataSource::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return 1;
    return static_cast<int>(std::max<std::int64_t>(itemAt(parent)->numberOfChildren(), 0));
}

int OutlineViewDataSource::columnCount(const QModelIndex &) const
{
    return 1;
}

bool OutlineViewDataSource::hasChildren(const QModelIndex &parent) const
{
    return !parent.isValid() || !itemAt(parent)->isLeaf();
}

Qt::ItemFlags OutlineViewDataSource::flags(const QModelIndex &index) const
{
    auto flags = QAbstractItemModel::flags(index);
    if (index.isValid() && !itemAt(index)->relativePath().empty())
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant OutlineViewDataSource::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    auto &item = *itemAt(index);
    // The empty root is a row without a name and without a check box.
    if (item.relativePath().empty())
        return role == Qt::DisplayRole ? QVariant(QString()) : QVariant();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return shownText(item.relativePath());
    case Qt::ToolTipRole:
        return plainToolTip(shownText(item.relativePath()));
    case Qt::DecorationRole:
        return iconForFilePath(shownText(item.relativePath()), !item.isLeaf());
    case Qt::CheckStateRole:
        if (item.isChecked() == FileSystemItem::Mixed)
            return Qt::PartiallyChecked;
        return item.isChecked() == FileSystemItem::On ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool OutlineViewDataSource::setData(const QModelIndex &index, const QVariant &, int role)
{
    if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable))
        return false;
    auto &item = *itemAt(index);
    item.setChecked(stateAfterClick(item));
    tellStates(item);
    m_center.post(notification::OutlineViewItemStateChange);
    return true;
}

QIcon OutlineViewDataSource::iconForFilePath(const QString &path, bool isFolder) const
{
    if (isFolder)
        return iconForFileType(QStringLiteral("inode/directory"));
    static const QMimeDatabase database;
    return iconForFileType(database.mimeTypeForFile(path, QMimeDatabase::MatchExtension).name());
}

QIcon OutlineViewDataSource::iconForFileType(const QString &type) const
{
    auto &icon = m_icons[type];
    if (!icon.isNull())
        return icon;
    const auto mime = QMimeDatabase().mimeTypeForName(type);
    icon = QIcon::fromTheme(mime.iconName());
    if (icon.isNull())
        icon = QIcon::fromTheme(mime.genericIconName());
    if (icon.isNull())
        icon = QApplication::style()->standardIcon(
            type == QStringLiteral("inode/directory") ? QStyle::SP_DirIcon : QStyle::SP_FileIcon);
    return icon;
}

QPixmap OutlineViewDataSource::thumbForFileType(const QString &type) const
{
    return iconForFileType(type).pixmap(128, 128);
}

} // namespace orvana
