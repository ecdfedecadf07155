#include "duplicate/RunReport.h"

#include "foundation/DisplayPath.h"

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

Json countsOf(const DestinationTally &tally)
{
    Json counts = Json::object();
    putPath(counts, "path", tally.root);
    counts["copied"] = tally.copied.load();
    counts["failed"] = tally.failed.load();
    counts["verified"] = tally.verified.load();
    counts["mismatched"] = tally.mismatched.load();
    counts["unverified"] = tally.unverified.load();
    counts["bytes"] = tally.bytes.load();
    counts["secondsWriting"] = seconds(tally.writeNanoseconds);
    counts["secondsSyncing"] = seconds(tally.syncNanoseconds);
    return counts;
}

const char *kindOf(RunReport::Failure failure)
{
    switch (failure) {
    case RunReport::Failure::Failed:
        return "failed";
    case RunReport::Failure::KeptTail:
        return "keptTail";
    case RunReport::Failure::SourceChanged:
        return "sourceChanged";
    case RunReport::Failure::SameFile:
        break;
    }
    return "sameFile";
}

bool isFailure(const DiskEntry &entry)
{
    return entry.outcome == DiskOutcome::EraseFailed || entry.outcome == DiskOutcome::Refused;
}

} // namespace

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
    for (const auto &root : destinations)
        m_destinations.emplace_back(root);
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

void RunReport::addProblem(const char *kind, std::size_t index, std::string_view file, const Json &detail)
{
    Json problem = {{"kind", kind}};
    putPath(problem, "file", file);
    putPath(problem, "destination", destination(index).root);
    problem.update(detail);
    if (m_listener)
        m_listener(problem);
    const std::lock_guard lock(m_mutex);
    if (!m_finished)
        m_file.addProblem(problem);
}

void RunReport::failed(std::size_t index, std::string_view file, std::string_view reason, Failure failure)
{
    ++destination(index).failed;
    addProblem(kindOf(failure), index, file, {{"reason", reason}});
}

void RunReport::leftOut(std::string_view item, std::string_view rule)
{
    ++m_leftOut;
    Json problem = {{"kind", "leftOut"}};
    putPath(problem, "file", item);
    problem["reason"] = rule;
    const std::lock_guard lock(m_mutex);
    if (!m_finished)
        m_leftOutFile.addProblem(problem);
}

void RunReport::mismatched(std::size_t index, std::string_view file, std::uint64_t firstOffset,
                           std::int64_t blocks)
{
    ++destination(index).mismatched;
    addProblem("mismatched", index, file, {{"firstOffset", firstOffset}, {"blocks", blocks}});
}

void RunReport::unverified(std::size_t index, std::string_view file, std::string_view reason)
{
    ++destination(index).unverified;
    addProblem("unverified", index, file, {{"reason", reason}});
}

void RunReport::verifiedFrom(std::size_t index, VerifiedFrom from)
{
    const std::lock_guard lock(m_mutex);
    auto &known = m_destinations.at(index).verifiedFrom;
    if (known != "cache")
        known = from == VerifiedFrom::Disk ? "disk" : "cache";
}

void RunReport::onDisk(std::size_t index)
{
    const std::lock_guard lock(m_mutex);
    m_destinations.at(index).onDisk = true;
}

void RunReport::inMemory(std::size_t index)
{
    const std::lock_guard lock(m_mutex);
    m_destinations.at(index).onDisk = true;
    m_destinations.at(index).isMemory = true;
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

bool RunReport::allDone() const
{
    const std::lock_guard lock(m_mutex);
    if (!m_note.empty() || std::any_of(m_disks.begin(), m_disks.end(), isFailure))
        return false;
    for (const auto &state : m_destinations) {
        const auto &tally = state.tally;
        if (!state.onDisk || tally.failed > 0 || tally.mismatched > 0 || tally.unverified > 0)
            return false;
    }
    return true;
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

Json RunReport::destinations() const
{
    Json list = Json::array();
    for (const auto &state : m_destinations) {
        Json entry = countsOf(state.tally);
        entry["verifiedFrom"] = state.verifiedFrom;
        entry["slowest"] = &state.tally == slowest();
        entry["onDisk"] = state.onDisk;
        if (state.isMemory)
            entry["onDisk"] = "memory";
        if (!state.onDisk) {
            // What only memory is known to hold does not count as done.
            entry["notKnownToBeOnDisk"] = std::exchange(entry["copied"], 0);
            entry["reason"] = "not known to be on disk: " + state.notOnDiskReason;
        }
        list.push_back(std::move(entry));
    }
    return list;
}

Json RunReport::disks() const
{
    Json list = Json::array();
    for (const auto &entry : m_disks)
        list.push_back(diskJson(entry));
    return list;
}

Json RunReport::disksJson() const
{
    const std::lock_guard lock(m_mutex);
    return disks();
}

std::vector<std::string> RunReport::diskLines() const
{
    const std::lock_guard lock(m_mutex);
    std::vector<std::string> lines;
    for (const auto &entry : m_disks) {
        if (entry.outcome != DiskOutcome::Erased)
            lines.push_back(diskText(entry));
    }
    return lines;
}

Json RunReport::destinationsJson() const
{
    const std::lock_guard lock(m_mutex);
    return destinations();
}

std::vector<std::string> RunReport::notOnDiskLines() const
{
    const std::lock_guard lock(m_mutex);
    std::vector<std::string> lines;
    for (const auto &state : m_destinations) {
        if (!state.onDisk)
            lines.push_back(displayPath(state.tally.root) +
                            ": not known to be on disk: " + state.notOnDiskReason);
    }
    return lines;
}

bool RunReport::isOnDisk(std::size_t index) const
{
    const std::lock_guard lock(m_mutex);
    return m_destinations.at(index).onDisk;
}

Json RunReport::summary(RunOutcome outcome) const
{
    Json head = {{"version", 2},
                 {"program", "Orvana Plurimo " PLURIMO_VERSION},
                 {"started", m_started},
                 {"ended", localTime(m_clock.now(), TimeLayout)},
                 {"outcome", outcome == RunOutcome::Finished ? "finished" : "cancelled"}};
    if (!m_note.empty())
        head["note"] = m_note;
    putPath(head, "source", m_source);
    head["filesStarted"] = m_filesStarted.load();
    head["sourceBytes"] = m_sourceBytes.load();
    head["leftOut"] = m_leftOut.load();
    head["verify"] = m_verify;
    head["seconds"] = {{"copy", m_times.copy}, {"verify", m_times.verify}, {"sync", m_times.sync}};
    head["disks"] = disks();
    head["destinations"] = destinations();
    return head;
}

void RunReport::finish(RunOutcome outcome)
{
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_finished, true))
        return;
    try {
        m_path = m_file.write(summary(outcome), m_leftOutFile, m_stamp, m_number);
    } catch (const std::bad_alloc &) {
        // Without memory the report is lost, as on a full disk. The run comes to its end all the same.
        m_path.clear();
    }
}

} // namespace orvana
