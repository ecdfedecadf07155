#pragma once

#include "log/LogFileSystemItem.h"

#include <QAbstractItemModel>

namespace orvana
{

/// The log viewer's list: one row for the folder, and below it one for each log. On the main thread.
class LogFileDataSource : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit LogFileDataSource(QObject *parent = nullptr);

    /// Points the tree at the folder through `node` and shows it; what was listed before is read again only
    /// if `path` is another object than the last.
    void setrepoRootPath(LogFileSystemItem &node, PathObject path);

    /// The node of a row; null for the index that is no row.
    static LogFileSystemItem *item(const QModelIndex &index);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;

    /// What is no row reads "/".
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<LogFileSystemItem> m_root; // keeps the nodes that the rows point to
};

} // namespace orvana
