#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/engine/JournalOrder.h"
#include "duplicate/engine/RunEvidence.h"
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

/// Everything that one run of the engine is given.
struct CopyTask
{
    CopyJob job;                       ///< with its destinations bound, see `boundToFolders`
    std::shared_ptr<RunReport> report; ///< the run fills and writes it; if null, no report is written
    /// The locks under which the run works. If null, the run takes its own. A destination that another run
    /// holds gets no files.
    std::shared_ptr<RunLocks> locks;
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::optional<EvidenceOrder> evidence{}; ///< what the run digests, and what manifests it writes
    CopyManner manner{};                     ///< how it treats files that are there already
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::optional<JournalOrder> journal{}; ///< how it keeps a journal; nullopt for none
};

/// Returns the job, bound to the folders that its destinations are now. A destination that is another folder
/// when the run starts gets no files.
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

    /// Cancels the current run and waits up to ten seconds for the worker. A worker that still hangs then, on
    /// a disk that does not answer, is left behind.
    ~FileCopy();

    /// Takes the whole task and starts it on a new worker, as `startCopyThread` does.
    void start(CopyTask task);

    /// Sets the next job and binds it to the folders that its destinations are now. Sets the count of files
    /// to 0, so `setTotalFiles` comes afterwards.
    void SetBackupDiskValue(std::vector<std::string> selection, std::string SrcPath,
                            std::vector<std::string> DesArray);

    /// The number of files that the job will copy, as the caller counted them.
    std::int64_t totalFiles() const;
    void setTotalFiles(std::int64_t count);

    /// True to verify each file right after it is copied. Read for each file, so a change also affects a run
    /// that is under way.
    bool bVerifyFiles() const { return m_verifyFiles; }
    void setBVerifyFiles(bool verify) { m_verifyFiles = verify; }

    bool bHiddenFiles() const { return m_hiddenFiles; }
    void setBHiddenFiles(bool hidden) { m_hiddenFiles = hidden; }

    /// Sets the report that the next run fills and writes. Without it no report is written.
    void setReport(std::shared_ptr<RunReport> report) { m_next.report = std::move(report); }

    /// Sets how the next run treats files that are there already.
    void setManner(const CopyManner &manner) { m_next.manner = manner; }

    /// Sets how the next run keeps its journal.
    void setJournal(JournalOrder journal) { m_next.journal = std::move(journal); }

    /// Starts the job on a new worker, which has its own copy of the job. A worker that is still at work is
    /// cancelled but not waited for; it posts nothing more. The new worker waits up to 10 s for destinations
    /// to which a cancelled worker still writes. Destinations that are not free by then are left out.
    void startCopyThread();

    /// Cancels the worker and does not wait for it. The worker ends at its next block. Nothing more is
    /// posted.
    void stopCopyThread();

    /// True while any worker has not ended. Cancelled workers count too.
    bool isRunning() const;

    /// Waits up to `limit` for all workers. Returns false when a worker is still at work then, held up by a
    /// disk that does not answer.
    bool waitForEnd(std::chrono::milliseconds limit) const;

    /// Runs the present job on the calling thread, as a worker does. Callable on any thread, one at a time.
    void StartBackup();

    /// Empties the job. The flags keep their values.
    void CleanDiskValue();

    /// Makes a folder on a destination of the job, with the missing folders above it. Writes a failure to the
    /// system log.
    void createFileFolder(const std::string &path, const platform::Attributes &attributes);

    /// True when the item, a path or a bare name, is to be left out.
    bool isSkipFile(const std::string &pathOrName) const;

    /// Counts the files under `path`.
    std::int64_t numbersOfFolder(const std::string &path) const;

    /// Copies one item of the present job, on the calling thread. Returns 1, or -1 when the source cannot be
    /// opened.
    int FileCopyOutArray(const std::string &source, const OutArray &copies);

    /// Compares one file with its copies, on the calling thread. Returns 1, or -1 when the source cannot be
    /// opened.
    int FileCompareOutArray(const std::string &source, const OutArray &copies);

private:
    struct Foreground;

    struct NumberedJob
    {
        CopyJob job;
        std::uint64_t number;
    };

    NumberedJob presentJob() const;
    /// The parts of a task besides its job.
    struct Means
    {
        std::shared_ptr<RunReport> report;
        std::shared_ptr<RunLocks> locks;
        std::optional<EvidenceOrder> evidence;
        CopyManner manner;
        std::optional<JournalOrder> journal;
    };

    Means takeMeans();
    void runJob(const NumberedJob &job, std::uint64_t run, Means means);
    std::shared_ptr<RunLocks> locksFor(const CopyJob &job) const;
    void copyAll(const CopyJob &job, const std::function<bool()> &isCurrent, Means means);
    void setJob(CopyJob job);
    void cleanAfter(std::uint64_t job);
    Foreground &foreground();

    platform::Host &m_host;
    NotificationCenter &m_center;
    std::atomic<bool> m_verifyFiles{false};
    std::atomic<bool> m_hiddenFiles{false};
    std::atomic<std::uint64_t> m_currentRun{0};
    Means m_next;
    std::atomic<int> m_workersAtWork{0}; ///< cancelled workers included

    mutable std::mutex m_jobMutex;
    CopyJob m_job;
    std::uint64_t m_jobNumber = 0;

    std::unique_ptr<Foreground> m_foreground;
    std::unique_ptr<WorkerThread> m_thread;
    RetiredThreads m_retired;
};

} // namespace orvana
