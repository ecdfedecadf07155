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

/// Counts the ticked rows of the file list on a thread of its own. The newest count is the only one that is
/// heard: it cancels the one before, has totals of its own, and tells of them while it is the current one.
///
/// Posts "FileSizeChange" once a file, and at the end once more, followed by
/// "UpdateDiskInFoColorFormFileListView"; all on the counting thread. A cancelled count posts no end.
class SelectionCount
{
public:
    /// Both must outlive the count.
    SelectionCount(platform::Host &host, NotificationCenter &center);

    /// Cancels what runs and waits for it, at most 10 s; longer only a disk takes that hangs in the kernel.
    ~SelectionCount();

    /// Cancels the count that runs and starts one over `rows`. On the main thread.
    void start(std::vector<FileListRow> rows);

    /// Cancels the count that runs; what it had found remains. On the main thread.
    void stop();

    /// Of the last count, running or ended. On the main thread.
    std::uint64_t totalSize() const { return m_totals->totalSize; }
    std::int64_t totalFiles() const { return m_totals->totalFiles; }

    /// Waits at most `limit`; true when no count runs any more.
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
