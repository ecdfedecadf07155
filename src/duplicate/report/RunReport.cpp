#include "duplicate/report/RunReport.h"

#include "duplicate/report/ReportJson.h"

#include <algorithm>
#include <new>
#include <nlohmann/json.hpp>

namespace orvana
{

namespace
{

constexpr const char *TimeLayout = "%Y-%m-%dT%H:%M:%S%z";

double seconds(std::uint64_t nanoseconds)
{
    return static_cast<double>(nanoseconds) / 1e9;
}

std::uint64_t timeTaken(const DestinationTally &tally)
{
    return tally.writeNanoseconds + tally.syncNanoseconds;
}

} // namespace

void DestinationTally::note(const platform::MissingParts &parts)
{
    for (std::size_t i = 0; i < platform::PartCount; ++i) {
        if (parts.has(static_cast<platform::Part>(i)))
            ++notKept[i];
    }
}

RunReport::RunReport(std::string folder, std::string stamp, const Clock &clock, int number)
    : m_stamp(std::move(stamp)), m_number(number), m_clock(clock), m_file(folder),
      m_leftOutFile(std::move(folder)), m_started(localTime(clock.now(), TimeLayout))
{
}

void RunReport::begin(const std::string &source, const std::vector<std::string> &destinations, bool verify)
{
    const std::lock_guard lock(m_mutex);
    m_source = source;
    m_verify = verify;
    for (const auto &root : destinations) {
        const auto index = m_destinations.size();
        auto &state = m_destinations.emplace_back(root);
        if (index < m_destinationDisks.size())
            state.disk = m_destinationDisks[index];
    }
}

void RunReport::describe(std::vector<DestinationDisk> disks)
{
    const std::lock_guard lock(m_mutex);
    m_destinationDisks = std::move(disks);
}

void RunReport::disk(const DiskEntry &entry)
{
    const std::lock_guard lock(m_mutex);
    if (std::find(m_disks.begin(), m_disks.end(), entry) == m_disks.end())
        m_disks.push_back(entry);
}

void RunReport::note(std::string_view text)
{
    const std::lock_guard lock(m_mutex);
    m_note = text;
}

DestinationTally &RunReport::destination(std::size_t index)
{
    const std::lock_guard lock(m_mutex);
    return m_destinations.at(index).tally;
}

std::size_t RunReport::destinationCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_destinations.size();
}

void RunReport::addProblem(const RunProblem &problem)
{
    if (m_listener)
        m_listener(problem);
    const std::lock_guard lock(m_mutex);
    if (!m_finished)
        m_file.addProblem(problemJson(problem));
}

void RunReport::failed(std::size_t index, std::string_view file, std::string_view reason, ProblemKind kind)
{
    auto &tally = destination(index);
    ++tally.failed;
    addProblem({kind, std::string(file), tally.root, std::string(reason)});
}

void RunReport::leftOut(std::string_view item, std::string_view rule)
{
    ++m_leftOut;
    const std::lock_guard lock(m_mutex);
    if (!m_finished)
        m_leftOutFile.addProblem(leftOutJson(item, rule));
}

void RunReport::mismatched(std::size_t index, std::string_view file, std::uint64_t firstOffset,
                           std::int64_t blocks)
{
    auto &tally = destination(index);
    ++tally.mismatched;
    addProblem({ProblemKind::Mismatched, std::string(file), tally.root, {}, firstOffset, blocks});
}

void RunReport::cannotHold(std::size_t index, std::string_view file, std::string_view reason)
{
    auto &tally = destination(index);
    ++tally.cannotHold;
    addProblem({ProblemKind::CannotHold, std::string(file), tally.root, std::string(reason)});
}

void RunReport::suspect(std::size_t index)
{
    const std::lock_guard lock(m_mutex);
    m_destinations.at(index).isSuspect = true;
}

void RunReport::unverified(std::size_t index, std::string_view file, std::string_view reason)
{
    auto &tally = destination(index);
    ++tally.unverified;
    addProblem({ProblemKind::Unverified, std::string(file), tally.root, std::string(reason)});
}

void RunReport::evidence(std::size_t index, std::string_view file, std::string_view reason, ProblemKind kind)
{
    auto &tally = destination(index);
    ++(kind == ProblemKind::NotInManifest ? tally.notInManifest : tally.evidenceFailures);
    addProblem({kind, std::string(file), tally.root, std::string(reason)});
}

void RunReport::manifest(std::size_t index, const ManifestSummary &manifest)
{
    const std::lock_guard lock(m_mutex);
    m_destinations.at(index).manifests.push_back(manifest);
}

void RunReport::verifiedFrom(std::size_t index, VerifiedFrom from)
{
    const std::lock_guard lock(m_mutex);
    auto &known = m_destinations.at(index).verifiedFrom;
    if (known != VerifiedFrom::Cache)
        known = from;
}

