#pragma once

#include "cli/CopyDisplay.h"
#include "duplicate/run/DuplicationRun.h"
#include "foundation/PlainMainQueue.h"
#include "foundation/Refusal.h"
#include "log/LogData.h"
#include "platform/posix/CancelRequest.h"

#include <atomic>
#include <optional>

namespace orvana::cli
{

class DeviceScan;

struct RunOptions
{
    std::optional<std::string> logFolder; ///< instead of the user's Documents
    bool json = false;
};

/// Where log and report go: the folder that the user wants, else the user's Documents.
std::string logFolderOf(platform::Host &host, const std::optional<std::string> &wanted);

/// The terminal's view of a run: shows it line by line, and ends it at a signal.
///
/// SIGINT and SIGTERM, which must be blocked, cancel it from its construction on. When a disk does not answer
/// within ten seconds of the end, it leaves the process with its status and does not return.
class TerminalRun final : public RunView
{
public:
    TerminalRun(platform::Host &host, Terminal &terminal, const RunOptions &options);

    /// True once a signal came. Callable from any thread.
    bool isCancelled() const { return m_isCancelled; }

    /// Does what the order says and returns when that has ended. `scan` knows the devices; a run into plain
    /// folders needs none.
    ExitStatus run(RunOrder order, DeviceScan *scan);

    void setProgressMsg(const std::string &message) override { m_display->message(message); }
    void setFileProgerss(float) override {}
    void setTotalProgerss(float) override {}
    void BackupFinish() override { m_run.copyEnded(); }

private:
    ScannedDevices devices() const override;
    void lookAtAllDevices() override;
    void lookAtEnclosures() override;
    void copyStarts(const CopyJob &job) override;
    void problem(const RunProblem &problem) override { m_display->problem(problem); }
    void refused(const RunRefusal &refusal) override;
    void ended(const RunSummary &summary) override;

    ExitStatus statusOf(const RunSummary &summary) const;
    Refusal refusalOf(const RunRefusal &refusal) const;
    void update();
    void sayWhatIsLost();

    Terminal &m_terminal;
    SystemClock m_clock;
    LogData m_log;
    std::unique_ptr<CopyDisplay> m_display;
    PlainMainQueue m_queue;
    DeviceScan *m_scan = nullptr;
    std::atomic<bool> m_isCancelled{false};
    ExitStatus m_refusalStatus = Refused;
    std::optional<ExitStatus> m_status;
    NotificationCenter m_center;
    DuplicationRun m_run;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
    platform::posix::CancelRequest m_cancelRequest; // the last, so that its thread ends first
};

} // namespace orvana::cli
