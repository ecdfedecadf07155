#pragma once

#include "cli/CancelRequest.h"
#include "cli/CopyDisplay.h"
#include "cli/Refusal.h"
#include "duplicate/FileCopy.h"
#include "duplicate/RunRelay.h"
#include "foundation/PlainMainQueue.h"
#include "log/LogData.h"

#include <atomic>
#include <optional>

namespace orvana::cli
{

struct RunOptions
{
    std::optional<std::string> logFolder; ///< instead of the user's Documents
    bool verify = false;
    bool json = false;
};

/// Where log and report go: the folder that the user wants, else the user's Documents.
std::string logFolderOf(platform::Host &host, const std::optional<std::string> &wanted);

/// One run in the terminal, with its log, its report, its display, and its end by a signal.
///
/// SIGINT and SIGTERM, which must be blocked, cancel it from its construction on. When a disk does not answer
/// within ten seconds of the end, it leaves the process with its status and does not return.
class CopyRun final : public RunDisplay
{
public:
    CopyRun(platform::Host &host, Terminal &terminal, const RunOptions &options);

    /// True once a signal came. Callable from any thread.
    bool isCancelled() const { return m_isCancelled; }

    /// What is posted here is shown and logged as the messages of the copy engine are.
    NotificationCenter &center() { return m_center; }

    /// Binds the destinations to the folders that they are now, however long it takes until they are used.
    void setJob(CopyJob job);

    /// Holds source and destinations against other runs from now on; the refusal names what another run
    /// holds.
    std::optional<Refusal> lockFolders();

    const CopyJob &job() const { return m_job; }

    /// Names the log and opens the report.
    void begin();

    /// The report; only after `begin`.
    RunReport &report() { return *m_report; }

    /// Copies the job and returns when that has ended. After `begin`.
    ExitStatus copy(const CopyCensus &census);

    /// Ends the run without copying anything. After `begin`.
    ExitStatus endWithoutCopy(ExitStatus status);

    void setProgressMsg(const std::string &message) override { m_display->message(message); }
    void setFileProgerss(float) override {}
    void setTotalProgerss(float) override {}
    void BackupFinish() override
    {
        m_queue.async([this] { finish(); });
    }

private:
    void update();
    void cancel();
    void finish();
    void end(ExitStatus status);
    [[noreturn]] void leaveWithoutTheDisk(ExitStatus status);
    void sayWhatIsLost();

    platform::Host &m_host;
    Terminal &m_terminal;
    const RunOptions m_options;
    CopyJob m_job;
    SystemClock m_clock;
    LogData m_log;
    RunRelay m_relay;
    std::unique_ptr<CopyDisplay> m_display;
    std::shared_ptr<RunReport> m_report;
    std::optional<CopyProgress> m_progress;
    PlainMainQueue m_queue;
    std::atomic<bool> m_isCancelled{false};
    std::optional<ExitStatus> m_status;
    NotificationCenter m_center;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
    FileCopy m_fileCopy;
    CancelRequest m_cancelRequest; // the last, so that its thread ends first
};

} // namespace orvana::cli
