#pragma once

#include "filetree/FileSystemItem.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>

#include <memory>

namespace orvana
{

class NotificationCenter;

/// The model of the source tree. It takes clicks, and the opening and closing of rows, from the view. It has
/// one column, "filenameColumn".
///
/// The nodes keep all states. This object only keeps the tree that it shows, which stays alive until the next
/// reload. Main thread only.
class OutlineViewDataSource : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit OutlineViewDataSource(NotificationCenter &center, QObject *parent = nullptr);

    /// Shows the tree as it is now. If the root is the same, open folders stay open and only data changes. A
    /// new root resets everything.
    void reloadData();

    /// The node of a row; null for an invalid index.
    static FileSystemItem *itemAt(const QModelIndex &index);

    /// Returns the node's state after a click. An open folder changes from on to mixed, to off, to on. A
    /// closed node changes from off to on, and from any other state to off.
    static std::int64_t stateAfterClick(const FileSystemItem &item);

    /// Answer the opening or closing of the row in the view. Both post "OutlineViewItemChange".
    void itemDidExpand(const QModelIndex &index);
    void itemDidCollapse(const QModelIndex &index);

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    /// Answers a click or the space bar. Ignores the value and applies the rule of `stateAfterClick`. Posts
    /// "OutlineViewItemStateChange".
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /// Icons of the desktop's theme, made for 16 by 16 points. The first function takes the name of a file or
    /// folder, the second function the name of a MIME type.
    QIcon iconForFilePath(const QString &path, bool isFolder) const;
    QIcon iconForFileType(const QString &type) const;

    /// A picture of the file type, 128 by 128 points.
    QPixmap thumbForFileType(const QString &type) const;

private:
    QModelIndex indexOf(FileSystemItem &item) const;
    void tellStates(FileSystemItem &item);

    NotificationCenter &m_center;
    std::shared_ptr<FileSystemItem> m_root;
    mutable QHash<QString, QIcon> m_icons;
};

} // namespace orvana
