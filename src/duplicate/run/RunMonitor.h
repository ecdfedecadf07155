#pragma once

#include "duplicate/run/RunProgress.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// The kind of work that a run does at a moment.
enum class RunStage { Copying, Verifying, CopyingAndVerifying, WritingOut };

/// "copying", "verifying", "copying and verifying" or "writing out".
const char *nameOf(RunStage stage);

/// The progress of one destination. Rates are bytes per second over the last five seconds; bytes that are
/// written and bytes that are read back count alike.
struct DestinationStatus
{
    std::uint64_t bytes = 0; ///< written, or there already
    std::int64_t failed = 0;
    double fraction = 0; ///< of its work, 0 to 1
    double bytesPerSecond = 0;
    std::optional<double> secondsLeft; ///< at the pace of the last half minute; nullopt when nothing moves
};

struct RunStatus
{
    RunStage stage = RunStage::Copying;
    std::int64_t files = 0; ///< whose copy was started
    std::int64_t totalFiles = 0;
    std::uint64_t totalBytes = 0;
    double seconds = 0;        ///< since the run began
    double fraction = 0;       ///< of the run's work, 0 to 1
    double bytesPerSecond = 0; ///< each byte of the source counts once, however many disks get it
    std::optional<double> secondsLeft;
    std::vector<DestinationStatus> destinations;
    /// The destination whose disk the others wait for; nullopt while no disk holds up the others.
    std::optional<std::size_t> waitingFor;
};

/// Tells how long the file in hand takes, from the percent of it that is done. Used by one thread.
class FilePace
{
public:
    /// Returns the seconds until the file is done. nullopt for a file that has been in hand for less than a
    /// second. `now` is in seconds.
    std::optional<double> secondsLeft(double percent, double now);

private:
    double m_startPercent = 0;
    double m_startTime = 0;
    double m_lastPercent = -1;
};

/// Makes rates and times out of the counts of a run. It remembers the counts of the last half minute, so
/// there is one monitor for each run and each display. Used by one thread.
class RunMonitor
{
public:
    /// Looks at the run now. Call it several times a second, and at most ten times.
    RunStatus look(const RunProgress &progress);

    /// `look` with counts that are given.
    RunStatus look(RunReading reading, std::int64_t totalFiles, std::uint64_t totalBytes, bool verify);

private:
    const RunReading &before(double seconds) const;
    RunStage stage() const;
    std::optional<std::size_t> waitingFor() const;

    std::deque<RunReading> m_readings;
    RunStage m_stage = RunStage::Copying;
};

} // namespace orvana
