#pragma once

#include "duplicate/report/RunReport.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace orvana
{

/// The progress of a run, computed from what it was to copy and what its report counts by now. Callable from
/// any thread.
class RunProgress
{
public:
    /// Starts the clock. `files` and `bytes` are what the run was to copy, as counted before the run.
    RunProgress(std::int64_t files, std::uint64_t bytes, bool verify, std::shared_ptr<RunReport> report);

    std::int64_t filesStarted() const { return m_report->filesStarted(); }
    std::int64_t totalFiles() const { return m_files; }

    /// Seconds since the run began.
    double elapsed() const;

    /// Bytes written to the destination, of `totalBytes`.
    std::uint64_t bytesOf(std::size_t destination) const;
    std::uint64_t totalBytes() const { return m_bytes; }

    /// Bytes per second since the run began.
    double rateOf(std::size_t destination) const;

    /// Seconds until the destination holds all bytes, at the pace so far. nullopt while nothing is written
    /// yet.
    std::optional<double> secondsLeftOf(std::size_t destination) const;

    /// Bytes that the slowest destination holds. With verifying, the bytes read back are added.
    std::uint64_t workDone() const;
    std::uint64_t totalWork() const { return m_verify ? 2 * m_bytes : m_bytes; }
    std::optional<double> secondsLeft() const;

private:
    std::optional<double> timeFor(double done, double total) const;

    std::int64_t m_files;
    std::uint64_t m_bytes;
    bool m_verify;
    std::shared_ptr<RunReport> m_report;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// "45%". A total of 0 gives 100%.
std::string percentText(std::uint64_t done, std::uint64_t total);

/// "1:02:03", or "2:03" under an hour; "--:--" when unknown.
std::string durationText(std::optional<double> seconds);

} // namespace orvana
