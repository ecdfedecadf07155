#include "duplicate/run/RunProgress.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace orvana
{

RunProgress::RunProgress(std::int64_t files, std::uint64_t bytes, bool verify,
                         std::shared_ptr<RunReport> report)
    : m_files(files), m_bytes(bytes), m_verify(verify), m_report(std::move(report))
{
}

double RunProgress::elapsed() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
}

std::uint64_t RunProgress::bytesOf(std::size_t destination) const
{
    return m_report->destination(destination).bytes;
}

double RunProgress::rateOf(std::size_t destination) const
{
    return static_cast<double>(bytesOf(destination)) / std::max(elapsed(), 0.001);
}

RunReading RunProgress::reading() const
{
    RunReading reading{.seconds = elapsed(),
                       .filesStarted = m_report->filesStarted(),
                       .comparedBytes = m_report->comparedBytes(),
                       .isSyncing = m_report->isSyncing(),
                       .destinations = {}};
    const auto count = m_report->destinationCount();
    for (std::size_t i = 0; i < count; ++i) {
        const auto &tally = m_report->destination(i);
        reading.destinations.push_back({tally.bytes + tally.bytesThere, tally.busy.seconds(), tally.failed});
    }
    return reading;
}

std::string percentText(double fraction)
{
    return std::to_string(static_cast<int>(100 * std::clamp(fraction, 0.0, 1.0))) + "%";
}

std::string durationText(std::optional<double> seconds)
{
    if (!seconds)
        return "--:--";
    const long all = std::lround(*seconds);
    std::array<char, 32> text{};
    if (all >= 3600)
        std::snprintf(text.data(), text.size(), "%ld:%02ld:%02ld", all / 3600, all / 60 % 60, all % 60);
    else
        std::snprintf(text.data(), text.size(), "%ld:%02ld", all / 60, all % 60);
    return text.data();
}

} // namespace orvana
