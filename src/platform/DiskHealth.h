#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvana::platform
{

/// The health of a disk: its own words, and the facts that the kernel knows without asking it. Nullopt for
/// what is not known.
struct DiskHealth
{
    std::optional<bool> isFailing;     ///< what the disk's own self-assessment says
    std::vector<std::string> failings; ///< why, in plain words; valid UTF-8
    std::optional<std::int64_t> badSectors;
    std::optional<double> celsius;
    std::optional<double> criticalCelsius;
    bool hasHeatAlarm = false;          ///< the disk itself says that it is too hot, or too cold
    std::optional<std::int64_t> hours;  ///< powered on
    std::optional<std::int64_t> errors; ///< that the kernel knows of since the disk came, the last 32 at most
    std::optional<std::string> linkRate; ///< of SATA: "6.0 Gbps"

    bool operator==(const DiskHealth &) const = default;
};

/// "Not known" is never "good".
enum class HealthVerdict { NotKnown, Good, Warning, Failing };

HealthVerdict verdictOf(const DiskHealth &health);

/// "good", "warning", "failing", "not known"
const char *wordOf(HealthVerdict verdict);

/// Returns what there is to be warned of, each in plain words: "12 bad sectors", "the link is down to 1.5
/// Gbps". With `before`, new errors and bad sectors since then are among them.
std::vector<std::string> warningsOf(const DiskHealth &health, const DiskHealth *before = nullptr);

/// "good, 31 °C, 1200 hours", "warning: 12 bad sectors, 31 °C", "calls itself failing: 2000 bad sectors",
/// "not known".
std::string textOf(const DiskHealth &health, const DiskHealth *before = nullptr);

/// Asks disks how they are. A disk is never asked while it is written to: some bridges answer with errors on
/// what goes on. Main thread only.
class HealthReader
{
public:
    virtual ~HealthReader() = default;

    /// Returns the health of the disk with this node ("/dev/disk3"). Takes two seconds at most, if the
    /// system's disk service does not answer.
    virtual DiskHealth healthOf(const std::string &device) = 0;
};

} // namespace orvana::platform
