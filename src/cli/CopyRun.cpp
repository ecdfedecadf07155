#include "cli/CopyRun.h"

#include "cli/CopyPlan.h"
#include "cli/Terminal.h"
#include "duplicate/RunLocks.h"
#include "foundation/DisplayPath.h"
#include "foundation/NotificationNames.h"
#include "platform/Account.h"
#include "platform/Host.h"

#include <cstdlib>

namespace orvana::cli
{

namespace
{

constexpr std::chrono::milliseconds BetweenUpdates{200};
constexpr std::chrono::seconds PatienceAtTheEnd{10};

} // namespace

std::string logFolderOf(platform::Host &host, const std::optional<std::string> &wanted)
{
    return wanted ? cleanPath(*wanted) : LogData::documentsFolder(host.account().homeFolder());
}

CopyRun::CopyRun(platform::Host &host, Terminal &terminal, const RunOptions &options)
    : m_host(host), m_terminal(terminal), m_options(options),
      m_log(logFolderOf(host, options.logFolder), m_clock), m_relay(m_log, *this),
      m_display(options.json ? makeJsonDisplay(terminal) : makeTextDisplay(terminal)),
      m_fileCopy(host, m_center), m_cancelRequest([this] {
          m_isCancelled = true;
          m_queue.async([this] { cancel(); });
      })
{
    for (const char *name :
         {notification::BackupFinish, notification::FileCopyMessage, notification::DiskMessage,
          notification::FileProgress, notification::TotalProgress})
        m_subscriptions.push_back(
            m_center.subscribe(name, [this](const Notification &n) { m_relay.relay(n); }));
}

void CopyRun::setJob(CopyJob job)
{
    m_job = std::move(job);
    m_fileCopy.SetBackupDiskValue(m_job.SrcFileArray, m_job.SrcDiskPath, m_job.DesFileArray);
}

std::optional<Refusal> CopyRun::lockFolders()
{
    auto locks = std::make_shared<RunLocks>(m_host, m_job.SrcDiskPath, m_job.DesFileArray);
    if (!locks->hasSource())
        return Refusal{Refused, displayPath(m_job.SrcDiskPath) + ": another run writes there"};
    for (std::size_t i = 0; i < m_job.DesFileArray.size(); ++i) {
        if (!locks->hasDestination(i))
            return Refusal{Refused, displayPath(m_job.DesFileArray[i]) +
                                        ": another run is at work there, or in a folder above or below it"};
    }
    m_fileCopy.setLocks(std::move(locks));
    return std::nullopt;
}

void CopyRun::begin()
{
    m_log.initLogFile();
    m_relay.runStarts();
    m_report = std::make_shared<RunReport>(m_log.folder(), m_log.stamp(), m_clock, m_log.number());
    m_report->setProblemListener([this](const RunProblem &problem) { m_display->problem(problem); });
}

ExitStatus CopyRun::copy(const CopyCensus &census)
{
    m_fileCopy.setBVerifyFiles(m_options.verify);
    m_fileCopy.setReport(m_report);
    m_fileCopy.setTotalFiles(census.files);
    m_relay.jobHandedOver(m_job.SrcDiskPath, m_job.DesFileArray);
    m_display->started(m_job, census, m_log.logFilePath());
    m_progress.emplace(census, *m_report, m_options.verify);
    m_fileCopy.startCopyThread();
    m_queue.after(BetweenUpdates, [this] { update(); });
    m_queue.run();
    return *m_status;
}

ExitStatus CopyRun::endWithoutCopy(ExitStatus status)
{
    if (status == Cancelled)
        m_relay.userCancelled();
    m_progress.emplace(CopyCensus(), *m_report, m_options.verify);
    m_report->begin(m_job.SrcDiskPath, {}, m_options.verify);
    m_report->finish(status == Cancelled ? RunOutcome::Cancelled : RunOutcome::Finished);
    end(status);
    return status;
}

void CopyRun::update()
{
    if (m_status)
        return;
    m_display->progress(*m_progress, *m_report);
    m_queue.after(BetweenUpdates, [this] { update(); });
}

void CopyRun::cancel()
{
    if (m_status)
        return;
    m_relay.userCancelled();
    m_fileCopy.stopCopyThread();
    const bool hasEnded = m_fileCopy.waitForEnd(PatienceAtTheEnd);
    m_report->finish(RunOutcome::Cancelled);
    end(Cancelled);
    if (!hasEnded)
        leaveWithoutTheDisk(Cancelled);
}

void CopyRun::finish()
{
    if (m_status)
        return;
    m_fileCopy.stopCopyThread();
    const bool hasEnded = m_fileCopy.waitForEnd(PatienceAtTheEnd);
    m_relay.runFinished();
    const bool isKept = m_report->isWritten() && !m_log.hasLostRecords();
    const auto status = m_report->allDone() && isKept ? AllDone : SomethingFailed;
    end(status);
    if (!hasEnded)
        leaveWithoutTheDisk(status);
}

// The copy thread may hang in the kernel for ever, and it uses all that a return from here would destroy.
void CopyRun::leaveWithoutTheDisk(ExitStatus status)
{
    m_terminal.printError("plurimoctl: a disk does not answer; leaving without it");
    std::quick_exit(status);
}

void CopyRun::end(ExitStatus status)
{
    m_status = status;
    m_display->ended(status, *m_progress, *m_report, m_log.logFilePath());
    const auto summary = m_report->summary();
    for (const auto &lines : {diskLines(summary), notOnDiskLines(summary)}) {
        for (const auto &line : lines)
            m_terminal.printError(line);
    }
    sayWhatIsLost();
    m_queue.quit();
}

void CopyRun::sayWhatIsLost()
{
    if (m_log.hasLostRecords())
        m_terminal.printError("plurimoctl: the run log could not be written to " +
                              displayPath(m_log.logFilePath()));
    if (!m_report->isWritten())
        m_terminal.printError("plurimoctl: the run report could not be written to " +
                              displayPath(m_log.folder()));
}

} // namespace orvana::cli
