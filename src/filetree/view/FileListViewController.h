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
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

class MainQueue;
class OutlineViewDataSource;

namespace platform
{
class Host;
}

/// The panel in which the user ticks the source's files and folders. A label below shows their number and
/// size.
///
/// Main thread only, except `FileViewChange` and `updateItemSizeLabel`, which any thread may call.
class FileListViewController : public QWidget, public Ui::FileListViewController
{
    Q_OBJECT

public:
    /// Host, center and queue must outlive the panel. `FileSystemItem::useHost` must have been called.
    FileListViewController(platform::Host &host, NotificationCenter &center, MainQueue &queue,
                           QWidget *parent = nullptr);
    ~FileListViewController() override;

    /// Totals of the last count, finished or not: bytes and number of files.
    std::uint64_t totalSize() const { return m_count.totalSize(); }
    std::int64_t totalFiles() const { return m_count.totalFiles(); }

    FileSystemItem &fileSysItem() { return m_fileSysItem; }

    /// Shows the tree of another root, closed and ticked. Does nothing if the path object already is the
    /// root.
    void showRoot(PathObject path);

    /// Ticks these paths and nothing else, and opens the folders above them. Each path is the root's or lies
    /// below it. Returns the first path that is not in the tree; nothing is changed then.
    std::optional<std::string> select(const std::vector<std::string> &paths);

    /// The visible rows, in the order of the list.
    std::vector<FileListRow> rows() const;

    /// Answers "OutlineViewItemChange", "FileSizeChange" and "OutlineViewItemStateChange".
    void FileViewChange(const Notification &note);

    /// Answers a click on a row.
    void clickItem();

    /// Counts the ticked rows anew. The new count replaces a count that is still running.
    void startCountThread();
    void stopCountThread();

    /// Waits at most `limit`. Returns true if no count runs any more.
    bool waitForCount(std::chrono::milliseconds limit) const { return m_count.waitForEnd(limit); }

    static std::string stringFromFileSize(std::uint64_t bytes);

    enum class SizeLabel { Counts, Blank };

    /// Schedules the label to be written on the main queue, with the counts at that time.
    void updateItemSizeLabel(SizeLabel label);

private:
    /// The rows from the root's first child down to a path; empty for the root itself.
    using RowsDown = std::vector<int>;

    void awakeFromNib();
    void writeItemSizeLabel();
    static std::optional<RowsDown> rowsTo(const std::string &path);
    void tickOnly(const std::vector<RowsDown> &chosen);

    NotificationCenter &m_center;
    SelectionCount m_count;
    FileSystemItem m_fileSysItem{std::string()};
    OutlineViewDataSource *m_dataSource;
    std::atomic<SizeLabel> m_label{SizeLabel::Blank};
    PendingUpdate m_labelUpdate;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
};

} // namespace orvana
