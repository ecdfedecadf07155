// Decides where a run copies to.

#include "discovery/DiskFreeListing.h"
#include "duplicate/engine/RunLocks.h"
#include "duplicate/plan/RunPlan.h"
#include "platform/CommandLauncher.h"
#include "platform/Host.h"
#include "platform/Places.h"
#include "platform/VolumeFiles.h"

#include <algorithm>

namespace orvana
{

namespace
{

class DestinationPlanner
{
public:
    DestinationPlanner(const ORVThunderboltInfo &enclosure, const ScannedDevices &devices,
                       const RunChoice &choice, const UserHome &user)
        : m_enclosure(enclosure), m_devices(devices), m_choice(choice), m_user(user)
    {
    }

    DestinationPlan plan()
    {
        for (const auto bay : AllBays) {
            const auto &name = m_choice.names[bay];
            if (!m_choice.isSourceBay(bay) && !m_choice.isLeftAlone[bay] && name != NoVolume &&
                name != UnformattedDisk)
                add(bay, name);
        }
        return std::move(m_plan);
    }

private:
    void add(Bay bay, const std::string &name)
    {
        const auto disk = diskInBay(bay, m_enclosure);
        if (const auto reason = disk ? refusalOfBay(*disk, bay, name) : RefusalReason::OtherDisk)
            m_plan.refusals.push_back({slotNameOf(bay), name, *reason});
        else if (m_choice.isOverSize[bay])
            m_plan.tooSmall.push_back(bay);
        else
            m_plan.destinations.push_back(destinationOf(*disk, bay, name));
    }

    static PlannedDestination destinationOf(const ORVHddInfo &disk, Bay bay, const std::string &name)
    {
        const auto &volume = *disk.bsdPathArray().front();
        return {
            bay, name, *volume.mountPoint(), diskUtilInfo(disk, name), volume.devPath(), disk.fingerprint()};
    }

    std::optional<RefusalReason> refusalOfBay(const ORVHddInfo &disk, Bay bay, const std::string &name) const
    {
        if (const auto reason = refusalOfTarget(disk, m_enclosure, m_devices, m_choice, m_user))
            return reason;
        if (m_choice.isNotErased[bay])
            return RefusalReason::NotErased;
        if (disk.bsdPathArray().empty())
            return RefusalReason::OtherVolume;
        const auto &mountPoint = disk.bsdPathArray().front()->mountPoint();
        if (!mountPoint || mountPoint->empty())
            return RefusalReason::NotMounted;
        if (name.empty())
            return RefusalReason::NoName;
        if (displayName(*disk.bsdPathArray().front(), m_user) != name)
            return RefusalReason::OtherVolume;
        const auto &earlier = m_plan.destinations;
        const bool isTaken = std::any_of(earlier.begin(), earlier.end(), [&](const auto &other) {
            return other.name == name || other.root == *mountPoint;
        });
        return isTaken ? std::optional(RefusalReason::SameName) : std::nullopt;
    }

    const ORVThunderboltInfo &m_enclosure;
    const ScannedDevices &m_devices;
    const RunChoice &m_choice;
    const UserHome &m_user;
    DestinationPlan m_plan;
};

} // namespace

std::vector<std::string> DestinationPlan::roots() const
{
    std::vector<std::string> all;
    all.reserve(destinations.size());
    for (const auto &destination : destinations)
        all.push_back(destination.root);
    return all;
}

tl::expected<DestinationPlan, EnclosureRefusal>
planDestinations(const ScannedDevices &devices, const RunChoice &choice, const UserHome &user)
{
    const auto enclosure = chosenEnclosure(devices, choice.enclosure);
    if (!enclosure)
        return tl::unexpected(enclosure.error());
    return DestinationPlanner(**enclosure, devices, choice, user).plan();
}

void refuseWhatIsNotMounted(platform::Host &host, DestinationPlan &plan)
{
    const auto mounted = parseDiskFree(host.launcher().run("/bin/df", {}).output, "/dev/disk");
    const auto refusalNow = [&](const PlannedDestination &destination) -> std::optional<RefusalReason> {
        const auto folder = host.volumeFiles().openFolder(destination.root, platform::Reach::Beneath);
        if (!folder || !host.places().isVolumeRoot(**folder))
            return RefusalReason::NotMounted;
        if ((*folder)->traits().isReadOnly)
            return RefusalReason::ReadOnly;
        // Of several volumes that are mounted at one place, only the last is visible.
        const auto there = std::find_if(mounted.rbegin(), mounted.rend(), [&](const auto &line) {
            return line.mountPoint == destination.root;
        });
        const bool isSame = there != mounted.rend() && there->device == destination.device;
        return isSame ? std::nullopt : std::optional(RefusalReason::OtherVolume);
    };
    std::erase_if(plan.destinations, [&](const auto &destination) {
        const auto reason = refusalNow(destination);
        if (reason)
            plan.refusals.push_back({slotNameOf(destination.bay), destination.name, *reason});
        return reason.has_value();
    });
}

void refuseWhatIsInUse(platform::Host &host, DestinationPlan &plan)
{
    const RunLocks locks(host, {}, plan.roots());
    std::vector<PlannedDestination> free;
    for (std::size_t i = 0; i < plan.destinations.size(); ++i) {
        auto &destination = plan.destinations[i];
        if (locks.hasDestination(i))
            free.push_back(std::move(destination));
        else
            plan.refusals.push_back({slotNameOf(destination.bay), destination.name, RefusalReason::InUse});
    }
    plan.destinations = std::move(free);
}

} // namespace orvana