void RunReport::onDisk(std::size_t index)
{
    const std::lock_guard lock(m_mutex);
    m_destinations.at(index).durability = Durability::OnDisk;
}

void RunReport::inMemory(std::size_t index)
{
    const std::lock_guard lock(m_mutex);
    m_destinations.at(index).durability = Durability::Memory;
}

void RunReport::notOnDisk(std::size_t index, std::string_view reason)
{
    const std::lock_guard lock(m_mutex);
    m_destinations.at(index).notOnDiskReason = reason;
}

void RunReport::fileStarted(std::uint64_t bytes)
{
    ++m_filesStarted;
    m_sourceBytes += bytes;
}

void RunReport::phaseTimes(const PhaseTimes &times)
{
    const std::lock_guard lock(m_mutex);
    m_times = times;
}

std::string RunReport::path() const
{
    const std::lock_guard lock(m_mutex);
    return m_path;
}

bool RunReport::isWritten() const
{
    const std::lock_guard lock(m_mutex);
    return !m_path.empty() && !m_file.hasLostProblems() && !m_leftOutFile.hasLostProblems();
}

const DestinationTally *RunReport::slowest() const
{
    const DestinationTally *slowest = nullptr;
    for (const auto &state : m_destinations) {
        if (!slowest || timeTaken(state.tally) > timeTaken(*slowest))
            slowest = &state.tally;
    }
    return m_destinations.size() > 1 ? slowest : nullptr;
}

DestinationSummary RunReport::summaryOf(const DestinationState &state) const
{
    const auto &tally = state.tally;
    DestinationSummary summary{.path = tally.root,
                               .copied = tally.copied,
                               .failed = tally.failed,
                               .alreadyThere = tally.alreadyThere,
                               .verified = tally.verified,
                               .mismatched = tally.mismatched,
                               .unverified = tally.unverified,
                               .bytes = tally.bytes,
                               .blocksWritten = tally.blocksWritten,
                               .secondsWriting = seconds(tally.writeNanoseconds),
                               .secondsSyncing = seconds(tally.syncNanoseconds),
                               .verifiedFrom = state.verifiedFrom,
                               .repaired = tally.repaired,
                               .isSuspect = state.isSuspect,
                               .isSlowest = &tally == slowest(),
                               .durability = state.durability,
                               .notKnownToBeOnDisk = 0,
                               .reason = {},
                               .disk = state.disk,
                               .manifests = state.manifests,
                               .notInManifest = tally.notInManifest,
                               .evidenceFailures = tally.evidenceFailures,
                               .notKept = {},
                               .cannotHold = tally.cannotHold};
    std::copy(tally.notKept.begin(), tally.notKept.end(), summary.notKept.begin());
    if (state.durability == Durability::NotKnown) {
        // Files that may be in memory only do not count as copied.
        summary.notKnownToBeOnDisk = std::exchange(summary.copied, 0);
        summary.alreadyThere = 0;
        summary.reason = "not known to be on disk: " + state.notOnDiskReason;
    }
    return summary;
}

RunSummary RunReport::summaryNow(RunOutcome outcome) const
{
    RunSummary summary{.started = m_started,
                       .ended = localTime(m_clock.now(), TimeLayout),
                       .outcome = outcome,
                       .note = m_note,
                       .source = m_source,
                       .filesStarted = m_filesStarted,
                       .sourceBytes = m_sourceBytes,
                       .leftOut = m_leftOut,
                       .verify = m_verify,
                       .seconds = m_times,
                       .disks = m_disks,
                       .destinations = {},
                       .ending = {},
                       .hasErased = false,
                       .isRecorded = false};
    for (const auto &state : m_destinations)
        summary.destinations.push_back(summaryOf(state));
    return summary;
}

RunSummary RunReport::summary() const
{
    const std::lock_guard lock(m_mutex);
    return summaryNow(m_outcome);
}

void RunReport::finish(RunOutcome outcome)
{
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_finished, true))
        return;
    m_outcome = outcome;
    try {
        m_path = m_file.write(reportJson(summaryNow(outcome)), m_leftOutFile, m_stamp, m_number);
    } catch (const std::bad_alloc &) {
        // Without memory the report is lost, as on a full disk. The run comes to its end all the same.
        m_path.clear();
    }
}

void RunReport::healthAfter(const std::vector<std::string> &texts)
{
    const std::lock_guard lock(m_mutex);
    for (std::size_t i = 0; i < std::min(texts.size(), m_destinations.size()); ++i)
        m_destinations[i].disk.healthAfter = texts[i];
    try {
        if (!m_path.empty())
            m_file.replace(reportJson(summaryNow(m_outcome)), m_leftOutFile, m_path);
    } catch (const std::bad_alloc &) {
        return; // the report stays as it is
    }
}

} // namespace orvana
