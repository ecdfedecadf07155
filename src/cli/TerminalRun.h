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

/// Returns the folder for log and report: the folder that the user chose, or else the user's Documents.
std::string logFolderOf(platform::Host &host, const std::optional<std::string> &wanted);

/// Shows a run in the terminal line by line, and cancels it at a signal.
///
/// SIGINT and SIGTERM cancel the run from the construction of this object on; the caller must have blocked
/// both. If a disk does not answer within ten seconds of the end, this object leaves the process with its
/// status and does not return.
class TerminalRun final : public RunView
{
public:
    TerminalRun(platform::Host &host, Terminal &terminal, const RunOptions &options);

    /// True once a signal has come. Callable from any thread.
    bool isCancelled() const { return m_isCancelled; }

    /// Carries out the order and returns when the run has ended. `scan` knows the devices; it is null for a
    /// run into plain folders.
    ExitStatus run(RunOrder order, DeviceScan *scan);

    void setProgressMsg(const std::string &message) override { m_display->message(message); }
    void setFileProgerss(float) override {}
    void setTotalProgerss(float) override {}
    void BackupFinish() override { m_run.copyEnded(); }

private:
    ScannedDevices devices() const override;
    void lookAtAllDevices() override;
    void lookAtEnclosures() override;
    std::optional<EnclosureRefusal> refusalOfCopy(const ChosenEnclosure &chosen) override;
    void copyStarts(const CopyJob &job) override;
    void problem(const RunProblem &problem) override { m_display->problem(problem); }
    void refused(const RunRefusal &refusal) override;
    void notEjected(const std::vector<DiskResult> &disks) override;
    void ended(const RunSummary &summary) override;

    ExitStatus statusOf(const RunSummary &summary) const;
    Refusal refusalOf(const RunRefusal &refusal) const;
    void update();
    void sayWhatIsLost();

    Terminal &m_terminal;
    SystemClock m_clock;
    LogData m_log;
    std::unique_ptr<CopyDisplay> m_display;
    RunMonitor m_monitor;
    PlainMainQueue m_queue;
    DeviceScan *m_scan = nullptr;
    std::atomic<bool> m_isCancelled{false};
    ExitStatus m_refusalStatus = Refused;
    bool m_hasFailedEject = false;
    std::optional<ExitStatus> m_status;
    NotificationCenter m_center;
    DuplicationRun m_run;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
    platform::posix::CancelRequest m_cancelRequest; // last member, so that its thread ends first
};

} // namespace orvana::cli
