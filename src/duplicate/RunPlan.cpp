#include "duplicate/RunPlan.h"

#include "platform/Host.h"
#include "platform/Places.h"
#include "platform/VolumeFiles.h"

#include <algorithm>

namespace orvana
{

namespace
{

constexpr const char *NewName = "Untitled";

// A disk's place is not certain when another record claims its bay, or its device node in any enclosure.
bool isCertain(const ORVHddInfo &disk, const ORVThunderboltInfo &enclosure, const ScannedDevices &devices)
{
    const auto isRival = [&](const ORVHddInfo &other, bool isInSameEnclosure) {
        return &other != &disk && (other.devPath() == disk.devPath() ||
                                   (isInSameEnclosure && other.slotPath() == disk.slotPath()));
    };
    for (const auto &device : devices.tbArray) {
        const auto &disks = device->hddArray();
        if (std::any_of(disks.begin(), disks.end(),
                        [&](const auto &other) { return isRival(*other, device.get() == &enclosure); }))
            return false;
    }
    return true;
}

// What was shown when the user chose, against what is there now.
bool isAsShown(const ORVHddInfo &disk, Bay bay, const RunChoice &choice)
{
    return !choice.shown || (*choice.shown)[bay] == diskUtilInfo(disk, std::string());
}

std::optional<DiskGuard> guardOfTarget(const ORVHddInfo &disk, Bay bay, const ORVThunderboltInfo &enclosure,
                                       const ScannedDevices &devices, const RunChoice &choice,
                                       const UserHome &user)
{
    if (const auto guard = guardOf(disk, devices, choice, user))
        return guard;
    if (disk.isRaidFormated())
        return DiskGuard::RaidSet;
    if (!isCertain(disk, enclosure, devices))
        return DiskGuard::NotCertain;
    if (!isAsShown(disk, bay, choice))
        return DiskGuard::OtherDisk;
    return std::nullopt;
}

// A blank disk gets a name of its own; any other that which its field holds.
std::string newNameOf(const ORVHddInfo &disk, const std::string &field)
{
    const bool isBlank = disk.bsdPathArray().empty() && disk.isUnFormated();
    return isBlank && field == UnformattedDisk ? NewName : field;
}

bool isSourceBay(Bay bay, const RunChoice &choice)
{
    return bay == Bay::A && choice.slotAisSource;
}

const ORVHddInfo *diskIn(Bay bay, const ORVThunderboltInfo &enclosure)
{
    for (const auto &disk : enclosure.hddArray()) {
        if (bayOfDisk(*disk) == bay)
            return disk.get();
    }
    return nullptr;
}

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
            if (!isSourceBay(bay, m_choice) && name != NoVolume && name != UnformattedDisk)
                add(bay, name);
        }
        return std::move(m_plan);
    }

private:
    void add(Bay bay, const std::string &name)
    {
        const auto *disk = diskIn(bay, m_enclosure);
        if (const auto guard = disk ? guardOfBay(*disk, bay, name) : DiskGuard::OtherDisk)
            m_plan.refusals.push_back({slotNameOf(bay), name, *guard});
        else if (m_choice.isOverSize[bay])
            m_plan.tooSmall.push_back(bay);
        else
            m_plan.destinations.push_back(
                {bay, name, *disk->bsdPathArray().front()->mountPoint(), diskUtilInfo(*disk, name)});
    }

    std::optional<DiskGuard> guardOfBay(const ORVHddInfo &disk, Bay bay, const std::string &name) const
    {
        if (const auto guard = guardOfTarget(disk, bay, m_enclosure, m_devices, m_choice, m_user))
            return guard;
        if (disk.bsdPathArray().empty())
            return DiskGuard::OtherVolume;
        const auto &mountPoint = disk.bsdPathArray().front()->mountPoint();
        if (!mountPoint || mountPoint->empty())
            return DiskGuard::NotMounted;
        if (name.empty())
            return DiskGuard::NoName;
        if (displayName(*disk.bsdPathArray().front(), m_user) != name)
            return DiskGuard::OtherVolume;
        const auto &earlier = m_plan.destinations;
        const bool isTaken = std::any_of(earlier.begin(), earlier.end(), [&](const auto &other) {
            return other.name == name || other.root == *mountPoint;
        });
        return isTaken ? std::optional(DiskGuard::SameName) : std::nullopt;
    }

    const ORVThunderboltInfo &m_enclosure;
    const ScannedDevices &m_devices;
    const RunChoice &m_choice;
    const UserHome &m_user;
    DestinationPlan m_plan;
};

void addToEject(EjectPlan &plan, const ORVHddInfo &disk, const std::string &name,
                const std::optional<DiskGuard> &guard)
{
    if (guard)
        plan.refusals.push_back({disk.slotPath().value_or(std::string()), name, *guard});
    else
        plan.disks.push_back(diskUtilInfo(disk, name));
}

// The source itself may go; the start-up disk never.
std::optional<DiskGuard> guardOfSource(const ORVHddInfo &disk, const ScannedDevices &devices)
{
    return guardOf(disk, devices, RunChoice(), UserHome());
}

template <class Refusals>
std::string linesOf(const Refusals &refusals)
{
    std::string text;
    for (const auto &refusal : refusals)
        text += (text.empty() ? "" : "\n") + refusalText(refusal);
    return text;
}

} // namespace

