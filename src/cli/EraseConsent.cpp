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
        if (typed[bay] && !isErased)
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
    std::erase_if(plan->badNames, [&](const auto &refusal) { return !isIn(request.bays, refusal.bay); });
    if (!plan->badNames.empty())
        return tl::unexpected(Refusal{Refused, textOf(plan->badNames)});
    if (const auto refusal = refusalOfTyped(*plan, typed))
        return tl::unexpected(*refusal);
    return std::move(*plan);
}

std::vector<std::string> eraseLines(const ErasePlan &plan, const RunChoice &choice,
                                    const PerBay<std::string> &present)
{
    std::vector<std::string> lines;
    lines.reserve(plan.disks.size());
    for (const auto &[bay, info] : plan.disks) {
        auto line = "  " + slotNameOf(bay) + ": " + displayPath(info.diskModule) + ", serial number " +
                    (info.diskSN.empty() ? "unknown" : displayPath(info.diskSN));
        if (present[bay] != UnformattedDisk)
            line.append(", now ").append(displayPath(present[bay]));
        line.append(", will be ").append(displayPath(info.diskVolume));
        if (choice.isOverSize[bay])
            line += " (erased, but too small for a copy)";
        lines.push_back(std::move(line));
    }
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
