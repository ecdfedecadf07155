#pragma once

#include "duplicate/engine/CopyJob.h"
#include "foundation/WorkerThread.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>

namespace orvana
{

class NotificationCenter;
class RunLocks;
class RunReport;
class RunContext;
class TreeWalk;

namespace platform
{
class Host;
struct Attributes;
} // namespace platform

/// All that one run of the engine is given.
struct CopyTask
{
    CopyJob job;                       ///< with its destinations bound, see `boundToFolders`
    std::shared_ptr<RunReport> report; ///< the run keeps and writes it; without one none is written
    /// The run works under these; without them it takes its own. A destination that another run holds gets
    /// nothing.
    std::shared_ptr<RunLocks> locks;
};

/// The job with its destinations bound to the folders that they are now: one that is another by the time of
/// the run gets nothing.
CopyJob boundToFolders(platform::Host &host, CopyJob job);

/// The duplication engine: one job at a time, on a worker thread of its own.
///
/// It reports by notifications only, posted on the worker: "FileCopyMessage", "FileProgress",
/// "TotalProgress" and, once at the end of a run that was not cancelled, "BackupFinish". Its functions are
/// called on the main thread unless they say otherwise.
class FileCopy
{
public:
    /// Host and centre must outlive the engine.
    FileCopy(platform::Host &host, NotificationCenter &center);

    /// Cancels the run in hand and waits for the worker, at most ten seconds; see `waitForEnd`.
    ~FileCopy();

    /// Takes the whole task and starts it on a new worker, as `startCopyThread` does.
    void start(CopyTask task);

    /// Sets the next job, bound to the folders that its destinations are now, and its count to 0;
    /// `setTotalFiles` comes after it.
    void SetBackupDiskValue(std::vector<std::string> selection, std::string SrcPath,
                            std::vector<std::string> DesArray);

    /// Files the job will copy, as the caller counted them.
    std::int64_t totalFiles() const;
    void setTotalFiles(std::int64_t count);

    /// Verify each file right after it is copied; read file by file, also while a run goes on.
    bool bVerifyFiles() const { return m_verifyFiles; }
    void setBVerifyFiles(bool verify) { m_verifyFiles = verify; }

    bool bHiddenFiles() const { return m_hiddenFiles; }
    void setBHiddenFiles(bool hidden) { m_hiddenFiles = hidden; }

    /// The report that the next run keeps and writes; without one none is written.
    void setReport(std::shared_ptr<RunReport> report) { m_nextReport = std::move(report); }

    /// Starts the job on a new worker, which has its own copy of it. A worker still at work is cancelled and
    /// not waited for; it posts nothing more. The new worker waits up to 10 s for destinations that a
    /// cancelled one still writes to, and leaves out those that are not free by then.
    void startCopyThread();

    /// Cancels the worker and forgets it. It ends at its next block; nothing more is posted.
    void stopCopyThread();

    /// True while a worker, also a cancelled one, has not ended.
    bool isRunning() const;

    /// Waits for all workers; false when one is still at work after `limit`, held up by a disk that does
    /// not answer.
    bool waitForEnd(std::chrono::milliseconds limit) const;

    /// The body of the worker, for the present job. Callable on any thread, one at a time.
    void StartBackup();

    /// Empties the job; the flags stay.
    void CleanDiskValue();

    /// Makes a folder on a destination of the job, with the missing ones above it. A failure goes to the
    /// system log.
    void createFileFolder(const std::string &path, const platform::Attributes &attributes);

    /// True when the item, a path or a bare name, is to be left out.
    bool isSkipFile(const std::string &pathOrName) const;

    /// Counts the files under `path`.
    std::int64_t numbersOfFolder(const std::string &path) const;

    /// Copies one item of the present job, on the calling thread. Returns 1, or -1 when the source cannot be
    /// opened.
    int FileCopyOutArray(const std::string &source, const OutArray &copies);

    /// Compares one file with its copies, on the calling thread. Results as above.
    int FileCompareOutArray(const std::string &source, const OutArray &copies);

private:
    struct Foreground;

    struct NumberedJob
    {
        CopyJob job;
        std::uint64_t number;
    };

    NumberedJob presentJob() const;
    void runJob(const NumberedJob &job, std::uint64_t run, std::shared_ptr<RunReport> report,
                std::shared_ptr<RunLocks> locks);
    std::shared_ptr<RunLocks> locksFor(const CopyJob &job) const;
    void copyAll(const CopyJob &job, const std::function<bool()> &isCurrent,
                 const std::shared_ptr<RunReport> &report, std::shared_ptr<RunLocks> locks);
    void setJob(CopyJob job);
    void cleanAfter(std::uint64_t job);
    Foreground &foreground();

    platform::Host &m_host;
    NotificationCenter &m_center;
    std::atomic<bool> m_verifyFiles{false};
    std::atomic<bool> m_hiddenFiles{false};
    std::atomic<std::uint64_t> m_currentRun{0};
    std::shared_ptr<RunReport> m_nextReport;
    std::shared_ptr<RunLocks> m_nextLocks;
    std::atomic<int> m_workersAtWork{0}; ///< cancelled ones included

    mutable std::mutex m_jobMutex;
    CopyJob m_job;
    std::uint64_t m_jobNumber = 0;

    std::unique_ptr<Foreground> m_foreground;
    std::unique_ptr<WorkerThread> m_thread;
    RetiredThreads m_retired;
};

} // namespace orvana
