#pragma once

#include "duplicate/line/LineEntry.h"
#include "duplicate/run/DuplicationRun.h"
#include "duplicate/run/RunMonitor.h"
#include "foundation/NotificationCenter.h"
#include "log/LogData.h"

#include <functional>
#include <memory>
#include <vector>

namespace orvana
{

/// Returns what a line says of the disk in this bay after its run. `earlier` are the line's disks so far: all
/// that passed hold the same number of files and bytes.
LineResult resultOf(const RunSummary &summary, Bay bay, const std::vector<LineEntry> &earlier);

/// One run of a line: the disks that started together, with a notification center, an engine and a log of
/// its own. Main thread only.
class LineRun final : public RunView
{
public:
    struct Disk
    {
        Bay bay = Bay::A;
        std::int64_t number = 0;
        DiskFingerprint fingerprint;
    };

    struct Surroundings
    {
        platform::Host &host;
        MainQueue &queue;
        const Clock &clock;
        std::string logFolder;
        std::string stateFolder;
        std::chrono::milliseconds patience{0};
        std::shared_ptr<const std::atomic<bool>> isStopWanted; ///< read by the disk utility's loop
        std::function<ScannedDevices()> look;                  ///< scans the machine anew
        std::function<ScannedDevices()> devices;               ///< what the last scan found
    };

    /// `ended` is called once, from the queue, and may destroy this object.
    LineRun(const Surroundings &surroundings, std::vector<Disk> disks, std::function<void(LineRun &)> ended);
    ~LineRun() override;

    void start(RunOrder order);
    void cancel() { m_run.requestCancel(); }
    void endIfEnclosureIsLost() { m_run.endIfEnclosureIsLost(); }

    const std::vector<Disk> &disks() const { return m_disks; }
    RunPhase phase() const { return m_run.phase(); }
    RunSummary summary() const { return m_run.summary(); }
    const RunProblems &problems() const { return m_run.problems(); }

    /// Returns how far the run is; nullopt before its copy.
    std::optional<RunStatus> status();

    /// Returns the place of the bay's disk in `status().destinations`, or nullopt.
    std::optional<std::size_t> destinationIn(Bay bay) const;

    /// False when a disk does not answer, so that this object must be kept.
    bool hasWorkerEnded() const { return m_run.hasWorkerEnded(); }

    void setProgressMsg(const std::string &) override {}
    void setFileProgerss(float) override {}
    void setTotalProgerss(float) override {}
    void BackupFinish() override { m_run.copyEnded(); }

private:
    ScannedDevices devices() const override { return m_surroundings.devices(); }
    void lookAtAllDevices() override { (void)m_surroundings.look(); }
    void lookAtEnclosures() override { (void)m_surroundings.look(); }
    std::optional<EnclosureRefusal> refusalOfCopy(const ChosenEnclosure &chosen) override;
    void refused(const RunRefusal &refusal) override { m_run.report()->note(refusalText(refusal)); }
    void ended(const RunSummary &summary) override;

    const Surroundings m_surroundings;
    const std::vector<Disk> m_disks;
    const std::function<void(LineRun &)> m_ended;
    const std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    LogData m_log;
    RunMonitor m_monitor;
    NotificationCenter m_center;
    DuplicationRun m_run;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
};

} // namespace orvana
