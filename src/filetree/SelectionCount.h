#pragma once

#include "filetree/FileSystemItem.h"
#include "filetree/SizeCounter.h"
#include "foundation/WorkerThread.h"

#include <chrono>
#include <memory>
#include <vector>

namespace orvana
{

class NotificationCenter;

namespace platform
{
class Host;
}

/// Counts the ticked rows of the file list on a thread of its own. A new count cancels the previous count and
/// has totals of its own. Only the current count posts.
///
/// Posts "FileSizeChange" after each file. At the end it posts "FileSizeChange" once more, and then
/// "UpdateDiskInFoColorFormFileListView". All posts come from the counting thread. A cancelled count does not
/// post the end.
class SelectionCount
{
public:
    /// Host and center must outlive the count.
    SelectionCount(platform::Host &host, NotificationCenter &center);

    /// Cancels the running count and waits up to 10 s for it. A count that hangs in the kernel for longer is
    /// abandoned.
    ~SelectionCount();

    /// Cancels the running count and starts a new count over `rows`. Main thread only.
    void start(std::vector<FileListRow> rows);

    /// Cancels the running count. Its totals so far remain. Main thread only.
    void stop();

    /// Totals of the last count, running or ended: bytes and number of files. Main thread only.
    std::uint64_t totalSize() const { return m_totals->totalSize; }
    std::int64_t totalFiles() const { return m_totals->totalFiles; }

    /// Waits at most `limit`. Returns true if no count runs any more.
    bool waitForEnd(std::chrono::milliseconds limit) const;

private:
    struct Speaker;

    platform::Host &m_host;
    std::shared_ptr<Speaker> m_speaker;
    std::shared_ptr<CountTotals> m_totals = std::make_shared<CountTotals>();
    std::unique_ptr<WorkerThread> m_thread;
    RetiredThreads m_retired;
};

} // namespace orvana
