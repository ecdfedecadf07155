#pragma once

#include "duplicate/report/RunReport.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// The counts of a run at one moment.
struct RunReading
{
    struct Destination
    {
        std::uint64_t bytes = 0; ///< written, or there already
        double busySeconds = 0;  ///< that its disk has been worked on
        std::int64_t failed = 0;

        bool operator==(const Destination &) const = default;
    };

    double seconds = 0; ///< since the run began
    std::int64_t filesStarted = 0;
    std::uint64_t comparedBytes = 0; ///< bytes of source files that were compared with their copies
    bool isSyncing = false;
    std::vector<Destination> destinations;
};

/// The progress of a run, computed from what it was to copy and what its report counts by now. Callable from
/// any thread.
class RunProgress
{
public:
    /// Starts the clock. `files` and `bytes` are what the run was to copy, as counted before the run.
    RunProgress(std::int64_t files, std::uint64_t bytes, bool verify, std::shared_ptr<RunReport> report);

    std::int64_t filesStarted() const { return m_report->filesStarted(); }
    std::int64_t totalFiles() const { return m_files; }

    /// Returns the counts as they are now.
    RunReading reading() const;

    /// Seconds since the run began.
    double elapsed() const;

    /// Bytes written to the destination, of `totalBytes`.
    std::uint64_t bytesOf(std::size_t destination) const;
    std::uint64_t totalBytes() const { return m_bytes; }

    /// Bytes per second since the run began.
    double rateOf(std::size_t destination) const;

    bool isVerifying() const { return m_verify; }

private:
    std::int64_t m_files;
    std::uint64_t m_bytes;
    bool m_verify;
    std::shared_ptr<RunReport> m_report;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// "45%" for 0.459. Limited to 0% and 100%.
std::string percentText(double fraction);

/// "1:02:03", or "2:03" under an hour; "--:--" when unknown.
std::string durationText(std::optional<double> seconds);

} // namespace orvana
