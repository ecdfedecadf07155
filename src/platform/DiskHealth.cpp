#include "platform/DiskHealth.h"

#include <cmath>

namespace orvana::platform
{

namespace
{

// The limit for a disk that names none of its own. Makers of disks give 60 to 70 °C as the highest for work.
constexpr double UsualCritical = 65.0;

// A SATA disk that runs at the lowest rate has a bad contact: even disks of 2005 run at 3.0 Gbps.
constexpr const char *SlowLink = "1.5 Gbps";

std::string degrees(double celsius)
{
    return std::to_string(std::lround(celsius)) + " °C";
}

std::string counted(std::int64_t number, const std::string &what)
{
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

// Returns by how much a count has grown. One that is not known on either side has not.
std::int64_t grown(const std::optional<std::int64_t> &now, const std::optional<std::int64_t> &before)
{
    return now && before && *now > *before ? *now - *before : 0;
}

std::string joined(const std::vector<std::string> &texts)
{
    std::string all;
    for (const auto &text : texts)
        all += (all.empty() ? "" : ", ") + text;
    return all;
}

} // namespace

std::vector<std::string> warningsOf(const DiskHealth &health, const DiskHealth *before)
{
    std::vector<std::string> warnings;
    if (health.badSectors.value_or(0) > 0)
        warnings.push_back(counted(*health.badSectors, "bad sector"));
    if (before && grown(health.badSectors, before->badSectors) > 0)
        warnings.push_back(std::to_string(grown(health.badSectors, before->badSectors)) + " of them new");
    if (before && grown(health.errors, before->errors) > 0)
        warnings.push_back(counted(grown(health.errors, before->errors), "new error"));
    if (health.celsius && *health.celsius >= health.criticalCelsius.value_or(UsualCritical))
        warnings.push_back("hot, " + degrees(*health.celsius));
    else if (health.hasHeatAlarm)
        warnings.emplace_back("its temperature is out of its own limits");
    if (health.linkRate == SlowLink)
        warnings.emplace_back("the link is down to 1.5 Gbps");
    return warnings;
}

HealthVerdict verdictOf(const DiskHealth &health)
{
    if (health.isFailing.value_or(false))
        return HealthVerdict::Failing;
    if (!warningsOf(health).empty())
        return HealthVerdict::Warning;
    return health.isFailing ? HealthVerdict::Good : HealthVerdict::NotKnown;
}

const char *wordOf(HealthVerdict verdict)
{
    switch (verdict) {
    case HealthVerdict::NotKnown:
        return "not known";
    case HealthVerdict::Good:
        return "good";
    case HealthVerdict::Warning:
        return "warning";
    case HealthVerdict::Failing:
        return "failing";
    }
    return "";
}

std::string textOf(const DiskHealth &health, const DiskHealth *before)
{
    auto reasons = warningsOf(health, before);
    auto verdict = verdictOf(health);
    if (verdict != HealthVerdict::Failing && !reasons.empty())
        verdict = HealthVerdict::Warning;
    if (verdict == HealthVerdict::Failing)
        reasons.insert(reasons.begin(), health.failings.begin(), health.failings.end());
    std::string text = verdict == HealthVerdict::Failing ? "calls itself failing" : wordOf(verdict);
    if (!reasons.empty())
        text += ": " + joined(reasons);
    if (health.celsius && text.find("°C") == std::string::npos)
        text += ", " + degrees(*health.celsius);
    if (health.hours)
        text += ", " + counted(*health.hours, "hour");
    return text;
}

} // namespace orvana::platform
