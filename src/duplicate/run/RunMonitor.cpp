#include "duplicate/run/RunMonitor.h"

#include <algorithm>
#include <utility>

namespace orvana
{

namespace
{

constexpr double RateWindow = 5;  // seconds, for rates and for the disk that is waited for
constexpr double PaceWindow = 30; // seconds, for the time that is left
constexpr double StageWindow = 1; // seconds; with small files, copying and verifying take turns

// A disk holds up the others when it is worked on for at least half of the time, and half as much again as
// the next disk. Below that the disks are equally fast, or the source is what is waited for.
constexpr double LeastShare = 0.5;
constexpr double LeastLead = 1.5;

// Bytes that a destination has got or has given back.
double workOf(const RunReading &reading, std::size_t destination)
{
    return static_cast<double>(reading.destinations[destination].bytes + reading.comparedBytes);
}

// A destination that died, or could not get some of the files, stays behind for good. So the destination that
// has most tells how far the run is.
double workOf(const RunReading &reading)
{
    std::uint64_t most = 0;
    for (const auto &destination : reading.destinations)
        most = std::max(most, destination.bytes);
    return static_cast<double>(most + reading.comparedBytes);
}

RunReading startOf(const RunReading &reading)
{
    RunReading start;
    start.destinations.resize(reading.destinations.size());
    return start;
}

double rate(double before, double now, double seconds)
{
    return seconds > 0 ? std::max(0.0, now - before) / seconds : 0.0;
}

double fractionOf(double done, double total)
{
    return total > 0 ? std::clamp(done / total, 0.0, 1.0) : 1.0;
}

std::optional<double> timeFor(double work, double pace)
{
    if (work <= 0)
        return 0.0;
    return pace > 0 ? std::optional(work / pace) : std::nullopt;
}

} // namespace

const char *nameOf(RunStage stage)
{
    switch (stage) {
    case RunStage::Copying:
        return "copying";
    case RunStage::Verifying:
        return "verifying";
    case RunStage::CopyingAndVerifying:
        return "copying and verifying";
    case RunStage::WritingOut:
        return "writing out";
    }
    return "";
}

std::optional<double> FilePace::secondsLeft(double percent, double now)
{
    const bool isNext = m_lastPercent < 0 || percent < m_lastPercent;
    m_lastPercent = percent;
    if (isNext) {
        m_startPercent = percent;
        m_startTime = now;
    }
    const double time = now - m_startTime;
    if (time < 1 || percent <= m_startPercent)
        return std::nullopt;
    return std::max(0.0, time * (100 - percent) / (percent - m_startPercent));
}

RunStatus RunMonitor::look(const RunProgress &progress)
{
    return look(progress.reading(), progress.totalFiles(), progress.totalBytes(), progress.isVerifying());
}

RunStatus RunMonitor::look(RunReading reading, std::int64_t totalFiles, std::uint64_t totalBytes, bool verify)
{
    // The counts of another run, or from before the destinations were known, cannot be compared with these.
    if (!m_readings.empty() && (m_readings.back().destinations.size() != reading.destinations.size() ||
                                m_readings.back().seconds > reading.seconds))
        m_readings.clear();
    if (m_readings.empty())
        m_readings.push_back(startOf(reading));
    m_readings.push_back(std::move(reading));
    const auto &now = m_readings.back();
    while (m_readings.size() > 1 && m_readings[1].seconds <= now.seconds - PaceWindow)
        m_readings.pop_front();

    const auto &recent = before(RateWindow);
    const auto &earlier = before(PaceWindow);
    const double recentTime = now.seconds - recent.seconds;
    const double earlierTime = now.seconds - earlier.seconds;
    const double total = static_cast<double>(totalBytes) * (verify ? 2 : 1);

    RunStatus status;
    status.stage = m_stage = stage();
    status.files = now.filesStarted;
    status.totalFiles = totalFiles;
    status.totalBytes = totalBytes;
    status.seconds = now.seconds;
    status.fraction = fractionOf(workOf(now), total);
    status.bytesPerSecond = rate(workOf(recent), workOf(now), recentTime);
    status.secondsLeft = timeFor(total - workOf(now), rate(workOf(earlier), workOf(now), earlierTime));
    for (std::size_t i = 0; i < now.destinations.size(); ++i) {
        const auto done = workOf(now, i);
        status.destinations.push_back({now.destinations[i].bytes, now.destinations[i].failed,
                                       fractionOf(done, total), rate(workOf(recent, i), done, recentTime),
                                       timeFor(total - done, rate(workOf(earlier, i), done, earlierTime))});
    }
    status.waitingFor = waitingFor();
    return status;
}

// Returns the latest reading that is at least so old, or the first one.
const RunReading &RunMonitor::before(double seconds) const
{
    const double limit = m_readings.back().seconds - seconds;
    const auto next = std::find_if(m_readings.begin() + 1, m_readings.end(),
                                   [&](const RunReading &reading) { return reading.seconds > limit; });
    return *(next - 1);
}

RunStage RunMonitor::stage() const
{
    const auto &now = m_readings.back();
    if (now.isSyncing)
        return RunStage::WritingOut;
    const auto &then = before(StageWindow);
    const bool isVerifying = now.comparedBytes != then.comparedBytes;
    const bool isCopying = workOf(now) - workOf(then) >
                           static_cast<double>(now.comparedBytes) - static_cast<double>(then.comparedBytes);
    if (isVerifying && isCopying)
        return RunStage::CopyingAndVerifying;
    if (isVerifying || isCopying)
        return isVerifying ? RunStage::Verifying : RunStage::Copying;
    return m_stage; // nothing moves, so nothing has changed
}

std::optional<std::size_t> RunMonitor::waitingFor() const
{
    const auto &now = m_readings.back();
    const auto &then = before(RateWindow);
    const double time = now.seconds - then.seconds;
    if (now.isSyncing || time <= 0 || now.destinations.size() < 2)
        return std::nullopt;
    const auto shareOf = [&](std::size_t i) {
        return (now.destinations[i].busySeconds - then.destinations[i].busySeconds) / time;
    };
    std::size_t slowest = 0;
    for (std::size_t i = 1; i < now.destinations.size(); ++i) {
        if (shareOf(i) > shareOf(slowest))
            slowest = i;
    }
    double next = 0;
    for (std::size_t i = 0; i < now.destinations.size(); ++i) {
        if (i != slowest)
            next = std::max(next, shareOf(i));
    }
    const bool holdsUp = shareOf(slowest) >= LeastShare && shareOf(slowest) >= LeastLead * next;
    return holdsUp ? std::optional(slowest) : std::nullopt;
}

} // namespace orvana
