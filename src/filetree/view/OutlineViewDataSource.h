#pragma once

#include "filetree/FileSystemItem.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>

#include <memory>

namespace orvana
{

class NotificationCenter;

/// Feeds the source tree to its view and takes clicks and openings from it. One column, "filenameColumn".
///
/// Every change of a state is the node's; this object keeps none of its own beside the tree that it shows,
/// which stays alive until the next reload. Main thread only.
class OutlineViewDataSource : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit OutlineViewDataSource(NotificationCenter &center, QObject *parent = nullptr);

    /// Shows the tree as it is now. With the same root, what is open stays open and only data changes; with
    /// another one everything starts anew.
    void reloadData();

    /// The node of a row; null for the invalid index.
    static FileSystemItem *itemAt(const QModelIndex &index);

    /// What a click makes of the node's state: an open folder goes on, mixed, off, on; everything closed
    /// changes between off and on.
    static std::int64_t stateAfterClick(const FileSystemItem &item);

    /// The view opened or closed the row; both post "OutlineViewItemChange".
    void itemDidExpand(const QModelIndex &index);
    void itemDidCollapse(const QModelIndex &index);

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    /// A click or the space bar: the value is ignored, the rule of `stateAfterClick` holds. Posts
    /// "OutlineViewItemStateChange".
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /// Icons of the desktop's theme, made for 16 by 16 points: of a file or folder by its name, and of a
    /// type of files (a MIME type's name).
    QIcon iconForFilePath(const QString &path, bool isFolder) const;
    QIcon iconForFileType(const QString &type) const;

    /// A picture of the type, 128 by 128 points.
    QPixmap thumbForFileType(const QString &type) const;

private:
    QModelIndex indexOf(FileSystemItem &item) const;
    void tellStates(FileSystemItem &item);

    NotificationCenter &m_center;
    std::shared_ptr<FileSystemItem> m_root;
    mutable QHash<QString, QIcon> m_icons;
};

} // namespace orvana
