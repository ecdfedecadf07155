#include "duplicate/engine/RunContext.h"

#include "duplicate/engine/RunLocks.h"
#include "foundation/DisplayPath.h"
#include "foundation/NotificationNames.h"
#include "foundation/WorkerThread.h"
#include "platform/Host.h"

#include <algorithm>
#include <cerrno>
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

} // namespace

RunContext::RunContext(RunSetup setup, CopyJob job)
    : m_setup(std::move(setup)), m_job(std::move(job)), m_sources(m_setup.host.volumeFiles().workingFolder()),
      m_sourceFiles(m_sources, m_job.SrcFileArray)
{
    for (std::size_t i = 0; i < m_job.DesFileArray.size(); ++i) {
        auto &target = m_targets.emplace_back(i, m_setup.host.volumeFiles(), m_job.DesFileArray[i],
                                              report().destination(i));
        if (i < m_job.expectedRoots.size())
            target.destination.expect(m_job.expectedRoots[i]);
        target.startPump();
    }
    if (m_setup.evidence)
        m_evidence.emplace(*m_setup.evidence, m_job, m_sources, report());

    const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
    m_helpers = std::min(processors, std::max<std::size_t>(1, piecesOfABlock())) - 1;
}

void RunContext::keepTo(std::shared_ptr<RunLocks> locks)
{
    m_locks = std::move(locks);
    for (auto &target : m_targets) {
        if (m_locks->hasSource() && m_locks->hasDestination(target.index))
            continue;
        target.pump.reset();
        target.destination.refuse({platform::FileProblem::Busy, EBUSY});
    }
}

void RunContext::leaveOutTarget(Target &target, platform::FileProblem reason)
{
    target.pump.reset();
    target.isLeftOut = true;
    target.destination.refuse({reason, 0});
}

bool RunContext::hasDestination() const
{
    return std::any_of(m_targets.begin(), m_targets.end(),
                       [](const Target &target) { return !target.isLeftOut; });
}

// The destination's root, then the part of the item's path after the source's root. Only the length of the
// source's root is used, not where it stands in the item's path.
std::string RunContext::copyOf(const Target &target, const std::string &item) const
{
    const auto &root = m_job.SrcDiskPath;
    const bool holdsRoot = !root.empty() && item.find(root) != std::string::npos;
    return m_job.DesFileArray[target.index] + item.substr(holdsRoot ? root.size() : 0);
}

void RunContext::openJournal()
{
    const auto &order = m_setup.journal;
    if (!order)
        return;
    m_journal = std::make_unique<RunJournal>(*order, m_setup.host.volumeFiles(), m_targets);
    const auto folder = m_sources.attributes(order->folder, platform::Links::Follow, platform::Want::Basics);
    if (folder)
        m_folderOfJournals = FolderIdentity{folder->device, folder->inode};
}

void RunContext::settleCopies()
{
    if (!manner().update && !(m_setup.journal && m_setup.journal->resume))
        return;
    const Workers::Work sync = [this](std::size_t index) {
        auto &destination = m_targets[index].destination;
        if (destination.isOpen())
            (void)destination.volume()->syncVolume(); // a run that has ended cannot be helped any more
    };
    workers().share(sync, m_targets.size(), m_targets.size());
}

Workers &RunContext::workers()
{
    if (!m_workers)
        m_workers = std::make_unique<Workers>(piecesOfABlock());
    return *m_workers;
}

// The last piece is the digest.
void RunContext::doPiece(std::size_t piece, std::span<const std::byte> block,
                         const std::function<void(Target &)> &work)
{
    if (piece < m_targets.size())
        work(m_targets[piece]);
    else
        m_evidence->add(block);
}

void RunContext::shareBlock(std::span<const std::byte> block, const std::function<void(Target &)> &work)
{
    workers().share([&](std::size_t piece) { doPiece(piece, block, work); }, piecesOfABlock(), m_helpers);
}

void RunContext::shareBlockAnd(std::span<const std::byte> block, const std::function<void(Target &)> &work,
                               const std::function<void()> &more)
{
    if (m_helpers == 0)
        return shareBlock(block, work);
    const auto piecesOfBlock = piecesOfABlock();
    workers().share(
        [&](std::size_t piece) {
            if (piece < piecesOfBlock)
                doPiece(piece, block, work);
            else
                more();
        },
        piecesOfBlock + 1, m_helpers);
}

void RunContext::shareBlockBeside(std::span<const std::byte> block, const std::function<void(Target &)> &work,
                                  const std::function<void()> &meanwhile)
{
    workers().doBeside([&](std::size_t piece) { doPiece(piece, block, work); }, piecesOfABlock(),
                       piecesOfABlock(), meanwhile);
}

void RunContext::leaveOut(const std::string &item, const char *rule)
{
    report().leftOut(item, rule);
    if (m_evidence)
        m_evidence->noteLeftOut(item);
}

std::span<std::byte> RunContext::block(int which)
{
    auto &memory = m_blocks[which];
    if (!memory)
        memory = std::make_unique_for_overwrite<std::byte[]>(BlockSize);
    return {memory.get(), BlockSize};
}

void RunContext::post(const char *name, const char *key, Notification::Value value) const
{
    if (m_setup.isCurrent())
        m_setup.center.post(name, key, std::move(value));
}

