#pragma once

#include "log/LogFileSystemItem.h"

#include <QAbstractItemModel>

namespace orvana
{

/// The log viewer's list: one row for the folder, and below it one row for each log. Main thread only.
class LogFileDataSource : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit LogFileDataSource(QObject *parent = nullptr);

    /// Sets the folder of the tree through `node` and shows the tree. The folder is read again only if `path`
    /// is another object than the last `path`.
    void setrepoRootPath(LogFileSystemItem &node, PathObject path);

    /// The node of a row; null for an invalid index.
    static LogFileSystemItem *item(const QModelIndex &index);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;

    /// An invalid index returns "/".
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<LogFileSystemItem> m_root; // keeps the nodes alive to which the rows point
};

} // namespace orvana
