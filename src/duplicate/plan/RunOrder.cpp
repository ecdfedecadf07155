#include "duplicate/plan/RunOrder.h"

#include "duplicate/plan/HealthGate.h"
#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana
{

std::string refusalText(OrderRefusal refusal)
{
    switch (refusal) {
    case OrderRefusal::NothingTicked:
        return "Nothing is selected to be copied, so no disk is erased.";
    case OrderRefusal::SourceGone:
        return "The source is not there any more, or another disk has taken its place. Nothing was touched. "
               "Choose the source again.";
    case OrderRefusal::SourceGoneSinceTheErase:
        return "The source is not there any more, or another disk has taken its place. Nothing was copied; "
               "the "
               "report says which disks were erased. Choose the source again.";
    case OrderRefusal::ErasesAndGoesOn:
        return "A run that goes on with the last one erases no disk. Switch one of the two off.";
    case OrderRefusal::DiskDoesNotAnswer:
        return "A disk of the run before does not answer. Nothing was erased.";
    }
    return {};
}

tl::expected<RunOrder, OrderRefusal> decideOrder(platform::Host &host, const ScannedDevices &devices,
                                                 const RunChoice &choice, const SourceMemory &source,
                                                 const std::vector<std::string> &selection)
{
    if (choice.erase && choice.settings.resume)
        return tl::unexpected(OrderRefusal::ErasesAndGoesOn);
    if (choice.erase && selection.empty())
        return tl::unexpected(OrderRefusal::NothingTicked);
    if (!isStillThere(host, devices, source))
        return tl::unexpected(OrderRefusal::SourceGone);
    RunOrder order{.selection = selection,
                   .totalFiles = 0,
                   .totalBytes = 0,
                   .choice = choice,
                   .source = source,
                   .erase = {},
                   .destinations = {}};
    order.choice.sourceDisks = source.disks;
    addDisksOf(host, devices, selection, order.choice.sourceDisks);
    if (choice.settings.health)
        markFailing(host, devices, order.choice);
    const auto user = userHomeOf(host);
    if (choice.erase) {
        if (auto plan = planErase(devices, order.choice, user, eraseFormat()))
            order.erase = std::move(*plan);
    } else if (auto plan = planDestinations(devices, order.choice, user)) {
        order.destinations = std::move(*plan);
        refuseWhatIsNotMounted(host, order.destinations);
    }
    return order;
}

ErasePlan eraseWithin(const RunOrder &order, ErasePlan now)
{
    const auto &ordered = order.erase.disks;
    std::erase_if(now.disks, [&](const PlannedErase &disk) {
        if (std::find(ordered.begin(), ordered.end(), disk) != ordered.end())
            return false;
        now.refusals.push_back({slotNameOf(disk.bay), disk.info.diskVolume, RefusalReason::OtherDisk});
        return true;
    });
    return now;
}

DestinationPlan destinationsWithin(const RunOrder &order, DestinationPlan now)
{
    const auto isOrdered = [&](const PlannedDestination &destination) {
        if (order.choice.erase)
            return std::any_of(order.erase.disks.begin(), order.erase.disks.end(), [&](const auto &disk) {
                return disk.bay == destination.bay && disk.fingerprint == destination.fingerprint;
            });
        const auto &ordered = order.destinations.destinations;
        return std::find(ordered.begin(), ordered.end(), destination) != ordered.end();
    };
    std::erase_if(now.destinations, [&](const PlannedDestination &destination) {
        if (isOrdered(destination))
            return false;
        now.refusals.push_back({slotNameOf(destination.bay), destination.name, RefusalReason::OtherDisk});
        return true;
    });
    return now;
}

std::vector<std::shared_ptr<ORVHddInfo>> disksToErase(const ErasePlan &plan, const ScannedDevices &devices)
{
    const auto all = devices.allDisks();
    std::vector<std::shared_ptr<ORVHddInfo>> disks;
    for (const auto &erase : plan.disks) {
        const auto found = std::find_if(all.begin(), all.end(), [&](const auto &disk) {
            return bayOfDisk(*disk) == erase.bay && disk->fingerprint() == erase.fingerprint;
        });
        disks.push_back(found == all.end() ? std::make_shared<ORVHddInfo>() : *found);
    }
    return disks;
}

std::string stakeText(const DiskAtStake &disk, const std::string &present)
{
    const auto &info = disk.erase.info;
    auto text = slotNameOf(disk.erase.bay) + ": " + displayPath(info.diskModule) + ", serial number " +
                (info.diskSN.empty() ? "unknown" : displayPath(info.diskSN));
    if (present != UnformattedDisk && present != NoVolume)
        text.append(", now ").append(displayPath(present));
    return text + ", holds " + contentText(disk.content) + ", will be " + displayPath(info.diskVolume);
}

} // namespace orvana
