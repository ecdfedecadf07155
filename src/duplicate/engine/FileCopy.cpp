#include "duplicate/engine/FileCopy.h"

#include "duplicate/engine/Preflight.h"
#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/RunLocks.h"
#include "duplicate/engine/SkipRules.h"
#include "duplicate/engine/TreeWalk.h"
#include "foundation/DisplayPath.h"
#include "foundation/NotificationNames.h"
#include "foundation/SystemLog.h"
#include "platform/Host.h"

#include <new>
#include <utility>

namespace orvana
{

namespace
{

constexpr std::chrono::seconds PatienceAtTheEnd{10};
constexpr std::chrono::seconds PatienceWithOthers{10};

std::optional<FolderIdentity> identityOf(platform::Host &host, const std::string &folder)
{
    const auto attributes = host.volumeFiles().workingFolder().attributes(folder, platform::Links::Follow,
                                                                          platform::Want::Basics);
    if (!attributes)
        return std::nullopt;
    return FolderIdentity{attributes->device, attributes->inode};
}

std::shared_ptr<RunReport> reportWithoutFile()
{
    static const SystemClock clock;
    return std::make_shared<RunReport>(std::string(), std::string(), clock);
}

/// Writes the report of a run that is cancelled.
class ReportOnCancel
{
public:
    explicit ReportOnCancel(RunReport &report) : m_report(report) {}
    ~ReportOnCancel()
    {
        if (m_isArmed && WorkerThread::isCancelled())
            m_report.finish(RunOutcome::Cancelled);
    }
    ReportOnCancel(const ReportOnCancel &) = delete;
    ReportOnCancel &operator=(const ReportOnCancel &) = delete;

    void disarm() { m_isArmed = false; }

private:
    RunReport &m_report;
    bool m_isArmed = true;
};

/// Counts a worker for as long as it is at work.
class AtWork
{
public:
    explicit AtWork(std::atomic<int> &count) : m_count(count) { ++m_count; }
    ~AtWork() { --m_count; }
    AtWork(const AtWork &) = delete;
    AtWork &operator=(const AtWork &) = delete;

private:
    std::atomic<int> &m_count;
};

// A run must come to its end even without memory. The step is tried again after a failure, because the memory
// that the run held is free by then.
template <class Step>
void insistOn(Step step)
{
    constexpr int MostTries = 3;
    for (int tries = 0; tries < MostTries; ++tries) {
        try {
            step();
            return;
        } catch (const std::bad_alloc &) {
            // The loop tries again.
        }
    }
}

// Without a thread or without memory the run is over. Its end is reported like any other.
void noteEarlyEnd(const CopyJob &job, RunReport &report, const std::exception &error)
{
    systemLog(std::string("the run ended early: ") + error.what());
    report.note(std::string("the run ended early: ") + error.what());
    for (std::size_t i = 0; i < report.destinationCount(); ++i)
        report.failed(i, job.SrcDiskPath, error.what());
}

} // namespace

CopyJob boundToFolders(platform::Host &host, CopyJob job)
{
    job.expectedRoots.clear();
    for (const auto &root : job.DesFileArray)
        job.expectedRoots.push_back(identityOf(host, root));
    return job;
}

/// The state that calls on the calling thread share until the job changes.
struct FileCopy::Foreground
{
    Foreground(RunSetup setup, const CopyJob &job) : run(std::move(setup), job), walk(run) {}

    RunContext run;
    TreeWalk walk;
};

FileCopy::FileCopy(platform::Host &host, NotificationCenter &center) : m_host(host), m_center(center) {}

FileCopy::~FileCopy()
{
    stopCopyThread();
    if (!m_retired.joinAll(PatienceAtTheEnd))
        systemLog("A disk does not answer; the copy thread is left behind");
}

void FileCopy::SetBackupDiskValue(std::vector<std::string> selection, std::string SrcPath,
                                  std::vector<std::string> DesArray)
{
    setJob(boundToFolders(m_host, {std::move(selection), std::move(SrcPath), std::move(DesArray), {}, 0}));
}

void FileCopy::setJob(CopyJob job)
{
    m_foreground.reset();
    const std::lock_guard lock(m_jobMutex);
    m_job = std::move(job);
    ++m_jobNumber;
}

void FileCopy::start(CopyTask task)
{
    setJob(std::move(task.job));
    m_next = {std::move(task.report), std::move(task.locks), std::move(task.evidence), task.manner,
              std::move(task.journal)};
    startCopyThread();
}

std::int64_t FileCopy::totalFiles() const
{
    const std::lock_guard lock(m_jobMutex);
    return m_job.totalFiles;
}

void FileCopy::setTotalFiles(std::int64_t count)
{
    const std::lock_guard lock(m_jobMutex);
    m_job.totalFiles = count;
}

void FileCopy::CleanDiskValue()
{
    const std::lock_guard lock(m_jobMutex);
    m_job = {};
}

// A job that was set while the last job ended is left alone.
void FileCopy::cleanAfter(std::uint64_t job)
{
    const std::lock_guard lock(m_jobMutex);
    if (m_jobNumber == job)
        m_job = {};
}

FileCopy::NumberedJob FileCopy::presentJob() const
{
    const std::lock_guard lock(m_jobMutex);
    return {m_job, m_jobNumber};
}

void FileCopy::startCopyThread()
{
    stopCopyThread();
    const auto run = ++m_currentRun;
    m_thread = std::make_unique<WorkerThread>([this, run, job = presentJob(), means = takeMeans()]() mutable {
        runJob(job, run, std::move(means));
    });
}

void FileCopy::stopCopyThread()
{
    if (!m_thread)
        return;
    ++m_currentRun;
    m_thread->requestCancel();
    m_retired.add(std::move(m_thread));
}

bool FileCopy::isRunning() const
{
    return (m_thread && !m_thread->hasEnded()) || !m_retired.allEnded();
}

bool FileCopy::waitForEnd(std::chrono::milliseconds limit) const
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    const auto left = [&] {
        return std::max(std::chrono::milliseconds(0), std::chrono::duration_cast<std::chrono::milliseconds>(
                                                          deadline - std::chrono::steady_clock::now()));
    };
    return (!m_thread || m_thread->waitForEnd(left())) && m_retired.waitForAll(left());
}

