#include "duplicate/RunState.h"

#include "duplicate/RunLocks.h"
#include "foundation/DisplayPath.h"
#include "foundation/NotificationNames.h"
#include "foundation/WorkerThread.h"
#include "platform/Host.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

namespace orvana
{

namespace
{

double secondsOf(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double>(time).count();
}

// Null when the system has no thread for it: the volume is then synced at the end, on the run's own thread.
std::unique_ptr<WriteOutPump> pumpFor(platform::Folder &volume)
{
    try {
        return std::make_unique<WriteOutPump>(volume);
    } catch (const std::system_error &) {
        return nullptr;
    }
}

} // namespace

RunState::RunState(RunContext context, CopyJob job)
    : m_context(std::move(context)), m_job(std::move(job)),
      m_sources(m_context.host.volumeFiles().workingFolder()), m_sourceFiles(m_sources, m_job.SrcFileArray)
{
    m_destinations.reserve(m_job.DesFileArray.size());
    m_written.resize(m_job.DesFileArray.size());
    for (std::size_t i = 0; i < m_job.DesFileArray.size(); ++i) {
        auto &destination = m_destinations.emplace_back(m_context.host.volumeFiles(), m_job.DesFileArray[i]);
        if (i < m_job.expectedRoots.size())
            destination.expect(m_job.expectedRoots[i]);
        m_tallies.push_back(&report().destination(i));
        const bool waits = destination.isOpen() && destination.traits().writesOutInBackground;
        m_pumps.push_back(waits ? pumpFor(*destination.volume()) : nullptr);
    }

    const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
    m_helpers = std::min(processors, std::max<std::size_t>(1, m_destinations.size())) - 1;
}

void RunState::keepTo(std::shared_ptr<RunLocks> locks)
{
    m_locks = std::move(locks);
    for (std::size_t i = 0; i < m_destinations.size(); ++i) {
        if (m_locks->hasSource() && m_locks->hasDestination(i))
            continue;
        m_pumps[i].reset();
        m_destinations[i].refuse({platform::FileProblem::Busy, EBUSY});
    }
}

Lanes &RunState::lanes()
{
    if (!m_lanes)
        m_lanes = std::make_unique<Lanes>(m_destinations.size());
    return *m_lanes;
}

std::span<std::byte> RunState::block(int which)
{
    auto &memory = m_blocks[which];
    if (!memory)
        memory = std::make_unique_for_overwrite<std::byte[]>(BlockSize);
    return {memory.get(), BlockSize};
}

void RunState::post(const char *name, const char *key, Notification::Value value) const
{
    if (m_context.isCurrent())
        m_context.center.post(name, key, std::move(value));
}

void RunState::postMessage(const std::string &message) const
{
    post(notification::FileCopyMessage, notification::key::MessageInfo, message);
}

void RunState::postFileProgress(std::uint64_t done, std::uint64_t size) const
{
    const float fraction = static_cast<float>(done) / static_cast<float>(size);
    post(notification::FileProgress, notification::key::FileProgress, fraction * 100.0F);
}

void RunState::postTotalProgress(float value) const
{
    post(notification::TotalProgress, notification::key::TotalProrgress, value);
}

void RunState::countStartedFile(std::uint64_t bytes)
{
    ++m_indexOfBackup;
    report().fileStarted(bytes);
    // Without a count there is nothing to divide by; the value is then what the division gives.
    postTotalProgress(static_cast<float>(m_indexOfBackup) / static_cast<float>(m_job.totalFiles));
}

void RunState::cannotDuplicate(std::size_t index, const std::string &source, const platform::FileError &error)
{
    postMessage("Can`t Duplicate " + displayPath(source) + " to " + displayPath(m_job.DesFileArray[index]));
    fileFailed(index, source, error.reason());
}

void RunState::sourceChanged(std::size_t index, const std::string &source)
{
    if (std::exchange(m_copiedHere[index], char{0}) != 0)
        --tally(index).copied;
    fileFailed(index, source, "The source was written to meanwhile", ProblemKind::SourceChanged);
}

void RunState::startFile()
{
    m_sourceInHand.reset();
    m_failedHere.assign(destinationCount(), 0);
    m_copiedHere.assign(destinationCount(), 0);
}

void RunState::fileCopied(std::size_t index)
{
    m_copiedHere[index] = 1;
    ++tally(index).copied;
}

void RunState::takeBack(std::size_t index, const std::string &source, const platform::FileError &error)
{
    m_copiedHere[index] = 0;
    --tally(index).copied;
    cannotDuplicate(index, source, error);
}

void RunState::fileFailed(std::size_t index, const std::string &source, const std::string &reason,
                          ProblemKind kind)
{
    if (index < m_failedHere.size())
        m_failedHere[index] = 1;
    report().failed(index, source, reason, kind);
}

void RunState::noteSync(std::size_t index, const WriteOutPump::Outcome &outcome)
{
    tally(index).syncNanoseconds = outcome.nanoseconds;
    if (outcome.result)
        noteEnd(index);
    else
        report().notOnDisk(index, outcome.result.error().reason());
}

// The bytes are on their way, or arrived; but they count only in the place where the user looks for them.
void RunState::noteEnd(std::size_t index)
{
    auto &destination = m_destinations[index];
    const auto moved = destination.movedFolder(m_sources);
    if (moved)
        report().notOnDisk(index, displayPath(*moved) + " was moved away in mid-run");
    else if (destination.traits().isMemory)
        report().inMemory(index);
    else
        report().onDisk(index);
}

void RunState::finishDestinations()
{
    const auto copied = std::chrono::steady_clock::now();
    for (auto &destination : m_destinations)
        destination.protectFolders();
    for (const auto &pump : m_pumps) {
        if (pump)
            pump->startFinalSync();
    }
    for (std::size_t i = 0; i < m_destinations.size(); ++i) {
        if (m_pumps[i]) {
            const auto outcome = m_pumps[i]->waitForFinalSync(WorkerThread::currentToken());
            WorkerThread::exitIfCancelled();
            noteSync(i, *outcome);
        } else if (m_destinations[i].isOpen()) {
            noteSync(i, {m_destinations[i].volume()->syncVolume(), 0});
        } else {
            report().notOnDisk(i, m_destinations[i].openError().reason());
        }
    }
    m_pumps.clear();
    for (auto &destination : m_destinations)
        destination.close();
    const auto end = std::chrono::steady_clock::now();
    report().phaseTimes({.copy = secondsOf(copied - m_start - m_verifyTime),
                         .verify = secondsOf(m_verifyTime),
                         .sync = secondsOf(end - copied)});
}

} // namespace orvana
