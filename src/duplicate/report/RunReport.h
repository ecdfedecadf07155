#pragma once

#include "duplicate/report/BusyTime.h"
#include "duplicate/report/ReportFile.h"
#include "duplicate/report/RunSummary.h"
#include "foundation/Clock.h"
#include "platform/Metadata.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// The counts of one destination. The copy thread and its workers count; any thread may read.
struct DestinationTally
{
    explicit DestinationTally(std::string path) : root(std::move(path)) {}

    void addWriteTime(std::chrono::nanoseconds time)
    {
        writeNanoseconds += static_cast<std::uint64_t>(time.count());
    }

    void note(platform::Part part) { ++notKept[static_cast<std::size_t>(part)]; }
    void note(const platform::MissingParts &parts);

    const std::string root;
    /// Entries that are without this part of their source, because the volume cannot hold it.
    std::array<std::atomic<std::int64_t>, platform::PartCount> notKept{};
    std::atomic<std::int64_t> copied{0};           ///< files written without an error
    std::atomic<std::int64_t> failed{0};           ///< files and folders that are missing or incomplete
    std::atomic<std::int64_t> verified{0};         ///< copies that were read back and equal their source
    std::atomic<std::int64_t> mismatched{0};       ///< copies that were read back and differ
    std::atomic<std::int64_t> unverified{0};       ///< copies that could not be compared
    std::atomic<std::int64_t> notInManifest{0};    ///< files on the disk that no manifest lists
    std::atomic<std::int64_t> evidenceFailures{0}; ///< missing manifests, files not as in the history
    std::atomic<std::int64_t> cannotHold{0};       ///< entries that the volume was found unable to hold
    std::atomic<std::int64_t> repaired{0};      ///< of `verified`: copies in which blocks were written again
    std::atomic<std::int64_t> alreadyThere{0};  ///< copies for which nothing had to be written
    std::atomic<std::uint64_t> bytes{0};        ///< bytes written
    std::atomic<std::uint64_t> bytesThere{0};   ///< bytes that were there already
    std::atomic<std::int64_t> blocksWritten{0}; ///< blocks of up to `BlockSize` bytes
    std::atomic<std::uint64_t> writeNanoseconds{0}; ///< spent writing, including the wait for the disk
    std::atomic<std::uint64_t> syncNanoseconds{0};  ///< spent in the final sync
    BusyTime busy;                                  ///< spent writing, waiting for the disk, and reading back
};

/// The account of one run. It is kept while the run goes on, and written as "<stamp>-Report.json" at its end.
///
/// It holds only counts. Failures and mismatches go to a file as they come, so its memory does not grow with
/// them. All functions may be called from any thread.
class RunReport
{
public:
    /// `folder` is where the report will be written, `stamp` the start of its name. If the folder cannot be
    /// written to, only the report is lost. `number` is the first number to try for the report's name: the
    /// number of the run's log.
    RunReport(std::string folder, std::string stamp, const Clock &clock, int number = 1);
    RunReport(const RunReport &) = delete;
    RunReport &operator=(const RunReport &) = delete;

    /// Notes what the run is about to do. Called once, before any file. `disk` and `note` may come earlier.
    void begin(const std::string &source, const std::vector<std::string> &destinations, bool verify);

    /// Sets the disks of the destinations, in the order of the destinations. Called before `begin`, for a
    /// run that copies to disks.
    void describe(std::vector<DestinationDisk> disks);

    /// Notes the outcome for a disk as a whole. Noting the same entry again changes nothing. May come before
    /// `begin`.
    void disk(const DiskEntry &entry);

    /// Sets a remark on the run as a whole, such as why nothing was copied. A run with a remark is not all
    /// done.
    void note(std::string_view text);

    /// Returns the tally of the destination at `index` of the job. It is valid as long as the report.
    DestinationTally &destination(std::size_t index);
    std::size_t destinationCount() const;

    /// Notes that `file` could not be brought to the destination, for `reason`.
    void failed(std::size_t index, std::string_view file, std::string_view reason,
                ProblemKind kind = ProblemKind::Failed);

    /// Notes that `item` of the source was left out, by `rule`.
    void leftOut(std::string_view item, std::string_view rule);

    /// Notes that `blocks` blocks of the copy of `file` differ. The first of them begins at byte
    /// `firstOffset`.
    void mismatched(std::size_t index, std::string_view file, std::uint64_t firstOffset, std::int64_t blocks);

