#pragma once

#include "duplicate/engine/BlockMarks.h"
#include "duplicate/engine/CopyJob.h"
#include "duplicate/engine/HardLinks.h"
#include "duplicate/engine/MetadataKeeper.h"
#include "duplicate/engine/RunEvidence.h"
#include "duplicate/engine/RunJournal.h"
#include "duplicate/engine/SourceFiles.h"
#include "duplicate/engine/Target.h"
#include "duplicate/engine/Workers.h"
#include "duplicate/report/RunReport.h"
#include "foundation/NotificationCenter.h"
#include "platform/DeepFolder.h"

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace orvana
{

class RunLocks;

namespace platform
{
class Host;
}

/// The things that the engine is given for a run.
struct RunSetup
{
    platform::Host &host;
    NotificationCenter &center;
    std::function<bool()> isCurrent;   ///< false after a cancel or a replacement; the run then posts nothing
    std::function<bool()> verifyFiles; ///< called for each file
    bool includeHidden = false;
    std::shared_ptr<RunReport> report; ///< never null; its `begin` was called
    /// What evidence the run leaves; nullopt for none.
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::optional<EvidenceOrder> evidence{};
    CopyManner manner{};
    /// How the run keeps a journal; nullopt for none.
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::optional<JournalOrder> journal{};
};

/// The state that the parts of one run share. Used by its copy thread only.
class RunContext
{
public:
    RunContext(RunSetup setup, CopyJob job);

    /// Works under these locks until the end of the run. A destination that they do not hold gets no files.
    /// If they do not hold the source, no destination gets files.
    void keepTo(std::shared_ptr<RunLocks> locks);

    /// Opens the journal of the run. Called once, before the first write.
    void openJournal();

    /// Takes the destination out of the run, for this reason. Nothing is written to it.
    void leaveOutTarget(Target &target, platform::FileProblem reason);

    /// True when at least one destination takes part in the run.
    bool hasDestination() const;

    /// Returns the path of the item's copy on the target.
    std::string copyOf(const Target &target, const std::string &item) const;

    const RunSetup &setup() const { return m_setup; }
    const CopyJob &job() const { return m_job; }
    const CopyManner &manner() const { return m_setup.manner; }
    RunReport &report() { return *m_setup.report; }
    platform::Folder &sources() { return m_sources; }
    SourceFiles &sourceFiles() { return m_sourceFiles; }

    /// The destinations, in the order of the job.
    std::deque<Target> &targets() { return m_targets; }
    Target &target(std::size_t index) { return m_targets[index]; }

    /// Calls `work` with each target that is to get a copy, and the path of that copy.
    template <class Work>
    void forEachCopy(const OutArray &copies, Work work)
    {
        for (auto &target : m_targets) {
            if (target.index < copies.size() && copies[target.index])
                work(target, *copies[target.index]);
        }
    }

    /// Brings what memory holds of the destinations to their disks, if the run is to compare what is there.
    /// Otherwise each of many small files would be waited for.
    void settleCopies();

    /// The evidence of the run; null if it leaves none.
    RunEvidence *evidence() { return m_evidence ? &*m_evidence : nullptr; }

    /// What the run keeps of its source besides the content.
    MetadataKeeper &keeper() { return m_keeper; }

    /// The files of several names; null if each name gets a copy of its own.
    HardLinks *hardLinks() { return m_keeper.keepsAll() ? &m_hardLinks : nullptr; }

    /// The journal of the run; null if it keeps none.
    RunJournal *journal() { return m_journal.get(); }

    /// True for the folder of the journals, which a source such as the user's home may hold. It changes all
    /// through the run.
    bool isFolderOfJournals(const platform::Attributes &folder) const
    {
        return m_folderOfJournals == FolderIdentity{folder.device, folder.inode};
    }

    /// Notes that a rule left the item out.
    void leaveOut(const std::string &item, const char *rule);

    /// One worker for each destination, and one for the digest, made at the first call.
    Workers &workers();

    /// Does `work` for each target, and digests `block` if the run makes digests. The caller and the workers
    /// share the pieces.
    void shareBlock(std::span<const std::byte> block, const std::function<void(Target &)> &work);

    /// As `shareBlock`, with one piece more. Without workers the caller does not do this piece.
    void shareBlockAnd(std::span<const std::byte> block, const std::function<void(Target &)> &work,
                       const std::function<void()> &more);

    /// As `shareBlock`, but the workers do all of it while the caller runs `meanwhile`.
    void shareBlockBeside(std::span<const std::byte> block, const std::function<void(Target &)> &work,
                          const std::function<void()> &meanwhile);

    /// How many workers to use for work that seldom waits for a disk. Together with the copy thread there is
    /// at most one for each destination and one for each processor.
    std::size_t helpers() const { return m_helpers; }

    /// The two blocks of memory of the run: one for the block in hand, one for the block read ahead. `which`
    /// is 0 or 1.
    std::span<std::byte> block(int which);

    void postMessage(const std::string &message) const;
    void postFileProgress(std::uint64_t done, std::uint64_t size) const;
    void postTotalProgress(float value) const;

    /// The blocks of the file in hand, if the run may have to repair copies.
    BlockMarks &blockMarks() { return m_blockMarks; }

    /// Counts a file whose copy starts, and posts the total progress.
    void countStartedFile(std::uint64_t bytes);

    /// Starts the account of a file: so far it is copied nowhere and has failed nowhere.
    void startFile();

    /// Takes back that the file in hand counts as copied, and reports `error`: its data did not get to the
    /// disk.
    void takeBack(Target &target, const std::string &source, const platform::FileError &error);

    /// Notes in the report that `source` could not be copied to the target.
    void fileFailed(Target &target, const std::string &source, const std::string &reason,
                    ProblemKind kind = ProblemKind::Failed);

    /// Takes back that the file in hand counts as copied, and reports that its source was written to
    /// meanwhile.
    void sourceChanged(Target &target, const std::string &source);

    /// Remembers the source of the file in hand as it was before it was read.
    void rememberSource(const platform::Attributes &source) { m_sourceInHand = source; }
    const std::optional<platform::Attributes> &sourceInHand() const { return m_sourceInHand; }

    /// Posts the message that `source` cannot be copied to the target, and notes it in the report.
    void cannotDuplicate(Target &target, const std::string &source, const platform::FileError &error);

    /// Syncs all destinations, side by side, and closes them. Ends the thread when it is cancelled meanwhile.
    void finishDestinations();

    void addVerifyTime(std::chrono::nanoseconds time) { m_verifyTime += time; }

private:
    std::size_t piecesOfABlock() const { return m_targets.size() + (m_evidence ? 1 : 0); }
    void doPiece(std::size_t piece, std::span<const std::byte> block,
                 const std::function<void(Target &)> &work);
    bool noteEnd(Target &target);
    bool noteSync(Target &target, const WriteOutPump::Outcome &outcome);
    void writeManifests(const std::vector<std::size_t> &targets);
    static void withdrawCopy(Target &target);
    void post(const char *name, const char *key, Notification::Value value) const;

    std::shared_ptr<RunLocks> m_locks; // the first member, so that the locks end after everything else
    RunSetup m_setup;
    CopyJob m_job;
    platform::DeepFolder m_sources;
    SourceFiles m_sourceFiles;
    std::int64_t m_indexOfBackup = 0;
    std::optional<FolderIdentity> m_folderOfJournals;
    std::unique_ptr<RunJournal> m_journal; // before the targets, whose pumps tell it of their syncs
    std::deque<Target> m_targets;          // a deque, because the targets must stay where they are
    std::optional<platform::Attributes> m_sourceInHand;
    std::optional<RunEvidence> m_evidence;
    BlockMarks m_blockMarks;
    MetadataKeeper m_keeper{*this};
    HardLinks m_hardLinks{*this};
    std::unique_ptr<Workers> m_workers;
    std::size_t m_helpers = 0;
    std::unique_ptr<std::byte[]> m_blocks[2];
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::chrono::nanoseconds m_verifyTime{0};
};

} // namespace orvana
