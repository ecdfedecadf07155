#include "duplicate/run/DiskReport.h"

#include "duplicate/report/RunReport.h"

#include <algorithm>

namespace orvana
{

namespace
{

void reportRefusals(RunReport &report, const std::vector<DiskRefusal> &refusals)
{
    for (const auto &refusal : refusals) {
        if (refusal.reason == RefusalReason::NotErased)
            continue; // `reportErase` has reported it, with the reason
        const bool isSource = refusal.reason == RefusalReason::CarriesSource;
        report.disk({refusal.bay,
                     refusal.name,
                     {},
                     isSource ? DiskOutcome::LeftOut : DiskOutcome::Refused,
                     reasonText(refusal.reason)});
    }
}

} // namespace

PerBay<bool> baysNotErased(const ErasePlan &plan, const std::vector<DiskResult> &results)
{
    PerBay<bool> bays;
    for (const auto bay : AllBays)
        bays[bay] = true;
    for (const auto bay : plan.tooSmall)
        bays[bay] = false; // reported as too small for the selection
    for (std::size_t i = 0; i < plan.disks.size() && i < results.size(); ++i)
        bays[plan.disks[i].bay] = !results[i].succeeded;
    return bays;
}

void reportErase(RunReport &report, const ErasePlan &plan, const std::vector<DiskResult> &results)
{
    for (std::size_t i = 0; i < plan.disks.size(); ++i) {
        const auto &disk = plan.disks[i];
        const auto &info = disk.info;
        DiskEntry entry{slotNameOf(disk.bay), info.diskVolume, info, DiskOutcome::EraseFailed,
                        "the erase was stopped before it"};
        if (i < results.size()) {
            entry.outcome = results[i].succeeded ? DiskOutcome::Erased : DiskOutcome::EraseFailed;
            entry.reason = results[i].reason;
        }
        report.disk(entry);
    }
    reportRefusals(report, plan.refusals);
}

std::vector<platform::DiskHealth> healthOf(const std::vector<PlannedDestination> &destinations,
                                           platform::HealthReader &reader)
{
    std::vector<platform::DiskHealth> health;
    health.reserve(destinations.size());
    for (const auto &destination : destinations)
        health.push_back(reader.healthOf(destination.disk.diskPath));
    return health;
}

std::vector<DestinationDisk> disksOf(const std::vector<PlannedDestination> &destinations,
                                     const std::vector<platform::DiskHealth> &health)
{
    std::vector<DestinationDisk> disks;
    for (const auto &destination : destinations) {
        const auto &size = destination.fingerprint.size;
        const auto index = disks.size();
        disks.push_back({slotNameOf(destination.bay), destination.name, destination.disk.diskModule,
                         destination.disk.diskSN,
                         size && *size > 0 ? std::optional<std::uint64_t>(*size) : std::nullopt});
        if (index < health.size())
            disks.back().health = textOf(health[index]);
    }
    return disks;
}

void reportHealthAfter(RunReport &report, const std::vector<PlannedDestination> &destinations,
                       const std::vector<platform::DiskHealth> &before, platform::HealthReader &reader)
{
    std::vector<std::string> texts;
    const auto after = healthOf(destinations, reader);
    texts.reserve(after.size());
    for (std::size_t i = 0; i < after.size(); ++i)
        texts.push_back(textOf(after[i], i < before.size() ? &before[i] : nullptr));
    report.healthAfter(texts);
}

std::vector<DiskUtilInfo> wholeDisks(const std::vector<PlannedDestination> &destinations,
                                     const RunSummary &summary)
{
    std::vector<DiskUtilInfo> disks;
    for (std::size_t i = 0; i < std::min(destinations.size(), summary.destinations.size()); ++i) {
        if (isWhole(summary.destinations[i]))
            disks.push_back(destinations[i].disk);
    }
    return disks;
}

void reportDestinations(RunReport &report, const DestinationPlan &plan, const RunChoice &choice)
{
    reportRefusals(report, plan.refusals);
    for (const auto bay : plan.tooSmall)
        report.disk(
            {slotNameOf(bay), choice.names[bay], {}, DiskOutcome::LeftOut, "the selection does not fit"});
    if (plan.destinations.empty())
        report.note("no destination");
}

} // namespace orvana