    /// Notes that the destination cannot hold the copy of `file`, for `reason`. Whether the copy fails is
    /// noted when it is tried.
    void cannotHold(std::size_t index, std::string_view file, std::string_view reason);

    /// Notes that the disk of the destination keeps what is written to it wrongly.
    void suspect(std::size_t index);

    /// Notes that the copy of `file` could not be compared, for `reason`.
    void unverified(std::size_t index, std::string_view file, std::string_view reason);

    /// Notes that `file` is on the destination but in no manifest there, that a folder has no manifest, or
    /// that the source's history says something else of the file: kinds NotInManifest, NoManifest,
    /// NotAsInHistory.
    void evidence(std::size_t index, std::string_view file, std::string_view reason, ProblemKind kind);

    /// Notes a manifest that is on the disk.
    void manifest(std::size_t index, const ManifestSummary &manifest);

    /// Notes whether reading back showed the content of the disk, or only of memory. Once `Cache` was noted,
    /// it stays.
    void verifiedFrom(std::size_t index, VerifiedFrom from);

    /// Notes that the data written to the destination is on its disk. Until this is noted, it does not count
    /// as done.
    void onDisk(std::size_t index);

    /// Notes that the destination has no disk but only memory, and that the written data is there.
    void inMemory(std::size_t index);

    /// Notes that the data written to the destination is not known to be on its disk, for `reason`.
    void notOnDisk(std::size_t index, std::string_view reason);

    /// Sets a function that is called with every problem, on the thread that notes it. Set it before the run.
    void setProblemListener(std::function<void(const RunProblem &)> listener)
    {
        m_listener = std::move(listener);
    }

    void fileStarted(std::uint64_t bytes);
    void blockCompared(std::uint64_t bytes) { m_comparedBytes += bytes; }
    void phaseTimes(const PhaseTimes &times);

    /// Notes that everything is written and the final sync of the destinations begins.
    void syncStarts() { m_isSyncing = true; }
    bool isSyncing() const { return m_isSyncing; }

    /// Writes the report, once; later calls change nothing.
    void finish(RunOutcome outcome);

    /// Sets what the disks say of their health after the run, in the order of the destinations. A report that
    /// is written already is replaced.
    void healthAfter(const std::vector<std::string> &texts);

    /// Returns the path of the written report. It is empty before `finish`, and when the report could not be
    /// written.
    std::string path() const;

    /// True when the report was written with every problem in it. Ask after `finish`. Always false for a
    /// report without a folder.
    bool isWritten() const;

    /// Returns the account of the run as it is by now.
    RunSummary summary() const;

    /// Returns the number of files whose copy was started.
    std::int64_t filesStarted() const { return m_filesStarted; }

    /// Returns how many bytes of source files have been compared with their copies.
    std::uint64_t comparedBytes() const { return m_comparedBytes; }

private:
    struct DestinationState
    {
        explicit DestinationState(const std::string &root) : tally(root) {}

        DestinationTally tally;
        DestinationDisk disk;
        std::vector<ManifestSummary> manifests;
        std::string notOnDiskReason = "the run ended before the final sync";
        VerifiedFrom verifiedFrom = VerifiedFrom::None;
        bool isSuspect = false;
        Durability durability = Durability::NotKnown;
    };

    void addProblem(const RunProblem &problem);
    const DestinationTally *slowest() const;
    DestinationSummary summaryOf(const DestinationState &state) const;
    RunSummary summaryNow(RunOutcome outcome) const; // call with the mutex held

    const std::string m_stamp;
    const int m_number;
    const Clock &m_clock;
    std::atomic<std::int64_t> m_leftOut{0};
    std::atomic<std::int64_t> m_filesStarted{0};
    std::atomic<std::uint64_t> m_sourceBytes{0};
    std::atomic<std::uint64_t> m_comparedBytes{0};
    std::atomic<bool> m_isSyncing{false};
    std::function<void(const RunProblem &)> m_listener;

    mutable std::mutex m_mutex;
    ReportFile m_file;
    ReportFile m_leftOutFile; ///< only its list of problems is used
    std::string m_source;
    bool m_verify = false;
    std::string m_started;
    PhaseTimes m_times;
    std::vector<DestinationDisk> m_destinationDisks;
    std::vector<DiskEntry> m_disks;
    std::string m_note;
    std::deque<DestinationState> m_destinations; // grows without moving its members
    bool m_finished = false;
    RunOutcome m_outcome = RunOutcome::Finished; // valid once `m_finished` is true
    std::string m_path;
};

} // namespace orvana