bool fits(std::uint64_t bytes, const ORVBsdInfo &volume, EraseFirst erase)
{
    const auto size = static_cast<double>(bytes);
    if (erase == EraseFirst::Yes)
        return size <= 0.99 * static_cast<double>(bytesOfBlocks(volume.capacitySize()));
    return size <= static_cast<double>(bytesOfBlocks(volume.availableSize()));
}

std::vector<BayFit> fitOfBays(const ORVThunderboltInfo &enclosure, std::uint64_t bytes, EraseFirst erase)
{
    std::vector<BayFit> all;
    for (const auto &disk : enclosure.hddArray()) {
        if (!disk->bsdPathArray().empty())
            all.push_back({disk->slotPath().value_or(std::string()),
                           fits(bytes, *disk->bsdPathArray().front(), erase)});
    }
    return all;
}

bool isOverSizeInAll(const RunChoice &choice)
{
    const auto &isOverSize = choice.isOverSize;
    return isOverSize[Bay::B] && isOverSize[Bay::C] && isOverSize[Bay::D];
}

bool isOverSizeInSome(const RunChoice &choice)
{
    return std::any_of(AllBays.begin(), AllBays.end(),
                       [&](Bay bay) { return !isSourceBay(bay, choice) && choice.isOverSize[bay]; });
}

std::string overSizeText(const RunChoice &choice)
{
    std::string text;
    for (const auto bay : AllBays) {
        if (!isSourceBay(bay, choice) && choice.isOverSize[bay])
            text.append(" ").append(choice.names[bay]);
    }
    return text + ".";
}

bool hasTree(const std::vector<TreeRow> &rows)
{
    return !rows.empty() && !rows.front().fullPath.empty();
}

std::vector<std::string> selectedPaths(const std::vector<TreeRow> &rows)
{
    std::vector<std::string> paths;
    for (const auto &row : rows) {
        if (!row.isExpand && row.isChecked == 1)
            paths.push_back(row.fullPath);
    }
    return paths;
}

tl::expected<ErasePlan, EnclosureRefusal> planErase(const ScannedDevices &devices, const RunChoice &choice,
                                                    const UserHome &user, EraseFormat format)
{
    const auto enclosure = chosenEnclosure(devices, choice.enclosure);
    if (!enclosure)
        return tl::unexpected(enclosure.error());
    ErasePlan plan;
    for (const auto &disk : (*enclosure)->hddArray()) {
        const auto bay = bayOfDisk(*disk);
        if (!bay || isSourceBay(*bay, choice))
            continue;
        const auto name = newNameOf(*disk, choice.names[*bay]);
        if (const auto guard = guardOfTarget(*disk, *bay, **enclosure, devices, choice, user))
            plan.refusals.push_back({slotNameOf(*bay), choice.names[*bay], *guard});
        else if (const auto bad = nameGuardOf(name, format))
            plan.badNames.push_back({slotNameOf(*bay), name, *bad, format});
        else
            plan.disks.push_back({*bay, diskUtilInfo(*disk, name)});
    }
    return plan;
}

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
    const auto isMounted = [&](const PlannedDestination &destination) {
        const auto folder = host.volumeFiles().openFolder(destination.root, platform::Reach::Beneath);
        return folder && host.places().isVolumeRoot(**folder);
    };
    std::erase_if(plan.destinations, [&](const auto &destination) {
        if (isMounted(destination))
            return false;
        plan.refusals.push_back({slotNameOf(destination.bay), destination.name, DiskGuard::NotMounted});
        return true;
    });
}

tl::expected<EjectPlan, EnclosureRefusal> planTargetEject(const ScannedDevices &devices,
                                                          const RunChoice &choice, const UserHome &user)
{
    if (const auto chosen = chosenEnclosure(devices, choice.enclosure); !chosen)
        return tl::unexpected(chosen.error());
    EjectPlan plan;
    for (const auto &enclosure : devices.tbArray) {
        for (const auto &disk : enclosure->hddArray()) {
            if (disk->bsdPathArray().empty() || (bayOfDisk(*disk) == Bay::A && choice.slotAisSource))
                continue;
            addToEject(plan, *disk, displayName(*disk->bsdPathArray().front(), user),
                       guardOf(*disk, devices, choice, user));
        }
    }
    return plan;
}

tl::expected<EjectPlan, EnclosureRefusal> planSourceEject(const ScannedDevices &devices,
                                                          const RunChoice &choice)
{
    const auto chosen = chosenEnclosure(devices, choice.enclosure);
    if (!chosen)
        return tl::unexpected(chosen.error());
    EjectPlan plan;
    const auto addMatches = [&](const ORVHddInfo &disk) {
        for (const auto &volume : disk.bsdPathArray()) {
            if (volume->mountPoint() && lastComponent(*volume->mountPoint()) == choice.sourceItem)
                addToEject(plan, disk, choice.sourceItem, guardOfSource(disk, devices));
        }
    };
    if (isTBDevDiskArrayVolumes(choice.sourceItem, chosen->get())) {
        for (const auto &enclosure : devices.tbArray) {
            for (const auto &disk : enclosure->hddArray()) {
                if (bayOfDisk(*disk) == Bay::A)
                    addMatches(*disk);
            }
        }
    } else {
        for (const auto &disk : devices.otherDiskArray)
            addMatches(*disk);
    }
    return plan;
}

std::string textOf(const std::vector<DiskRefusal> &refusals)
{
    return linesOf(refusals);
}

std::string textOf(const std::vector<NameRefusal> &refusals)
{
    return linesOf(refusals);
}

} // namespace orvana
