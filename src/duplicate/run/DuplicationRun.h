#pragma once

#include "duplicate/disktool/DiskUtil.h"
#include "duplicate/engine/FileCopy.h"
#include "duplicate/plan/RunOrder.h"
#include "duplicate/report/RunProblems.h"
#include "duplicate/run/RunProgress.h"
#include "duplicate/run/RunRelay.h"

#include <atomic>
#include <chrono>
#include <variant>

namespace orvana
{

class Clock;
class MainQueue;

/// The state of a run. `Looking` is the moment between erase and copy in which the destinations are decided.
enum class RunPhase { Idle, Erasing, Looking, Copying, Syncing, Ended };

/// The name of a phase in English, for tests and logs: "Erasing".
const char *nameOf(RunPhase phase);

/// Why a run that was started copies nothing.
using RunRefusal = std::variant<EnclosureRefusal, OrderRefusal>;

std::string refusalText(const RunRefusal &refusal);

/// What a run needs of the program around it, and what it tells that program. Called on the main thread,
/// except `problem` and what `RunDisplay` says of itself.
class RunView : public RunDisplay
{
public:
    /// The devices as they were found last.
    virtual ScannedDevices devices() const = 0;

    /// Finds all devices anew. Asked for right before disks are erased.
    virtual void lookAtAllDevices() = 0;

    /// Finds the enclosures anew. Asked for when disks were erased.
    virtual void lookAtEnclosures() = 0;

    /// Asked right before the destinations are decided; with false the run ends without a copy.
    virtual bool hasSomethingToCopy() { return true; }

    /// These disks get no copy. A disk may be named more than once in a run.
    virtual void disksLeftOut(const std::vector<DiskRefusal> &) {}

    /// The copy thread is about to be given this job.
    virtual void copyStarts(const CopyJob &) {}

    /// A file on a destination is not as it should be. Comes from the copy thread.
    virtual void problem(const RunProblem &) {}

    /// The run copies nothing, for this reason. `ended` follows.
    virtual void refused(const RunRefusal &refusal) = 0;

    /// The run is over. Comes exactly once after each `start`, unless the run object is destroyed before.
    virtual void ended(const RunSummary &summary) = 0;
};

/// One duplication from Start to its end: erase, rescan, plan, copy, sync, report. It owns the workers and
/// the account of it; window and terminal start it, show it and keep no second truth about it.
///
/// Main thread only, unless a function says otherwise. After its end the next run may be started with the
/// same object. Destroying it cancels the run, and waits for the copy thread at most ten seconds.
class DuplicationRun
{
public:
    /// What a run works with. All of it outlives the run.
    struct Surroundings
    {
        platform::Host &host;
        NotificationCenter &center;
        MainQueue &queue;
        const Clock &clock;
        LogData &log;
        /// How long the end of a run waits for the copy thread. Without patience the thread of a cancelled
        /// run writes the report after `ended`.
        std::chrono::milliseconds patience{0};
    };

    DuplicationRun(const Surroundings &surroundings, RunView &view);
    DuplicationRun(const DuplicationRun &) = delete;
    DuplicationRun &operator=(const DuplicationRun &) = delete;
    ~DuplicationRun();

    /// Starts a run; ignored while one is on. A run that comes to nothing may have ended before this returns.
    void start(RunOrder order);

    /// Ends the run as the user's wish, and writes that into the log, also when the run has ended before.
    /// Nothing of it is shown or logged afterwards. An erase is ended by `requestCancel` only: it holds up
    /// the main thread.
    void cancel();

    /// Wants the run to be cancelled soon: an erase stops before its next disk. Callable from any thread.
    void requestCancel();

    /// Ends the run when the enclosure that it copies to is not there any more.
    void endIfEnclosureIsLost();

    /// Takes a notification of the copy engine or the disk tool; ignores any other. Callable from any thread.
    void answer(const Notification &notification);

    /// The copy thread has come to its end. Callable from any thread.
    void copyEnded();

    RunPhase phase() const;

    /// Between `start` and `ended`.
    bool isOn() const { return m_phase != RunPhase::Idle && m_phase != RunPhase::Ended; }

    /// As long as disks are worked on: by this run, or by the copy thread of one that was cancelled.
    bool isAtWork() const { return m_phase == RunPhase::Erasing || m_fileCopy.isRunning(); }

    /// False when the copy thread was still at work at the end, for all the patience.
    bool hasWorkerEnded() const { return m_hasWorkerEnded; }

    /// Another number with each start and each end.
    std::uint64_t number() const { return m_number; }

    /// The order of the run in hand, or of the last one.
    const RunOrder &order() const { return m_order; }

    /// The account of the run in hand, or of the last one; null before the first.
    RunReport *report() { return m_report.get(); }

    /// The same as it is by now; only after `start`.
    RunSummary summary() const;

    /// How far it is; only after `start`.
    const RunProgress &progress() const { return *m_progress; }

    /// The first problems, in words; only after `start`.
    const RunProblems &problems() const { return *m_problems; }

    /// Whether `start` has been called; the three above may be asked then.
    bool hasStarted() const { return m_report != nullptr; }

    FileCopy &fileCopy() { return m_fileCopy; }
    DiskUtil &diskTool() { return m_diskTool; }

private:
    void makeReport();
    void eraseWhenIdle(int looksLeft);
    void EraseDisk();
    void eraseFinished();
    void CopyFile();
    RunChoice presentChoice(const ScannedDevices &devices) const;
    void copyTo(const FolderJob &job);
    void refuse(const RunRefusal &refusal);
    void end(RunEnding ending);
    void later(std::chrono::milliseconds delay, std::function<void()> work);

    platform::Host &m_host;
    MainQueue &m_queue;
    const Clock &m_clock;
    LogData &m_log;
    const std::chrono::milliseconds m_patience;
    RunView &m_view;
    RunRelay m_relay;
    DiskUtil m_diskTool;

    std::atomic<RunPhase> m_phase{RunPhase::Idle};
    std::atomic<std::uint64_t> m_number{0};
    std::atomic<bool> m_isCancelWanted{false};
    bool m_isToolErasing = false;
    bool m_hasWorkerEnded = true;
    RunEnding m_ending = RunEnding::Copied;
    RunOrder m_order;
    std::optional<ErasePlan> m_erasePlan;      ///< while the disk tool is at work
    std::optional<PerBay<bool>> m_isNotErased; ///< once the run has erased
    std::shared_ptr<RunReport> m_report;
    std::shared_ptr<RunProblems> m_problems;
    std::optional<RunProgress> m_progress;
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    FileCopy m_fileCopy; // the last, so that its thread ends before what it uses
};

} // namespace orvana
