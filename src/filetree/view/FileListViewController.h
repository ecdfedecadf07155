#pragma once

#include "filetree/FileSystemItem.h"
#include "filetree/SelectionCount.h"
#include "foundation/NotificationCenter.h"
#include "foundation/PathObject.h"
#include "foundation/PendingUpdate.h"
#include "ui_FileListViewController.h"

#include <QWidget>

#include <atomic>
#include <memory>
#include <vector>

namespace orvana
{

class MainQueue;
class OutlineViewDataSource;

namespace platform
{
class Host;
}

/// The panel in which the source's files and folders are ticked, with what they come to below.
///
/// Main thread only, except `FileViewChange` and `updateItemSizeLabel`, which any thread may call.
class FileListViewController : public QWidget, public Ui::FileListViewController
{
    Q_OBJECT

public:
    /// All three must outlive the panel; `FileSystemItem::useHost` must have been called.
    FileListViewController(platform::Host &host, NotificationCenter &center, MainQueue &queue,
                           QWidget *parent = nullptr);
    ~FileListViewController() override;

    /// Of the last count, finished or not: bytes and number of files.
    std::uint64_t totalSize() const { return m_count.totalSize(); }
    std::int64_t totalFiles() const { return m_count.totalFiles(); }

    FileSystemItem &fileSysItem() { return m_fileSysItem; }

    /// Points the tree at another root and shows it, closed and ticked; a path object that is already the
    /// root changes nothing.
    void showRoot(PathObject path);

    /// The rows as they stand, from the first to the last.
    std::vector<FileListRow> rows() const;

    /// Answers "OutlineViewItemChange", "FileSizeChange" and "OutlineViewItemStateChange".
    void FileViewChange(const Notification &note);

    /// A row was clicked.
    void clickItem();

    /// Counts the ticked rows anew, in place of the count that may be running.
    void startCountThread();
    void stopCountThread();

    /// Waits at most `limit`; true when no count runs any more.
    bool waitForCount(std::chrono::milliseconds limit) const { return m_count.waitForEnd(limit); }

    static std::string stringFromFileSize(std::uint64_t bytes);

    enum class SizeLabel { Counts, Blank };

    /// Has the label written on the main queue, with the counts as they are then.
    void updateItemSizeLabel(SizeLabel label);

private:
    void awakeFromNib();
    void writeItemSizeLabel();

    NotificationCenter &m_center;
    SelectionCount m_count;
    FileSystemItem m_fileSysItem{std::string()};
    OutlineViewDataSource *m_dataSource;
    std::atomic<SizeLabel> m_label{SizeLabel::Blank};
    PendingUpdate m_labelUpdate;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
};

} // namespace orvana
