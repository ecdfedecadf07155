#pragma once

#include "duplicate/disktool/DiskUtil.h"
#include "duplicate/engine/FileCopy.h"
#include "duplicate/plan/RunOrder.h"
#include "duplicate/report/RunProblems.h"
#include "duplicate/run/RunProgress.h"
#include "duplicate/run/RunRelay.h"
#include "platform/DiskHealth.h"

#include <atomic>
#include <chrono>
#include <variant>

namespace orvana
{

class Clock;
class MainQueue;

/// The state of a run. `Looking` is the moment before the copy in which the destinations are decided.
enum class RunPhase { Idle, Erasing, Looking, Copying, Syncing, Ended };

/// Why a run that was started copies nothing.
using RunRefusal = std::variant<EnclosureRefusal, OrderRefusal>;

std::string refusalText(const RunRefusal &refusal);

/// The interface between a run and the program around it. The run calls it on the main thread, except
/// `problem` and the functions of `RunDisplay`.
class RunView : public RunDisplay
{
public:
    /// Returns the devices that were found last.
    virtual ScannedDevices devices() const = 0;

    /// Finds all devices anew. Called right before disks are erased.
    virtual void lookAtAllDevices() = 0;

    /// Finds the enclosures anew. Called after disks were erased.
    virtual void lookAtEnclosures() = 0;

    /// Called right before the destinations are decided. If it returns false, the run ends without a copy.
    virtual bool hasSomethingToCopy() { return true; }

    /// Returns a reason of the program's own not to copy to the enclosure, as the devices are now.
    virtual std::optional<EnclosureRefusal> refusalOfCopy(const ChosenEnclosure &) { return std::nullopt; }

    /// Takes the disks that get no copy. A disk may be named more than once in a run.
    virtual void disksLeftOut(const std::vector<DiskRefusal> &) {}

    /// Called right before the copy thread is given this job.
    virtual void copyStarts(const CopyJob &) {}

    /// Takes a problem with a file on a destination. Called on the copy thread.
    virtual void problem(const RunProblem &) {}

    /// Called when the run copies nothing, with the reason. `ended` follows.
    virtual void refused(const RunRefusal &refusal) = 0;

    /// Takes the disks that could not be ejected at the end of a run that ejects its disks. `ended` follows.
    virtual void notEjected(const std::vector<DiskResult> &) {}

    /// Called when the run is over: exactly once after each `start`, unless the run object is destroyed
    /// before.
    virtual void ended(const RunSummary &summary) = 0;
};

/// One duplication from Start to its end: erase, rescan, plan, copy, sync, report. It owns the workers and
/// the account of the run. Window and terminal start it and show it, and keep no state of the run themselves.
///
/// Main thread only, unless a function says otherwise. After its end the next run may be started with the
/// same object. Destroying the object cancels the run, and waits for the copy thread at most ten seconds.
class DuplicationRun
{
public:
    /// The objects that a run works with. All of them outlive the run.
    struct Surroundings
    {
        platform::Host &host;
        NotificationCenter &center;
        MainQueue &queue;
        const Clock &clock;
        LogData &log;
        /// How long the end of a run waits for the copy thread. With 0 the thread of a cancelled run writes
        /// the report after `ended`.
        std::chrono::milliseconds patience{0};
        // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
        std::string stateFolder{}; ///< gets the journals of runs; empty for none
        /// Once true, the erase stops before its next disk, even while it holds up the main thread. May be
        /// null.
        // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
        std::shared_ptr<const std::atomic<bool>> isStopWanted{};
    };

    DuplicationRun(const Surroundings &surroundings, RunView &view);
    DuplicationRun(const DuplicationRun &) = delete;
    DuplicationRun &operator=(const DuplicationRun &) = delete;
    ~DuplicationRun();

    /// Starts a run. Ignored while a run is on. A run that copies nothing may have ended before this function
    /// returns.
    void start(RunOrder order);

    /// Ends the run at the user's wish, and writes this into the log, even when the run has ended before.
    /// Afterwards no message of the copy thread is logged. An erase stops before its next disk, and the run
    /// ends then.
    void cancel();

    /// Asks to cancel the run soon, as `cancel` does. A run that is started after the request ends at once.
    /// Callable from any thread.
    void requestCancel();

    /// Ends the run when the enclosure that it copies to is not there any more.
    void endIfEnclosureIsLost();

    /// Handles a notification of the copy engine or the disk tool; ignores any other. Callable from any
    /// thread.
    void answer(const Notification &notification);

    /// Called when the copy thread has come to its end. Callable from any thread.
    void copyEnded();

    RunPhase phase() const;

    /// True between `start` and `ended`.
    bool isOn() const { return m_phase != RunPhase::Idle && m_phase != RunPhase::Ended; }

    /// True while disks are worked on, by this run or by the copy thread of a cancelled run.
    bool isAtWork() const { return m_phase == RunPhase::Erasing || m_fileCopy.isRunning(); }

    /// False when the copy thread was still at work at the end of the run, after the wait of `patience`.
    bool hasWorkerEnded() const { return m_hasWorkerEnded; }

    /// Returns a number that changes with each start and each end of a run.
    std::uint64_t number() const { return m_number; }

    /// Returns the order of the current run, or of the last run.
    const RunOrder &order() const { return m_order; }

    /// Returns the account of the current run, or of the last run; null before the first run.
    RunReport *report() { return m_report.get(); }
    std::shared_ptr<const RunReport> sharedReport() const { return m_report; }

    /// Returns the account as a summary, as it is by now. Call only after `start`.
    RunSummary summary() const;

    /// Returns how far the run is. Call only after `start`.
    const RunProgress &progress() const { return *m_progress; }

    /// Returns the problems in groups. Call only after `start`.
    const RunProblems &problems() const { return *m_problems; }

    /// True once `start` has been called. Only then call `summary`, `progress` and `problems`.
    bool hasStarted() const { return m_report != nullptr; }

    /// Returns the disks that the run copies to, in the order of its report. Empty before the copy, and for a
    /// run that copies to folders.
    const std::vector<PlannedDestination> &destinations() const { return m_destinations; }

    /// Returns the folder of the journals; empty if runs keep none.
    const std::string &stateFolder() const { return m_stateFolder; }

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
    void ejectWholeDisks();
    void end(RunEnding ending);
    void later(std::chrono::milliseconds delay, std::function<void()> work);

    platform::Host &m_host;
    MainQueue &m_queue;
    const Clock &m_clock;
    LogData &m_log;
    const std::chrono::milliseconds m_patience;
    const std::string m_stateFolder;
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
    std::optional<PerBay<bool>> m_isNotErased; ///< set once the run has erased
    std::vector<PlannedDestination> m_destinations;
    std::vector<platform::DiskHealth> m_healthBefore; ///< by destination; empty if they are not asked
    std::shared_ptr<RunReport> m_report;
    std::shared_ptr<RunProblems> m_problems;
    std::optional<RunProgress> m_progress;
    // Read on any thread. The pointer itself never changes.
    const std::shared_ptr<std::atomic<bool>> m_isAlive = std::make_shared<std::atomic<bool>>(true);
    FileCopy m_fileCopy; // the last member, so that its thread ends before the members that it uses
};

} // namespace orvana
