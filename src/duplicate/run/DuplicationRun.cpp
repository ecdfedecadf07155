#include "duplicate/run/DuplicationRun.h"

#include "duplicate/report/RunReport.h"
#include "duplicate/run/DiskReport.h"
#include "duplicate/run/EvidenceChoice.h"
#include "duplicate/run/JournalChoice.h"
#include "foundation/Clock.h"
#include "foundation/MainQueue.h"
#include "foundation/NotificationNames.h"
#include "log/LogData.h"
#include "platform/Host.h"

#include <algorithm>
#include <utility>

namespace orvana
{

namespace
{

constexpr std::chrono::milliseconds BetweenLooks{100};
constexpr int LooksAtAnOldWorker = 100;

} // namespace

std::string refusalText(const RunRefusal &refusal)
{
    return std::visit([](const auto &reason) { return refusalText(reason); }, refusal);
}

DuplicationRun::DuplicationRun(const Surroundings &surroundings, RunView &view)
    : m_host(surroundings.host), m_queue(surroundings.queue), m_clock(surroundings.clock),
      m_log(surroundings.log), m_patience(surroundings.patience), m_stateFolder(surroundings.stateFolder),
      m_view(view), m_relay(m_log, view), m_diskTool(m_host.launcher(), surroundings.center),
      m_fileCopy(m_host, surroundings.center)
{
    m_diskTool.setGoesOn([this, stop = surroundings.isStopWanted] {
        if (stop && *stop)
            m_isCancelWanted = true;
        return !m_isCancelWanted;
    });
}

DuplicationRun::~DuplicationRun()
{
    *m_isAlive = false;
}

// Work of a run that has ended meanwhile is dropped.
void DuplicationRun::later(std::chrono::milliseconds delay, std::function<void()> work)
{
    m_queue.after(delay, [this, isAlive = m_isAlive, run = m_number.load(), work = std::move(work)] {
        if (*isAlive && run == m_number)
            work();
    });
}

RunPhase DuplicationRun::phase() const
{
    const auto phase = m_phase.load();
    return phase == RunPhase::Copying && m_report->isSyncing() ? RunPhase::Syncing : phase;
}

void DuplicationRun::start(RunOrder order)
{
    if (isOn())
        return;
    ++m_number;
    m_order = std::move(order);
    m_hasWorkerEnded = true;
    m_erasePlan.reset();
    m_isNotErased.reset();
    m_destinations.clear();
    m_healthBefore.clear();
    m_phase = m_order.choice.erase ? RunPhase::Erasing : RunPhase::Looking;
    m_fileCopy.setBVerifyFiles(m_order.choice.verify);
    m_relay.runStarts();
    makeReport();
    if (m_isCancelWanted)
        cancel(); // before anything is touched
    else if (m_order.choice.erase)
        eraseWhenIdle(LooksAtAnOldWorker);
    else
        CopyFile();
}

void DuplicationRun::makeReport()
{
    m_report = std::make_shared<RunReport>(m_log.folder(), m_log.stamp(), m_clock, m_log.number());
    m_problems = std::make_shared<RunProblems>();
    // A thread that is left behind may outlive this object.
    m_report->setProblemListener(
        [this, isAlive = m_isAlive, problems = m_problems](const RunProblem &problem) {
            problems->add(problem);
            if (*isAlive)
                m_view.problem(problem);
        });
    m_progress.emplace(0, 0, m_order.choice.verify, m_report);
}

// A cancelled run may still be writing its last block. The wait also gives a window the time to be painted,
// because the erase holds up the main thread.
void DuplicationRun::eraseWhenIdle(int looksLeft)
{
    later(BetweenLooks, [this, looksLeft] {
        if (!m_fileCopy.isRunning())
            EraseDisk();
        else if (looksLeft > 0)
            eraseWhenIdle(looksLeft - 1);
        else
            refuse(OrderRefusal::DiskDoesNotAnswer);
    });
}

void DuplicationRun::EraseDisk()
{
    // The records may be old: nobody reports that a disk was pulled and another disk came. Only disks that
    // are still those of the order are erased.
    const auto run = m_number.load(); // the view may cancel the run in any of its functions
    m_view.lookAtAllDevices();
    const auto devices = m_view.devices();
    if (run != m_number)
        return;
    auto choice = m_order.choice;
    choice.enclosure = whereItIsNow(devices, choice.enclosure);
    auto plan = planErase(devices, choice, userHomeOf(m_host), eraseFormat());
    if (!plan && plan.error() != EnclosureRefusal::NoneChosen)
        return refuse(plan.error());
    std::vector<DiskUtilInfo> disks;
    if (plan) {
        if (!m_order.erase.disks.empty() && !isStillThere(m_host, devices, m_order.source))
            return refuse(OrderRefusal::SourceGone);
        m_erasePlan = eraseWithin(m_order, std::move(*plan));
        for (const auto &disk : m_erasePlan->disks)
            disks.push_back(disk.info);
    }
    m_diskTool.setSparedDisks(m_order.choice.sourceDisks);
    endJournalsOf(m_host, disks, m_stateFolder);
    m_diskTool.setDiskArray(std::move(disks));
    m_isToolErasing = true;
    m_diskTool.startEraseDiskThread();
    if (m_isToolErasing)
        eraseFinished(); // the tool was stopped, and posted no "EraseDiskFinish"
}

void DuplicationRun::eraseFinished()
{
    m_isToolErasing = false;
    if (m_erasePlan) {
        reportErase(*m_report, *m_erasePlan, m_diskTool.results());
        m_isNotErased = baysNotErased(*m_erasePlan, m_diskTool.results());
    }
    m_erasePlan.reset();
    m_phase = RunPhase::Looking;
    const auto run = m_number.load();
    if (!m_isCancelWanted)
        m_view.lookAtEnclosures();
    if (run != m_number)
        return;
    if (m_isCancelWanted)
        cancel();
    else
        CopyFile();
}

// The run keeps to the decisions of its start. But the enclosure may have another place in the picker by now,
// and an erase has given the volumes new names.
RunChoice DuplicationRun::presentChoice(const ScannedDevices &devices) const
{
    auto choice = m_order.choice;
    choice.enclosure = whereItIsNow(devices, choice.enclosure);
    if (!m_isNotErased)
        return choice;
    choice.isNotErased = *m_isNotErased;
    if (const auto enclosure = chosenEnclosure(devices, choice.enclosure))
        choice.names = volumeNamesOf(**enclosure, userHomeOf(m_host));
    return choice;
}

void DuplicationRun::CopyFile()
{
    if (m_order.folders)
        return copyTo(*m_order.folders);
    const auto run = m_number.load();
    const bool hasSomethingToCopy = m_view.hasSomethingToCopy();
    if (run != m_number)
        return;
    if (!hasSomethingToCopy)
        return end(RunEnding::NothingToCopy);
    const auto devices = m_view.devices();
    const auto choice = presentChoice(devices);
    if (const auto refusal = m_view.refusalOfCopy(choice.enclosure))
        return refuse(*refusal);
    auto plan = planDestinations(devices, choice, userHomeOf(m_host));
    if (!plan)
        return refuse(plan.error());
    if (!isStillThere(m_host, devices, m_order.source)) {
        const bool hasErased = m_isNotErased && !m_diskTool.results().empty();
        return refuse(hasErased ? OrderRefusal::SourceGoneSinceTheErase : OrderRefusal::SourceGone);
    }
    refuseWhatIsNotMounted(m_host, *plan);
    // The copy thread of our own cancelled run may still hold locks. The next copy thread waits for it.
    if (!m_fileCopy.isRunning())
        refuseWhatIsInUse(m_host, *plan);
    plan = destinationsWithin(m_order, std::move(*plan));
    reportDestinations(*m_report, *plan, choice);
    m_view.disksLeftOut(plan->refusals);
    if (run != m_number)
        return;
    if (plan->destinations.empty())
        return end(RunEnding::NoDestination);
    m_destinations = plan->destinations;
    if (choice.settings.health)
        m_healthBefore = healthOf(m_destinations, m_host.health());
    m_report->describe(disksOf(m_destinations, m_healthBefore));
    copyTo({boundToFolders(m_host, {m_order.selection, choice.sourceRoot, plan->roots(), {}, 0}), nullptr});
}

void DuplicationRun::copyTo(const FolderJob &job)
{
    auto task = CopyTask{job.job, m_report, job.locks};
    task.job.totalFiles = m_order.totalFiles;
    task.manner = m_order.choice.settings.manner;
    task.evidence = evidenceOf(m_order, task.job, m_destinations, m_log, m_clock);
    if (!m_stateFolder.empty())
        task.journal = journalOf(m_order, task.job, m_view.devices(), m_stateFolder);
    m_relay.jobHandedOver(task.job.SrcDiskPath, task.job.DesFileArray);
    const auto run = m_number.load();
    m_view.copyStarts(task.job);
    if (run != m_number)
        return;
    if (m_isCancelWanted)
        return cancel();
    m_phase = RunPhase::Copying;
    m_progress.emplace(m_order.totalFiles, m_order.totalBytes, m_order.choice.verify, m_report);
    m_fileCopy.start(std::move(task));
}

void DuplicationRun::refuse(const RunRefusal &refusal)
{
    const auto run = m_number.load();
    m_view.refused(refusal);
    if (run == m_number)
        end(RunEnding::Refused);
}

void DuplicationRun::answer(const Notification &notification)
{
    m_relay.relay(notification);
    if (notification.name == notification::EraseDiskFinish && m_isToolErasing)
        eraseFinished();
}

void DuplicationRun::copyEnded()
{
    later(std::chrono::milliseconds(0), [this] {
        if (m_phase == RunPhase::Copying)
            end(RunEnding::Copied);
    });
}

void DuplicationRun::cancel()
{
    if (m_isToolErasing) {
        m_isCancelWanted = true; // the tool stops before its next disk, and the run ends then
        return;
    }
    m_relay.userCancelled();
    if (isOn())
        end(RunEnding::Cancelled);
}

void DuplicationRun::requestCancel()
{
    m_isCancelWanted = true;
    later(std::chrono::milliseconds(0), [this] {
        if (isOn())
            cancel();
    });
}

void DuplicationRun::endIfEnclosureIsLost()
{
    const auto &uid = m_order.choice.enclosure.uid;
    if (m_phase != RunPhase::Copying || !uid || !m_fileCopy.isRunning())
        return;
    for (const auto &enclosure : m_view.devices().tbArray) {
        if (enclosure->uid() == uid)
            return;
    }
    end(RunEnding::EnclosureLost);
}

void DuplicationRun::end(RunEnding ending)
{
    const bool hasCopied = m_phase == RunPhase::Copying;
    const bool isCancelled = ending == RunEnding::Cancelled;
    m_phase = RunPhase::Ended;
    ++m_number;
    m_isCancelWanted = false;
    m_order.folders.reset(); // and with them the locks, once the copy thread has let go of its own
    m_fileCopy.stopCopyThread();
    if (m_patience.count() > 0 && hasCopied)
        m_hasWorkerEnded = m_fileCopy.waitForEnd(m_patience);
    if (!hasCopied) {
        m_progress.emplace(0, 0, m_order.choice.verify, m_report);
        m_report->begin(m_order.choice.sourceRoot, {}, m_order.choice.verify);
    }
    // After a copy, the copy thread writes the report, with the last of its counts.
    if (!hasCopied || (isCancelled && m_patience.count() > 0))
        m_report->finish(isCancelled ? RunOutcome::Cancelled : RunOutcome::Finished);
    if (ending == RunEnding::Copied)
        m_relay.runFinished();
    m_ending = ending;
    if (hasCopied && m_order.choice.settings.health && !m_fileCopy.isRunning())
        reportHealthAfter(*m_report, m_destinations, m_healthBefore, m_host.health());
    if (ending == RunEnding::Copied && m_order.choice.settings.ejectAtEnd)
        ejectWholeDisks();
    m_view.ended(summary());
}

// A disk that lacks something stays, so that one sees it.
void DuplicationRun::ejectWholeDisks()
{
    m_diskTool.setSparedDisks(m_order.choice.sourceDisks);
    m_diskTool.setDiskArray(wholeDisks(m_destinations, summary()));
    m_diskTool.EjectDisks();
    m_diskTool.setDiskArray({});
    std::vector<DiskResult> failed;
    for (const auto &disk : m_diskTool.results()) {
        if (!disk.succeeded)
            failed.push_back(disk);
    }
    if (!failed.empty())
        m_view.notEjected(failed);
}

RunSummary DuplicationRun::summary() const
{
    auto summary = m_report->summary();
    summary.ending = m_ending;
    summary.hasErased = m_isNotErased.has_value();
    summary.isRecorded = m_report->isWritten() && !m_log.hasLostRecords();
    return summary;
}

} // namespace orvana
