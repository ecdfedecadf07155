#include "duplicate/run/LineRun.h"

#include "duplicate/report/RunReport.h"
#include "duplicate/report/Verdict.h"
#include "foundation/DisplayPath.h"
#include "foundation/MainQueue.h"
#include "foundation/NotificationNames.h"
#include "platform/Host.h"

#include <algorithm>

namespace orvana
{

namespace
{

// Why a disk got no copy at all.
std::string reasonWithoutCopy(const RunSummary &summary, const std::string &slot)
{
    for (const auto &disk : summary.disks) {
        if (disk.bay == slot && disk.outcome != DiskOutcome::Erased)
            return disk.reason;
    }
    if (!summary.note.empty())
        return summary.note;
    if (summary.ending == RunEnding::Cancelled)
        return "cancelled before its copy";
    return "the run came to no copy";
}

std::string reasonOf(const DestinationSummary &destination, Verdict verdict)
{
    std::string reason = wordOf(verdict);
    if (destination.failed > 0)
        reason += ", " + std::to_string(destination.failed) + " failed";
    if (destination.mismatched > 0)
        reason += ", " + std::to_string(destination.mismatched) + " differ";
    if (destination.unverified > 0)
        reason += ", " + std::to_string(destination.unverified) + " not compared";
    if (destination.isSuspect)
        reason += ", the disk keeps what is written to it wrongly";
    return destination.reason.empty() ? reason : reason + ": " + destination.reason;
}

// All disks of a line are to hold the same. A source that was changed in between is not noticed by a run.
std::string differenceTo(const std::vector<LineEntry> &earlier, const LineResult &result)
{
    for (const auto &entry : earlier) {
        if (!entry.result || entry.result->verdict != LineVerdict::Passed)
            continue;
        if (entry.result->files == result.files && entry.result->bytes == result.bytes)
            return {};
        return "it holds " + std::to_string(result.files) + " files with " + std::to_string(result.bytes) +
               " bytes, the disks before it " + std::to_string(entry.result->files) + " files with " +
               std::to_string(entry.result->bytes) + " bytes";
    }
    return {};
}

void judge(LineResult &result, const DestinationSummary &destination, const RunSummary &summary,
           const std::vector<LineEntry> &earlier)
{
    const auto verdict = verdictOf(destination, summary);
    const bool isDone = summary.ending == RunEnding::Copied && isWhole(destination) &&
                        !destination.isSuspect && destination.durability != Durability::NotKnown;
    if (!isDone) {
        result.reason = reasonOf(destination, verdict);
        return;
    }
    result.verdict = LineVerdict::NotProven;
    if (verdict != Verdict::Verified)
        result.reason = reasonOf(destination, verdict) + ", not verified from the disk";
    else if (destination.durability != Durability::OnDisk)
        result.reason = "not known to be on a disk";
    else if (!summary.isRecorded)
        result.reason = "log or report could not be written";
    else
        result.reason = differenceTo(earlier, result);
    if (result.reason.empty())
        result.verdict = LineVerdict::Passed;
}

} // namespace

LineResult resultOf(const RunSummary &summary, Bay bay, const std::vector<LineEntry> &earlier)
{
    LineResult result;
    const auto slot = slotNameOf(bay);
    result.ended = summary.ended;
    const auto found =
        std::find_if(summary.destinations.begin(), summary.destinations.end(),
                     [&](const DestinationSummary &destination) { return destination.disk.bay == slot; });
    if (found == summary.destinations.end()) {
        result.reason = reasonWithoutCopy(summary, slot);
        return result;
    }
    result.files = found->copied;
    result.bytes = summary.sourceBytes;
    if (!found->manifests.empty())
        result.manifest = found->manifests.front().digestName + " " + found->manifests.front().digest;
    judge(result, *found, summary, earlier);
    return result;
}

LineRun::LineRun(const Surroundings &surroundings, std::vector<Disk> disks,
                 std::function<void(LineRun &)> ended)
    : m_surroundings(surroundings), m_disks(std::move(disks)), m_ended(std::move(ended)),
      m_log(surroundings.logFolder, surroundings.clock), m_run({.host = surroundings.host,
                                                                .center = m_center,
                                                                .queue = surroundings.queue,
                                                                .clock = surroundings.clock,
                                                                .log = m_log,
                                                                .patience = surroundings.patience,
                                                                .stateFolder = surroundings.stateFolder,
                                                                .isStopWanted = surroundings.isStopWanted},
                                                               *this)
{
    for (const char *name :
         {notification::BackupFinish, notification::FileCopyMessage, notification::DiskMessage,
          notification::EraseDiskFinish, notification::FileProgress, notification::TotalProgress})
        m_subscriptions.push_back(
            m_center.subscribe(name, [this](const Notification &message) { m_run.answer(message); }));
}

LineRun::~LineRun()
{
    *m_isAlive = false;
}

void LineRun::start(RunOrder order)
{
    m_log.initLogFile();
    m_run.start(std::move(order));
}

std::optional<RunStatus> LineRun::status()
{
    const auto phase = m_run.phase();
    return phase == RunPhase::Copying || phase == RunPhase::Syncing
               ? std::optional(m_monitor.look(m_run.progress()))
               : std::nullopt;
}

std::optional<std::size_t> LineRun::destinationIn(Bay bay) const
{
    const auto &all = m_run.destinations();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto &destination) { return destination.bay == bay; });
    return found == all.end() ? std::nullopt : std::optional<std::size_t>(found - all.begin());
}

// The start-up disk or a RAID set may have come into the enclosure during an erase.
std::optional<EnclosureRefusal> LineRun::refusalOfCopy(const ChosenEnclosure &chosen)
{
    const auto found = devices();
    const auto enclosure = chosenEnclosure(found, chosen);
    return enclosure ? refusalOfStart(**enclosure, found) : std::optional(enclosure.error());
}

// The object may be destroyed when the line has heard of the end, so it hears of it later.
void LineRun::ended(const RunSummary &)
{
    m_surroundings.queue.async([this, isAlive = m_isAlive, ended = m_ended] {
        if (*isAlive)
            ended(*this);
    });
}

} // namespace orvana
