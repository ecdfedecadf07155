#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/engine/SourceFiles.h"
#include "duplicate/engine/Target.h"
#include "duplicate/engine/Workers.h"
#include "duplicate/report/RunReport.h"
#include "foundation/NotificationCenter.h"

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

/// What the engine is given for a run.
struct RunSetup
{
    platform::Host &host;
    NotificationCenter &center;
    std::function<bool()> isCurrent; ///< false once the run was cancelled or replaced; it then posts nothing
    std::function<bool()> verifyFiles; ///< asked file by file
    bool includeHidden = false;
    std::shared_ptr<RunReport> report; ///< never null, and begun
};

/// What the parts of one run share. Used by its copy thread only.
class RunContext
{
public:
    RunContext(RunSetup setup, CopyJob job);

    /// Works under these locks until the end of the run. What they do not hold gets nothing.
    void keepTo(std::shared_ptr<RunLocks> locks);

    const RunSetup &setup() const { return m_setup; }
    const CopyJob &job() const { return m_job; }
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

    /// One worker for each destination, made at the first call.
    Workers &workers();

    /// Workers that pay for work which seldom waits for a disk: no more than there are processors beside the
    /// copy thread's.
    std::size_t helpers() const { return m_helpers; }

    /// The two blocks of the run: the one in hand and the one read ahead.
    std::span<std::byte> block(int which);

    void postMessage(const std::string &message) const;
    void postFileProgress(std::uint64_t done, std::uint64_t size) const;
    void postTotalProgress(float value) const;

    /// Counts a file whose copy starts and posts how far the run is.
    void countStartedFile(std::uint64_t bytes);

    /// Starts the account of a file: it is copied nowhere and has failed nowhere yet.
    void startFile();

    /// The file in hand, counted as copied, turned out not to be on its way to the disk.
    void takeBack(Target &target, const std::string &source, const platform::FileError &error);

    /// Notes in the report that `source` does not get to the target.
    void fileFailed(Target &target, const std::string &source, const std::string &reason,
                    ProblemKind kind = ProblemKind::Failed);

    /// The file in hand, counted as copied, is no copy of its source any more, which was written to.
    void sourceChanged(Target &target, const std::string &source);

    /// The source of the file in hand as it was before it was read.
    void rememberSource(const platform::Attributes &source) { m_sourceInHand = source; }
    const std::optional<platform::Attributes> &sourceInHand() const { return m_sourceInHand; }

    /// Posts the message that `source` cannot be copied to the target, and notes it in the report.
    void cannotDuplicate(Target &target, const std::string &source, const platform::FileError &error);

    /// Syncs all destinations, side by side, and closes them. Ends the thread when it is cancelled meanwhile.
    void finishDestinations();

    void addVerifyTime(std::chrono::nanoseconds time) { m_verifyTime += time; }

private:
    void noteEnd(Target &target);
    void noteSync(Target &target, const WriteOutPump::Outcome &outcome);
    void post(const char *name, const char *key, Notification::Value value) const;

    std::shared_ptr<RunLocks> m_locks; // the first member, so that they end after everything else
    RunSetup m_setup;
    CopyJob m_job;
    platform::Folder &m_sources;
    SourceFiles m_sourceFiles;
    std::int64_t m_indexOfBackup = 0;
    std::deque<Target> m_targets; // which stay where they are
    std::optional<platform::Attributes> m_sourceInHand;
    std::unique_ptr<Workers> m_workers;
    std::size_t m_helpers = 0;
    std::unique_ptr<std::byte[]> m_blocks[2];
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::chrono::nanoseconds m_verifyTime{0};
};

} // namespace orvana
