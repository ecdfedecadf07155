#include "cli/EraseConsent.h"

#include "cli/DeviceScan.h"
#include "cli/Terminal.h"
#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana::cli
{

namespace
{

bool isIn(const std::vector<Bay> &bays, const std::string &slot)
{
    return std::any_of(bays.begin(), bays.end(), [&](Bay bay) { return slotNameOf(bay) == slot; });
}

std::optional<Refusal> refusalOfTyped(const ErasePlan &plan, const PerBay<std::optional<std::string>> &typed)
{
    for (const auto bay : AllBays) {
        const bool isErased = std::any_of(plan.disks.begin(), plan.disks.end(),
                                          [&](const PlannedErase &disk) { return disk.bay == bay; });
        const bool isTooSmall =
            std::find(plan.tooSmall.begin(), plan.tooSmall.end(), bay) != plan.tooSmall.end();
        if (typed[bay] && !isErased && !isTooSmall)
            return Refusal{WrongUsage, slotNameOf(bay) + " is given a name, but no disk in it is erased"};
    }
    return std::nullopt;
}

} // namespace

tl::expected<ErasePlan, Refusal> planRequestedErase(const EraseRequest &request,
                                                    const PerBay<std::optional<std::string>> &typed)
{
    auto plan = planErase(request.devices, request.choice, request.user, eraseFormat());
    if (!plan)
        return tl::unexpected(refusalOf(plan.error()));
    std::erase_if(plan->disks, [&](const auto &disk) { return !isIn(request.bays, slotNameOf(disk.bay)); });
    std::erase_if(plan->refusals, [&](const auto &refusal) { return !isIn(request.bays, refusal.bay); });
    std::erase_if(plan->tooSmall, [&](Bay bay) { return !isIn(request.bays, slotNameOf(bay)); });
    std::erase_if(plan->badNames, [&](const auto &refusal) { return !isIn(request.bays, refusal.bay); });
    if (!plan->badNames.empty())
        return tl::unexpected(Refusal{Refused, textOf(plan->badNames)});
    if (const auto refusal = refusalOfTyped(*plan, typed))
        return tl::unexpected(*refusal);
    return std::move(*plan);
}

std::vector<std::string> eraseLines(platform::Host &host, const ScannedDevices &devices,
                                    const ErasePlan &plan, const PerBay<std::string> &present)
{
    const DiskSurvey survey(host, disksToErase(plan, devices));
    survey.waitUntilOver(DiskSurvey::TimeToCount);
    const auto contents = survey.results();
    std::vector<std::string> lines;
    lines.reserve(plan.disks.size());
    for (std::size_t i = 0; i < plan.disks.size(); ++i)
        lines.push_back("  " + stakeText({plan.disks[i], contents[i]}, present[plan.disks[i].bay]));
    return lines;
}

std::optional<Refusal> askFor(const std::string &question, const std::vector<std::string> &lines,
                              Consent consent, Terminal &terminal, const std::function<bool()> &givesUp)
{
    if (consent == Consent::Given)
        return std::nullopt;
    for (const auto &line : lines)
        terminal.printError(line);
    if (!terminal.canAsk())
        return Refusal{Refused, "nobody is there to confirm it; say --yes if it is meant"};
    if (terminal.confirm(question, givesUp))
        return std::nullopt;
    return givesUp() ? Refusal{Cancelled, "cancelled; nothing was touched"}
                     : Refusal{Refused, "not confirmed; nothing was touched"};
}

Refusal changedMeanwhile()
{
    return {Refused, "the disks are not those that were shown any more; nothing was touched"};
}

} // namespace orvana::cli
