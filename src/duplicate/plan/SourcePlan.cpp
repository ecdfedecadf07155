#include "duplicate/plan/SourcePlan.h"

#include "foundation/Paths.h"
#include "foundation/SizeText.h"

#include <algorithm>

namespace orvana
{

namespace
{

DiskRow rowOf(const ORVHddInfo &disk, std::string volume)
{
    return {.volume = std::move(volume),
            .model = disk.hddModel().value_or(std::string()),
            .serial = disk.hddSN().value_or(std::string()),
            .available = {},
            .capacity = {},
            .labelHidden = false,
            .isRaid = disk.isRaidFormated()};
}

// Calls `visit` with each mounted volume outside the enclosures, and with its disk.
template <class Visit>
void visitMounted(const ScannedDevices &devices, Visit visit)
{
    const auto visitDisks = [&](const auto &disks) {
        for (const auto &disk : disks) {
            for (const auto &volume : disk->bsdPathArray()) {
                if (volume->mountPoint() && !volume->mountPoint()->empty())
                    visit(*disk, *volume);
            }
        }
    };
    visitDisks(devices.otherDiskArray);
    for (const auto &device : devices.otherTBArray)
        visitDisks(device->hddArray());
}

template <class Visit>
void visitBayA(const ORVThunderboltInfo *enclosure, Visit visit)
{
    if (!enclosure)
        return;
    for (const auto &disk : enclosure->hddArray()) {
        if (bayOfDisk(*disk) != Bay::A)
            continue;
        for (const auto &volume : disk->bsdPathArray()) {
            if (volume->mountPoint() && !volume->mountPoint()->empty())
                visit(*disk, *volume);
        }
    }
}

void addBayA(SourcePlan &plan, const ORVThunderboltInfo *enclosure, const UserHome &user)
{
    visitBayA(enclosure, [&](const ORVHddInfo &disk, const ORVBsdInfo &volume) {
        if (plan.candidates.empty())
            plan.root = rootObject(volume, user);
        plan.row = rowOfVolume(disk, volume, user);
        plan.isFound = true;
        plan.candidates.push_back(
            {displayName(volume, user), rootPath(volume, user), SourceIcon::InternalDisk, {}});
    });
    plan.bayCandidates = plan.candidates.size();
}

void addOthers(SourcePlan &plan, const ScannedDevices &devices, const UserHome &user)
{
    visitMounted(devices, [&](const ORVHddInfo &disk, const ORVBsdInfo &volume) {
        SourceCandidate candidate{displayName(volume, user), rootPath(volume, user), SourceIcon::Home, {}};
        if (!isStartupVolume(volume)) {
            candidate.icon = SourceIcon::ExternalDisk;
            candidate.ownIconFile = *volume.mountPoint() + "/.VolumeIcon.icns";
        } else if (plan.row.volume == NoVolume) {
            plan.row = rowOfVolume(disk, volume, user);
            plan.isFound = true;
            plan.root = rootObject(volume, user);
        }
        plan.candidates.push_back(std::move(candidate));
    });
}

SourceMatch matchOf(const ORVHddInfo &disk, const ORVBsdInfo &volume, const UserHome &user)
{
    SourceMatch match{rowOfVolume(disk, volume, user), rootObject(volume, user), true};
    match.row.isRaid = false;
    match.mayBeEjected = match.row.volume != user.login;
    return match;
}

} // namespace

DiskRow rowOfVolume(const ORVHddInfo &disk, const ORVBsdInfo &volume, const UserHome &user)
{
    auto row = rowOf(disk, displayName(volume, user));
    row.available = sizeText(bytesOfBlocks(volume.availableSize()));
    row.capacity = sizeText(bytesOfBlocks(volume.capacitySize()));
    return row;
}

DiskRow rowOfDisk(const ORVHddInfo &disk, const UserHome &user)
{
    if (!disk.bsdPathArray().empty())
        return rowOfVolume(disk, *disk.bsdPathArray().front(), user);
    auto row = rowOf(disk, disk.isUnFormated() ? UnformattedDisk : NoVolume);
    row.available =
        sizeText(static_cast<std::uint64_t>(std::max<std::int64_t>(0, disk.diskSize().value_or(0))));
    row.capacity = row.available;
    return row;
}

BayRows bayRowsOf(const ORVThunderboltInfo &enclosure, const UserHome &user)
{
    BayRows rows;
    for (const auto &disk : enclosure.hddArray()) {
        auto row = rowOfDisk(*disk, user);
        if (!disk->bsdPathArray().empty())
            rows.hasBootDisk = isStartupVolume(*disk->bsdPathArray().front());
        else if (disk->isUnFormated())
            rows.holdsUnformatted = true;
        rows.rows.push_back({disk->slotPath().value_or(std::string()), std::move(row)});
    }
    return rows;
}

PerBay<std::string> volumeNamesOf(const ORVThunderboltInfo &enclosure, const UserHome &user)
{
    PerBay<std::string> names;
    for (const auto bay : AllBays)
        names[bay] = NoVolume;
    for (const auto &disk : enclosure.hddArray()) {
        if (const auto bay = bayOfDisk(*disk))
            names[*bay] = rowOfDisk(*disk, user).volume;
    }
    return names;
}

SourcePlan planSources(const ORVThunderboltInfo *enclosure, const ScannedDevices &devices,
                       const UserHome &user)
{
    SourcePlan plan;
    if (!enclosure)
        return plan;
    addBayA(plan, enclosure, user);
    addOthers(plan, devices, user);
    plan.mayBeEjected = plan.candidates.empty() || plan.candidates.front().title != user.login;
    return plan;
}

SourceMatch sourceTitled(const std::string &title, const ORVThunderboltInfo *enclosure,
                         const ScannedDevices &devices, const UserHome &user)
{
    SourceMatch match;
    match.row.volume.clear();
    match.row.labelHidden = false;
    bool isInBayA = false;
    visitBayA(enclosure, [&](const ORVHddInfo &disk, const ORVBsdInfo &volume) {
        if (isInBayA || lastComponent(*volume.mountPoint()) != title)
            return;
        isInBayA = true;
        match = matchOf(disk, volume, user);
    });
    if (isInBayA)
        return match;
    visitMounted({.tbArray = {}, .otherDiskArray = devices.otherDiskArray, .otherTBArray = {}},
                 [&](const ORVHddInfo &disk, const ORVBsdInfo &volume) {
                     if (displayName(volume, user) == title || lastComponent(*volume.mountPoint()) == title)
                         match = matchOf(disk, volume, user);
                 });
    return match;
}

bool isTBDevDiskArrayVolumes(const std::string &name, const ORVThunderboltInfo *enclosure)
{
    bool isThere = false;
    visitBayA(enclosure, [&](const ORVHddInfo &, const ORVBsdInfo &volume) {
        isThere = isThere || lastComponent(*volume.mountPoint()) == name;
    });
    return isThere;
}

bool isSlotAisSource(std::size_t chosenItem, const std::string &source, const std::string &slotA)
{
    return chosenItem == 0 && source == slotA;
}

} // namespace orvana
