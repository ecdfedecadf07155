#include "log/view/LogFileDataSource.h"

#include "ui/ShownText.h"

#include <algorithm>

namespace orvana
{

LogFileDataSource::LogFileDataSource(QObject *parent)
    : QAbstractItemModel(parent), m_root(LogFileSystemItem::rootItem())
{
}

void LogFileDataSource::setrepoRootPath(LogFileSystemItem &node, PathObject path)
{
    beginResetModel();
    node.setrepoRootPath(std::move(path));
    m_root = LogFileSystemItem::rootItem();
    endResetModel();
}

LogFileSystemItem *LogFileDataSource::item(const QModelIndex &index)
{
    return static_cast<LogFileSystemItem *>(index.internalPointer());
}

QModelIndex LogFileDataSource::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    auto *node = parent.isValid() ? item(parent)->childAtIndex(static_cast<std::size_t>(row)) : m_root.get();
    return createIndex(row, column, node);
}

QModelIndex LogFileDataSource::parent(const QModelIndex &index) const
{
    auto *above = index.isValid() ? item(index)->parent() : nullptr;
    return above ? createIndex(static_cast<int>(above->row()), 0, above) : QModelIndex();
}

int LogFileDataSource::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? static_cast<int>(std::max<std::int64_t>(item(parent)->numberOfChildren(), 0))
                            : 1;
}

int LogFileDataSource::columnCount(const QModelIndex &) const
{
    return 1;
}

bool LogFileDataSource::hasChildren(const QModelIndex &parent) const
{
    return !parent.isValid() || item(parent)->numberOfChildren() != -1;
}

QVariant LogFileDataSource::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    if (!index.isValid())
        return QStringLiteral("/");
    const auto text = shownText(item(index)->relativePath());
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
}

} // namespace orvana