void FileCopy::StartBackup()
{
    runJob(presentJob(), m_currentRun, takeMeans());
}

FileCopy::Means FileCopy::takeMeans()
{
    return std::exchange(m_next, Means());
}

// A cancelled worker may hang in a write that reaches the disk much later. Until this worker has ended, no
// other worker may use its destinations.
std::shared_ptr<RunLocks> FileCopy::locksFor(const CopyJob &job) const
{
    constexpr std::chrono::milliseconds BetweenTries{20};
    const auto end = std::chrono::steady_clock::now() + PatienceWithOthers;
    for (;;) {
        // Looked at before the try: a worker that ends right after a try in vain has freed its locks.
        const bool mayBeFreed = m_workersAtWork > 1 && std::chrono::steady_clock::now() < end;
        auto locks = std::make_shared<RunLocks>(m_host, job.SrcDiskPath, job.DesFileArray);
        if (locks->hasAll() || !mayBeFreed)
            return locks;
        locks.reset(); // a waiting run holds no locks
        WorkerThread::exitIfCancelled();
        std::this_thread::sleep_for(BetweenTries);
    }
}

void FileCopy::runJob(const NumberedJob &job, std::uint64_t run, Means means)
{
    const AtWork atWork(m_workersAtWork);
    auto &report = means.report;
    const auto isCurrent = [this, run] { return m_currentRun == run; };
    insistOn([&] {
        if (!report)
            report = reportWithoutFile();
    });
    try {
        report->begin(job.job.SrcDiskPath, job.job.DesFileArray, m_verifyFiles);
        copyAll(job.job, isCurrent, means);
    } catch (const std::exception &error) {
        insistOn([&] { noteEarlyEnd(job.job, *report, error); });
    }
    report->finish(RunOutcome::Finished);
    insistOn([&] {
        if (isCurrent())
            m_center.post(notification::TotalProgress, notification::key::TotalProrgress, 1.0F);
    });
    if (!isCurrent())
        return;
    cleanAfter(job.number);
    insistOn([&] { m_center.post(notification::BackupFinish); });
}

void FileCopy::copyAll(const CopyJob &job, const std::function<bool()> &isCurrent, Means means)
{
    auto &locks = means.locks;
    // Made before the run waits for the disks: a slow disk must not cost a cancelled run its report.
    ReportOnCancel reportOnCancel(*means.report);
    if (!locks)
        locks = locksFor(job);
    RunContext context({.host = m_host,
                        .center = m_center,
                        .isCurrent = isCurrent,
                        .verifyFiles = [this] { return m_verifyFiles.load(); },
                        .includeHidden = m_hiddenFiles,
                        .report = means.report,
                        .evidence = std::move(means.evidence),
                        .manner = means.manner,
                        .journal = std::move(means.journal)},
                       job);
    context.keepTo(std::move(locks));
    Preflight(context).look();
    context.openJournal();
    context.settleCopies();
    TreeWalk walk(context);
    WorkerThread::exitIfCancelled();
    for (const auto &item : context.job().SrcFileArray)
        walk.copySelected(item);
    walk.compareSamples();
    context.finishDestinations();
    reportOnCancel.disarm();
}

FileCopy::Foreground &FileCopy::foreground()
{
    if (!m_foreground) {
        auto report = reportWithoutFile();
        const std::lock_guard lock(m_jobMutex);
        report->begin(m_job.SrcDiskPath, m_job.DesFileArray, m_verifyFiles);
        m_foreground =
            std::make_unique<Foreground>(RunSetup{.host = m_host,
                                                  .center = m_center,
                                                  .isCurrent = [] { return true; },
                                                  .verifyFiles = [this] { return m_verifyFiles.load(); },
                                                  .includeHidden = m_hiddenFiles,
                                                  .report = std::move(report)},
                                         m_job);
    }
    return *m_foreground;
}

void FileCopy::createFileFolder(const std::string &path, const platform::Attributes &attributes)
{
    for (auto &target : foreground().run.targets()) {
        auto &destination = target.destination;
        if (!path.starts_with(destination.root() + "/"))
            continue;
        const auto made = destination.createFolder(path, attributes);
        if (made && *made == Destination::Made::New)
            destination.finishFolder(path, attributes);
        if (made || made.error().problem == platform::FileProblem::NotAFolder)
            return;
    }
    systemLog("Create " + displayPath(path) + " Folder Fail \n");
}

bool FileCopy::isSkipFile(const std::string &pathOrName) const
{
    return SkipRules(m_host, m_hiddenFiles).examine(pathOrName).skip;
}

std::int64_t FileCopy::numbersOfFolder(const std::string &path) const
{
    return SkipRules(m_host, m_hiddenFiles).numbersOfFolder(path);
}

int FileCopy::FileCopyOutArray(const std::string &source, const OutArray &copies)
{
    return foreground().walk.copyItem(source, copies);
}

int FileCopy::FileCompareOutArray(const std::string &source, const OutArray &copies)
{
    return foreground().walk.compare(source, copies);
}

} // namespace orvana
