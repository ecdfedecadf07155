#include "duplicate/plan/RunPlan.h"
#include "foundation/Paths.h"

#include <algorithm>

namespace orvana
{

namespace
{

constexpr const char *NewName = "Untitled";

// Returns "Untitled" for a blank disk whose field still says "Unformatted", and the field's text for any
// other disk.
std::string newNameOf(const ORVHddInfo &disk, const std::string &field)
{
    const bool isBlank = disk.bsdPathArray().empty() && disk.isUnFormated();
    return isBlank && field == UnformattedDisk ? NewName : field;
}

// A disk with the name of the source would be taken for the source once it is erased.
std::optional<NameRefusalReason> nameGuardIn(const RunChoice &choice, const std::string &name,
                                             EraseFormat format)
{
    const auto reason = refusalOfName(name, format);
    const bool isSources = name == choice.source || name == choice.sourceItem;
    return reason || !isSources ? reason : NameRefusalReason::OfSource;
}

void addToEject(EjectPlan &plan, const ORVHddInfo &disk, const std::string &name,
                const std::optional<RefusalReason> &reason)
{
    if (reason)
        plan.refusals.push_back({disk.slotPath().value_or(std::string()), name, *reason});
    else
        plan.disks.push_back(diskUtilInfo(disk, name));
}

// The source itself may be ejected, but never the start-up disk.
std::optional<RefusalReason> guardOfSource(const ORVHddInfo &disk, const ScannedDevices &devices)
{
    return refusalOf(disk, devices, RunChoice(), UserHome());
}

// A disk is not erased for a copy that it cannot hold, also when its bay is not shown as too small.
bool fitsAfterErase(const RunChoice &choice, const ORVHddInfo &disk)
{
    return !choice.selectedBytes || disk.bsdPathArray().empty() ||
           fits(*choice.selectedBytes, *disk.bsdPathArray().front(), EraseFirst::Yes);
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

EraseFirst limitOf(bool erase, const RunSettings &settings)
{
    return erase || settings.resume || settings.manner.update ? EraseFirst::Yes : EraseFirst::No;
}

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
                       [&](Bay bay) { return !choice.isSourceBay(bay) && choice.isOverSize[bay]; });
}

std::string overSizeText(const RunChoice &choice)
{
    std::string text;
    for (const auto bay : AllBays) {
        if (!choice.isSourceBay(bay) && choice.isOverSize[bay])
            text.append(" ").append(choice.names[bay]);
    }
    return text + ".";
}

bool hasTree(const std::vector<FileListRow> &rows)
{
    return !rows.empty() && !rows.front().fullPath.empty();
}

std::vector<std::string> selectedPaths(const std::vector<FileListRow> &rows)
{
    std::vector<std::string> paths;
    for (const auto &row : rows) {
        if (row.isTicked())
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
        if (!bay || choice.isSourceBay(*bay) || choice.isLeftAlone[*bay])
            continue;
        const auto name = newNameOf(*disk, choice.names[*bay]);
        if (const auto reason = refusalOfTarget(*disk, **enclosure, devices, choice, user))
            plan.refusals.push_back({slotNameOf(*bay), choice.names[*bay], *reason});
        else if (choice.isOverSize[*bay])
            plan.tooSmall.push_back(*bay);
        else if (!fitsAfterErase(choice, *disk))
            plan.refusals.push_back({slotNameOf(*bay), choice.names[*bay], RefusalReason::TooSmall});
        else if (const auto bad = nameGuardIn(choice, name, format))
            plan.badNames.push_back({slotNameOf(*bay), name, *bad, format});
        else
            plan.disks.push_back({*bay, diskUtilInfo(*disk, name), disk->fingerprint()});
    }
    return plan;
}

tl::expected<EjectPlan, EnclosureRefusal> planTargetEject(const ScannedDevices &devices,
                                                          const RunChoice &choice, const UserHome &user)
{
    if (const auto chosen = chosenEnclosure(devices, choice.enclosure); !chosen)
        return tl::unexpected(chosen.error());
    EjectPlan plan;
    for (const auto &enclosure : devices.tbArray) {
        for (const auto &disk : enclosure->hddArray()) {
            if (disk->bsdPathArray().empty() || (bayOfDisk(*disk) && choice.isSourceBay(*bayOfDisk(*disk))))
                continue;
            addToEject(plan, *disk, displayName(*disk->bsdPathArray().front(), user),
                       refusalOf(*disk, devices, choice, user));
        }
    }
    return plan;
}

std::vector<DiskUtilInfo> planMount(const ORVThunderboltInfo &enclosure)
{
    std::vector<DiskUtilInfo> disks;
    for (const auto &disk : enclosure.hddArray()) {
        if (bayOfDisk(*disk) && disk->hasOtherPartitions() && !disk->isRaidFormated() &&
            !isStartupDisk(*disk))
            disks.push_back(diskUtilInfo(*disk, {}));
    }
    return disks;
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
