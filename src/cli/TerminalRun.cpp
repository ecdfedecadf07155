#include "cli/TerminalRun.h"

#include "cli/CopyPlan.h"
#include "cli/DuplicatePlan.h"
#include "cli/Terminal.h"
#include "foundation/DisplayPath.h"
#include "foundation/NotificationNames.h"
#include "platform/Account.h"
#include "platform/Host.h"
#include "platform/posix/PrivateFolder.h"

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

TerminalRun::TerminalRun(platform::Host &host, Terminal &terminal, const RunOptions &options)
    : m_terminal(terminal), m_log(logFolderOf(host, options.logFolder), m_clock),
      m_display(options.json ? makeJsonDisplay(terminal) : makeTextDisplay(terminal)),
      m_run({.host = host,
             .center = m_center,
             .queue = m_queue,
             .clock = m_clock,
             .log = m_log,
             .patience = PatienceAtTheEnd,
             .stateFolder = platform::stateFolder(host.account().homeFolder())},
            *this),
      m_cancelRequest([this] {
          m_isCancelled = true;
          m_run.requestCancel();
      })
{
    for (const char *name :
         {notification::BackupFinish, notification::FileCopyMessage, notification::DiskMessage,
          notification::EraseDiskFinish, notification::FileProgress, notification::TotalProgress})
        m_subscriptions.push_back(
            m_center.subscribe(name, [this](const Notification &message) { m_run.answer(message); }));
    if (options.json)
        return;
    m_subscriptions.push_back(m_center.subscribe(notification::DiskMessage, [this](const Notification &disk) {
        m_terminal.print(disk.text(notification::key::DiskMsgInfo));
    }));
}

ExitStatus TerminalRun::run(RunOrder order, DeviceScan *scan)
{
    m_scan = scan;
    m_log.initLogFile();
    m_run.start(std::move(order));
    if (!m_status)
        m_queue.run();
    return *m_status;
}

ScannedDevices TerminalRun::devices() const
{
    return m_scan ? m_scan->devices() : ScannedDevices();
}

void TerminalRun::lookAtAllDevices()
{
    if (m_scan)
        m_scan->scan();
}

void TerminalRun::lookAtEnclosures()
{
    if (m_scan)
        m_scan->scanEnclosures();
}

// The start-up disk or a RAID set may have come into the enclosure during an erase.
std::optional<EnclosureRefusal> TerminalRun::refusalOfCopy(const ChosenEnclosure &chosen)
{
    const auto found = devices();
    const auto enclosure = chosenEnclosure(found, chosen);
    return enclosure ? refusalOfStart(**enclosure, found) : std::optional(enclosure.error());
}

void TerminalRun::copyStarts(const CopyJob &job)
{
    std::vector<std::string> bays;
    for (const auto &destination : m_run.destinations())
        bays.push_back(slotNameOf(destination.bay));
    m_monitor = {};
    m_display->started(job, m_run.order(), bays, m_log.logFilePath());
    m_queue.after(BetweenUpdates, [this] { update(); });
}

void TerminalRun::update()
{
    if (m_status)
        return;
    m_display->progress(m_monitor.look(m_run.progress()));
    m_queue.after(BetweenUpdates, [this] { update(); });
}

// Returns the refusal in the terminal's words, which name the source. The report gets the same words.
Refusal TerminalRun::refusalOf(const RunRefusal &refusal) const
{
    if (const auto *enclosure = std::get_if<EnclosureRefusal>(&refusal))
        return cli::refusalOf(*enclosure);
    switch (std::get<OrderRefusal>(refusal)) {
    case OrderRefusal::SourceGone:
        return sourceGone(m_run.order().source, SoFar::Untouched);
    case OrderRefusal::SourceGoneSinceTheErase:
        return sourceGone(m_run.order().source, SoFar::Erased);
    case OrderRefusal::NothingTicked:
    case OrderRefusal::DiskDoesNotAnswer:
    case OrderRefusal::ErasesAndGoesOn:
        break;
    }
    return {Refused, refusalText(refusal)};
}

void TerminalRun::refused(const RunRefusal &refusal)
{
    const auto words = refusalOf(refusal);
    m_refusalStatus = words.status;
    m_terminal.printError("plurimoctl: " + words.reason);
    m_run.report()->note(words.reason);
}

void TerminalRun::notEjected(const std::vector<DiskResult> &disks)
{
    m_hasFailedEject = true;
    for (const auto &disk : disks)
        m_terminal.printError("plurimoctl: " + displayPath(disk.disk.diskPath) +
                              " could not be ejected: " + disk.reason);
}

ExitStatus TerminalRun::statusOf(const RunSummary &summary) const
{
    switch (summary.ending) {
    case RunEnding::Copied:
        return isAllDone(summary) && summary.isRecorded && !m_hasFailedEject ? AllDone : SomethingFailed;
    case RunEnding::Cancelled:
        return Cancelled;
    case RunEnding::Refused:
        return m_refusalStatus;
    case RunEnding::NothingToCopy:
    case RunEnding::NoDestination:
    case RunEnding::EnclosureLost:
        return NotThere;
    }
    return SomethingFailed;
}

void TerminalRun::ended(const RunSummary &summary)
{
    if (summary.ending == RunEnding::NoDestination)
        m_terminal.printError("plurimoctl: no destination");
    m_status = statusOf(summary);
    m_display->ended(*m_status, m_run.progress(), *m_run.report(), m_log.logFilePath());
    for (const auto &lines : {diskLines(summary), notOnDiskLines(summary), healthLines(summary)}) {
        for (const auto &line : lines)
            m_terminal.printError(line);
    }
    sayWhatIsLost();
    if (!m_run.hasWorkerEnded()) {
        // The copy thread may hang in the kernel for ever, and it uses objects that a return from here would
        // destroy.
        m_terminal.printError("plurimoctl: a disk does not answer; leaving without it");
        std::quick_exit(*m_status);
    }
    m_queue.quit();
}

void TerminalRun::sayWhatIsLost()
{
    if (m_log.hasLostRecords())
        m_terminal.printError("plurimoctl: the run log could not be written to " +
                              displayPath(m_log.logFilePath()));
    if (!m_run.report()->isWritten())
        m_terminal.printError("plurimoctl: the run report could not be written to " +
                              displayPath(m_log.folder()));
}

} // namespace orvana::cli