void RunContext::postMessage(const std::string &message) const
{
    post(notification::FileCopyMessage, notification::key::MessageInfo, message);
}

void RunContext::postFileProgress(std::uint64_t done, std::uint64_t size) const
{
    const float fraction = static_cast<float>(done) / static_cast<float>(size);
    post(notification::FileProgress, notification::key::FileProgress, fraction * 100.0F);
}

void RunContext::postTotalProgress(float value) const
{
    post(notification::TotalProgress, notification::key::TotalProrgress, value);
}

void RunContext::countStartedFile(std::uint64_t bytes)
{
    ++m_indexOfBackup;
    report().fileStarted(bytes);
    // Without a count this divides by zero, and posts what that division gives.
    postTotalProgress(static_cast<float>(m_indexOfBackup) / static_cast<float>(m_job.totalFiles));
}

void RunContext::cannotDuplicate(Target &target, const std::string &source, const platform::FileError &error)
{
    postMessage("Can`t Duplicate " + displayPath(source) + " to " + displayPath(target.destination.root()));
    fileFailed(target, source, error.reason());
}

// The file in hand does not count as copied any more.
void RunContext::withdrawCopy(Target &target)
{
    if (std::exchange(target.isCopied, false))
        --target.tally.copied;
    if (std::exchange(target.isThereBefore, false))
        --target.tally.alreadyThere;
}

void RunContext::sourceChanged(Target &target, const std::string &source)
{
    withdrawCopy(target);
    fileFailed(target, source, "The source was written to meanwhile", ProblemKind::SourceChanged);
}

void RunContext::startFile()
{
    m_sourceInHand.reset();
    m_blockMarks.start();
    for (auto &target : m_targets) {
        target.hasFailed = false;
        target.work = CopyWork::Write;
        target.copyInHand.reset();
        target.isVerifiedBefore = false;
        target.isFurtherName = false;
        target.isCopied = false;
        target.isThereBefore = false;
        target.isVerified = false;
        target.isDoneBefore = false;
    }
    if (m_evidence)
        m_evidence->startFile();
}

void RunContext::takeBack(Target &target, const std::string &source, const platform::FileError &error)
{
    withdrawCopy(target);
    if (m_journal)
        m_journal->breakOff(target);
    cannotDuplicate(target, source, error);
}

void RunContext::fileFailed(Target &target, const std::string &source, const std::string &reason,
                            ProblemKind kind)
{
    target.hasFailed = true;
    report().failed(target.index, source, reason, kind);
}

// Returns true when the data is where it should be.
bool RunContext::noteSync(Target &target, const WriteOutPump::Outcome &outcome)
{
    target.tally.syncNanoseconds = outcome.nanoseconds;
    if (outcome.result)
        return noteEnd(target);
    report().notOnDisk(target.index, outcome.result.error().reason());
    return false;
}

// The data was synced. It counts only if it is still in the place where the user looks for it.
bool RunContext::noteEnd(Target &target)
{
    const auto index = target.index;
    const auto moved = target.destination.movedFolder(m_sources);
    if (moved)
        report().notOnDisk(index, displayPath(*moved) + " was moved away in mid-run");
    else if (target.destination.traits().isMemory)
        report().inMemory(index);
    else
        report().onDisk(index);
    return !moved;
}

// The manifests come last, when all they speak of is on the disks.
void RunContext::writeManifests(const std::vector<std::size_t> &targets)
{
    if (!m_evidence || !m_evidence->wantsManifests())
        return;
    m_evidence->finish();
    const Workers::Work work = [&](std::size_t piece) { m_evidence->writeManifests(target(targets[piece])); };
    workers().share(work, targets.size(), targets.size());
}

void RunContext::finishDestinations()
{
    const auto copied = std::chrono::steady_clock::now();
    report().syncStarts();
    for (auto &target : m_targets)
        target.destination.finishFolders();
    m_keeper.applyToFoldersAbove();
    for (auto &target : m_targets) {
        if (target.pump)
            target.pump->startFinalSync();
    }
    std::vector<std::size_t> onDisk;
    for (auto &target : m_targets) {
        auto &destination = target.destination;
        bool isOnDisk = false;
        if (target.pump) {
            const auto outcome = target.pump->waitForFinalSync(WorkerThread::currentToken());
            WorkerThread::exitIfCancelled();
            isOnDisk = noteSync(target, *outcome);
        } else if (destination.isOpen()) {
            isOnDisk = noteSync(target, {destination.volume()->syncVolume(), 0});
        } else {
            report().notOnDisk(target.index, destination.openError().reason());
        }
        if (isOnDisk)
            onDisk.push_back(target.index);
    }
    for (auto &target : m_targets)
        target.pump.reset();
    writeManifests(onDisk);
    for (auto &target : m_targets)
        target.destination.close();
    if (m_journal)
        m_journal->end(isAllDone(report().summary()));
    const auto end = std::chrono::steady_clock::now();
    report().phaseTimes({.copy = secondsOf(copied - m_start - m_verifyTime),
                         .verify = secondsOf(m_verifyTime),
                         .sync = secondsOf(end - copied)});
}

} // namespace orvana
