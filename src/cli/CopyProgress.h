#pragma once

#include "duplicate/CopyCensus.h"
#include "duplicate/RunReport.h"

#include <chrono>
#include <optional>
#include <string>

namespace orvana::cli
{

/// How far a run is at one moment, reckoned from what it was to copy and what its report counts.
class CopyProgress
{
public:
    CopyProgress(const CopyCensus &census, RunReport &report, bool verify);

    /// Seconds since the run began.
    double elapsed() const;

    /// Bytes that the destination holds, of `totalBytes`.
    std::uint64_t bytesOf(std::size_t destination) const;
    std::uint64_t totalBytes() const { return m_census.bytes; }

    /// Bytes a second since the run began.
    double rateOf(std::size_t destination) const;

    /// Seconds until `destination` holds all, at the pace so far; nothing before there is a pace.
    std::optional<double> secondsLeftOf(std::size_t destination) const;

    /// Bytes that the slowest destination holds; with verifying, bytes read back count like bytes written.
    std::uint64_t workDone() const;
    std::uint64_t totalWork() const { return m_verify ? 2 * m_census.bytes : m_census.bytes; }
    std::optional<double> secondsLeft() const;

private:
    std::optional<double> timeFor(double done, double total) const;

    CopyCensus m_census;
    RunReport &m_report;
    bool m_verify;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// "45%"; all of nothing is 100%.
std::string percentText(std::uint64_t done, std::uint64_t total);

/// "1:02:03", or "2:03" under an hour; "--:--" when unknown.
std::string durationText(std::optional<double> seconds);

} // namespace orvana::cli
