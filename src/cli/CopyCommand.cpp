#include "cli/CopyCommand.h"

#include "cli/CancelRequest.h"
#include "cli/CopyDisplay.h"
#include "cli/Terminal.h"
#include "duplicate/CopyCensus.h"
#include "duplicate/FileCopy.h"
#include "duplicate/RunRelay.h"
#include "foundation/DisplayPath.h"
#include "foundation/NotificationNames.h"
#include "foundation/PlainMainQueue.h"
#include "foundation/SizeText.h"
#include "log/LogData.h"
#include "platform/Account.h"
#include "platform/Host.h"
#include "platform/VolumeFiles.h"

#include <atomic>
#include <cstdlib>

namespace orvana::cli
{

namespace
{

constexpr std::chrono::milliseconds BetweenUpdates{200};
constexpr std::chrono::seconds PatienceAtTheEnd{10};

/// One run of the command, from the job to its end.
class CopyRun final : public RunDisplay
{
public:
    CopyRun(platform::Host &host, Terminal &terminal, const CopyOptions &options, CopyJob job)
        : m_host(host), m_terminal(terminal), m_options(options), m_job(std::move(job)),
          m_log(options.logFolder ? cleanPath(*options.logFolder)
                                  : LogData::documentsFolder(host.account().homeFolder()),
                m_clock),
          m_relay(m_log, *this),
          m_display(options.json ? makeJsonDisplay(terminal) : makeTextDisplay(terminal)),
          m_fileCopy(host, m_center)
    {
    }

    ExitStatus run();

    void setProgressMsg(const std::string &message) override { m_display->message(message); }
    void setFileProgerss(float) override {}
    void setTotalProgerss(float) override {}
    void BackupFinish() override
    {
        m_queue.async([this] { finish(); });
    }

private:
    void subscribe();
    void count();
    void warnOfLittleSpace();
    void start();
    void update();
    void cancel();
    void finish();
    void end(ExitStatus status);
    [[noreturn]] void leaveWithoutTheDisk(ExitStatus status);
    void sayWhatIsLost();

    platform::Host &m_host;
    Terminal &m_terminal;
    const CopyOptions &m_options;
    CopyJob m_job;
    SystemClock m_clock;
    LogData m_log;
    RunRelay m_relay;
    std::unique_ptr<CopyDisplay> m_display;
    std::shared_ptr<RunReport> m_report;
    CopyCensus m_census;
    std::optional<CopyProgress> m_progress;
    PlainMainQueue m_queue;
    std::atomic<bool> m_isCancelled{false};
    std::optional<ExitStatus> m_status;
    NotificationCenter m_center;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
    FileCopy m_fileCopy;
};

ExitStatus CopyRun::run()
{
    subscribe();
    // Binds the destinations to the folders that were checked, however long the counting takes.
    m_fileCopy.SetBackupDiskValue(m_job.SrcFileArray, m_job.SrcDiskPath, m_job.DesFileArray);
    const CancelRequest cancelRequest([this] {
        m_isCancelled = true;
        m_queue.async([this] { cancel(); });
    });
    count();
    if (m_isCancelled) {
        m_terminal.printError("plurimoctl: cancelled while counting; nothing was written");
        return Cancelled;
    }
    warnOfLittleSpace();
    start();
    m_queue.run();
    return *m_status;
}

void CopyRun::subscribe()
{
    for (const char *name : {notification::BackupFinish, notification::FileCopyMessage,
                             notification::FileProgress, notification::TotalProgress})
        m_subscriptions.push_back(
            m_center.subscribe(name, [this](const Notification &n) { m_relay.relay(n); }));
}

void CopyRun::count()
{
    m_census = takeCensus(m_host, m_job, [this] { return m_isCancelled.load(); });
}

void CopyRun::warnOfLittleSpace()
{
    for (const auto &root : m_job.DesFileArray) {
        const auto folder = m_host.volumeFiles().openFolder(root, platform::Reach::Beneath);
        const auto free = folder ? (*folder)->freeBytes() : tl::unexpected(folder.error());
        if (free && *free < m_census.bytes)
            m_terminal.printError("plurimoctl: " + displayPath(root) + ": only " + sizeText(*free) +
                                  " free for " + sizeText(m_census.bytes) + "; what does not fit will fail");
    }
}

void CopyRun::start()
{
    m_log.initLogFile();
    m_relay.runStarts();
    m_report = std::make_shared<RunReport>(m_log.folder(), m_log.stamp(), m_clock);
    m_report->setProblemListener([this](const Json &problem) { m_display->problem(problem); });
    m_fileCopy.setBVerifyFiles(m_options.verify);
    m_fileCopy.setReport(m_report);
    m_fileCopy.setTotalFiles(m_census.files);
    m_relay.jobHandedOver(m_job.SrcDiskPath, m_job.DesFileArray);
    m_display->started(m_job, m_census, m_log.logFilePath());
    m_progress.emplace(m_census, *m_report, m_options.verify);
    m_fileCopy.startCopyThread();
    m_queue.after(BetweenUpdates, [this] { update(); });
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
    const auto status = m_report->allDone() ? AllDone : SomethingFailed;
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
    for (const auto &line : m_report->notOnDiskLines())
        m_terminal.printError(line);
    sayWhatIsLost();
    m_queue.quit();
}

void CopyRun::sayWhatIsLost()
{
    if (m_log.hasLostRecords())
        m_terminal.printError("plurimoctl: the run log could not be written to " +
                              displayPath(m_log.logFilePath()));
    if (m_report->path().empty())
        m_terminal.printError("plurimoctl: the run report could not be written to " +
                              displayPath(m_log.folder()));
}

} // namespace

ExitStatus runCopy(platform::Host &host, Terminal &terminal, const CopyOptions &options)
{
    auto job = planCopy(host, options);
    if (!job) {
        terminal.printError("plurimoctl: " + job.error().reason);
        return job.error().status;
    }
    return CopyRun(host, terminal, options, std::move(*job)).run();
}

} // namespace orvana::cli
