#include "duplicate/plan/RunGuards.h"

#include "duplicate/plan/SourceDisks.h"
#include "foundation/DisplayPath.h"
#include "foundation/Paths.h"

#include <algorithm>

namespace orvana
{

namespace
{

bool isSameDisk(const ORVHddInfo &a, const ORVHddInfo &b)
{
    return &a == &b || (a.devPath() && !a.devPath()->empty() && a.devPath() == b.devPath());
}

// True when `question` is true for one of the disk's records. A scan may make several records of one disk.
template <class Question>
bool anyRecordOf(const ORVHddInfo &disk, const ScannedDevices &devices, Question question)
{
    if (question(disk))
        return true;
    const auto all = devices.allDisks();
    return std::any_of(all.begin(), all.end(),
                       [&](const auto &other) { return isSameDisk(disk, *other) && question(*other); });
}

bool isOfSource(const ORVBsdInfo &volume, const RunChoice &choice, const UserHome &user)
{
    if (!volume.mountPoint())
        return false;
    const auto name = displayName(volume, user);
    return (!name.empty() && (name == choice.source || name == choice.sourceItem)) ||
           isAtOrBelow(choice.sourceRoot, rootPath(volume, user));
}

bool isStartupIn(const ORVHddInfo &disk, const ScannedDevices &devices)
{
    return anyRecordOf(disk, devices, [](const ORVHddInfo &record) { return isStartupDisk(record); });
}

// False when another record claims the disk's bay, or claims its device node in any enclosure.
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

// Compares the disk with the disk that was shown when the user chose.
bool isAsShown(const ORVHddInfo &disk, const RunChoice &choice)
{
    const auto bay = bayOfDisk(disk);
    return !choice.shown ||
           (bay && (*choice.shown)[*bay] == ShownDisk{diskUtilInfo(disk, std::string()), disk.fingerprint()});
}

std::string placeText(const std::string &bay, const std::string &name)
{
    if (bay.empty())
        return displayPath(name);
    return name.empty() ? bay : bay + " (" + displayPath(name) + ")";
}

} // namespace

std::string refusalText(EnclosureRefusal refusal)
{
    switch (refusal) {
    case EnclosureRefusal::NoneChosen:
        return "You must select a Orvana Storage Device first.";
    case EnclosureRefusal::NotThere:
        return "The selected device is no longer there.";
    case EnclosureRefusal::AnotherOne:
        return "Another device has taken the place of the selected one.";
    case EnclosureRefusal::StartupDisk:
        return "This device cannot be selected when it's used as a startup disk.";
    case EnclosureRefusal::RaidSet:
        return "This device cannot be selected, because it includes a RAID set.";
    }
    return {};
}

tl::expected<std::shared_ptr<ORVThunderboltInfo>, EnclosureRefusal>
chosenEnclosure(const ScannedDevices &devices, const ChosenEnclosure &chosen)
{
    if (chosen.pickerIndex <= 0)
        return tl::unexpected(EnclosureRefusal::NoneChosen);
    const auto index = static_cast<std::size_t>(chosen.pickerIndex) - 1;
    if (index >= devices.tbArray.size())
        return tl::unexpected(EnclosureRefusal::NotThere);
    const auto &enclosure = devices.tbArray[index];
    const auto alike = std::count_if(devices.tbArray.begin(), devices.tbArray.end(),
                                     [&](const auto &other) { return other->uid() == enclosure->uid(); });
    if (!chosen.uid || enclosure->uid() != chosen.uid || alike != 1)
        return tl::unexpected(EnclosureRefusal::AnotherOne);
    return enclosure;
}

ChosenEnclosure whereItIsNow(const ScannedDevices &devices, ChosenEnclosure chosen)
{
    const auto found = std::find_if(devices.tbArray.begin(), devices.tbArray.end(),
                                    [&](const auto &enclosure) { return enclosure->uid() == chosen.uid; });
    if (chosen.uid && found != devices.tbArray.end())
        chosen.pickerIndex = static_cast<int>(found - devices.tbArray.begin()) + 1;
    return chosen;
}

std::optional<EnclosureRefusal> refusalOfStart(const ORVThunderboltInfo &enclosure,
                                               const ScannedDevices &devices)
{
    const auto &disks = enclosure.hddArray();
    if (std::any_of(disks.begin(), disks.end(),
                    [&](const auto &disk) { return isStartupIn(*disk, devices); }))
        return EnclosureRefusal::StartupDisk;
    if (std::any_of(disks.begin(), disks.end(), [](const auto &disk) { return disk->isRaidFormated(); }))
        return EnclosureRefusal::RaidSet;
    return std::nullopt;
}

std::string reasonText(RefusalReason reason)
{
    switch (reason) {
    case RefusalReason::CarriesSource:
        return "it carries the source";
    case RefusalReason::MayBeSource:
        return "it cannot be told from a disk of the source";
    case RefusalReason::StartupDisk:
        return "it is the start-up disk";
    case RefusalReason::RaidSet:
        return "it belongs to a RAID set";
    case RefusalReason::NoDevice:
        return "it has no device node";
    case RefusalReason::NotCertain:
        return "another disk claims the same place";
    case RefusalReason::NoName:
        return "its volume has no name";
    case RefusalReason::NotMounted:
        return "its volume is not mounted";
    case RefusalReason::OtherDisk:
        return "it is not the disk that was shown";
    case RefusalReason::NotErased:
        return "its erase did not succeed";
    case RefusalReason::OtherVolume:
        return "it no longer holds the volume that was shown";
    case RefusalReason::InUse:
        return "another run is at work on its volume";
    case RefusalReason::ReadOnly:
        return "its volume is mounted read-only";
    case RefusalReason::TooSmall:
        return "the selection does not fit";
    case RefusalReason::Failing:
        return "it calls itself failing";
    case RefusalReason::SameName:
        return "a bay before it shows the same name";
    }
    return {};
}

std::string refusalText(const DiskRefusal &refusal)
{
    return placeText(refusal.bay, refusal.name) + ": " + reasonText(refusal.reason);
}

bool carriesSource(const ORVHddInfo &disk, const ScannedDevices &devices, const RunChoice &choice,
                   const UserHome &user)
{
    return anyRecordOf(disk, devices, [&](const ORVHddInfo &record) {
        const auto &volumes = record.bsdPathArray();
        const auto &sources = choice.sourceDisks;
        return std::any_of(volumes.begin(), volumes.end(),
                           [&](const auto &volume) { return isOfSource(*volume, choice, user); }) ||
               std::any_of(sources.begin(), sources.end(), [&](const auto &source) {
                   return !source.device.empty() && source.device == record.devPath();
               });
    });
}

std::optional<RefusalReason> refusalOf(const ORVHddInfo &disk, const ScannedDevices &devices,
                                       const RunChoice &choice, const UserHome &user)
{
    if (isStartupIn(disk, devices))
        return RefusalReason::StartupDisk;
    if (carriesSource(disk, devices, choice, user))
        return RefusalReason::CarriesSource;
    if (anyRecordOf(disk, devices,
                    [&](const ORVHddInfo &record) { return isAmong(record, choice.sourceDisks); }))
        return RefusalReason::MayBeSource;
    if (!disk.devPath() || disk.devPath()->empty())
        return RefusalReason::NoDevice;
    return std::nullopt;
}

std::optional<RefusalReason> refusalOfTarget(const ORVHddInfo &disk, const ORVThunderboltInfo &enclosure,
                                             const ScannedDevices &devices, const RunChoice &choice,
                                             const UserHome &user)
{
    if (const auto reason = refusalOf(disk, devices, choice, user))
        return reason;
    if (disk.isRaidFormated())
        return RefusalReason::RaidSet;
    if (!isCertain(disk, enclosure, devices))
        return RefusalReason::NotCertain;
    if (!isAsShown(disk, choice))
        return RefusalReason::OtherDisk;
    const auto bay = bayOfDisk(disk);
    return bay && choice.isFailing[*bay] ? std::optional(RefusalReason::Failing) : std::nullopt;
}

std::string refusalText(const NameRefusal &refusal)
{
    return placeText(refusal.bay, refusal.name) + ": " + reasonText(refusal.reason, refusal.format);
}

} // namespace orvana
