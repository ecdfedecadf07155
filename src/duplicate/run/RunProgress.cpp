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

std::optional<double> RunProgress::timeFor(double done, double total) const
{
    if (done <= 0)
        return std::nullopt;
    return std::max(0.0, elapsed() * (total - done) / done);
}

std::optional<double> RunProgress::secondsLeftOf(std::size_t destination) const
{
    return timeFor(static_cast<double>(bytesOf(destination)), static_cast<double>(m_bytes));
}

std::uint64_t RunProgress::workDone() const
{
    std::uint64_t slowest = m_bytes;
    for (std::size_t i = 0; i < m_report->destinationCount(); ++i)
        slowest = std::min(slowest, bytesOf(i));
    return m_verify ? slowest + m_report->comparedBytes() : slowest;
}

std::optional<double> RunProgress::secondsLeft() const
{
    return timeFor(static_cast<double>(workDone()), static_cast<double>(totalWork()));
}

std::string percentText(std::uint64_t done, std::uint64_t total)
{
    const auto percent = total == 0 ? 100.0 : 100.0 * static_cast<double>(done) / static_cast<double>(total);
    return std::to_string(static_cast<int>(std::min(percent, 100.0))) + "%";
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
