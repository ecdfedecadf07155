#include "duplicate/plan/ScannedDevices.h"

#include "discovery/ORVScanDevice.h"
#include "foundation/DeviceBlocks.h"
#include "foundation/Paths.h"
#include "platform/Account.h"
#include "platform/Host.h"
#include "platform/Places.h"

#include <algorithm>

namespace orvana
{

std::string slotNameOf(Bay bay)
{
    return std::string("Slot-") + static_cast<char>('A' + static_cast<int>(bay));
}

std::optional<Bay> bayNamed(std::string_view slotName)
{
    for (const auto bay : AllBays) {
        if (slotNameOf(bay) == slotName)
            return bay;
    }
    return std::nullopt;
}

std::vector<std::shared_ptr<ORVHddInfo>> ScannedDevices::allDisks() const
{
    std::vector<std::shared_ptr<ORVHddInfo>> all;
    const auto append = [&](const auto &disks) { all.insert(all.end(), disks.begin(), disks.end()); };
    for (const auto &enclosure : tbArray)
        append(enclosure->hddArray());
    append(otherDiskArray);
    for (const auto &device : otherTBArray)
        append(device->hddArray());
    return all;
}

ScannedDevices::Mounted ScannedDevices::volumeAbove(const std::string &path) const
{
    Mounted nearest;
    for (const auto &disk : allDisks()) {
        for (const auto &volume : disk->bsdPathArray()) {
            const auto &point = volume->mountPoint();
            if (point && isAtOrBelow(path, *point) &&
                (!nearest.volume || point->size() > nearest.volume->mountPoint()->size()))
                nearest = {disk, volume};
        }
    }
    return nearest;
}

ScannedDevices scannedDevices(const ORVScanDevice &scanner)
{
    return {scanner.tbArray(), scanner.otherDiskArray(), scanner.otherTBArray()};
}

UserHome userHomeOf(platform::Host &host)
{
    const auto login = host.account().loginName();
    return {login, host.places().userPath(login).value_or(std::string())};
}

bool isStartupVolume(const ORVBsdInfo &volume)
{
    return volume.mountPoint() && *volume.mountPoint() == "/";
}

bool isStartupDisk(const ORVHddInfo &disk)
{
    const auto &volumes = disk.bsdPathArray();
    return std::any_of(volumes.begin(), volumes.end(),
                       [](const auto &volume) { return isStartupVolume(*volume); });
}

std::string displayName(const ORVBsdInfo &volume, const UserHome &user)
{
    if (!volume.mountPoint())
        return {};
    return isStartupVolume(volume) ? user.login : lastComponent(*volume.mountPoint());
}

std::string rootPath(const ORVBsdInfo &volume, const UserHome &user)
{
    if (!volume.mountPoint())
        return {};
    return isStartupVolume(volume) ? user.root : *volume.mountPoint();
}

PathObject rootObject(const ORVBsdInfo &volume, const UserHome &user)
{
    if (volume.mountPoint() && !isStartupVolume(volume))
        return volume.mountPoint();
    return std::make_shared<const std::string>(rootPath(volume, user));
}

std::optional<Bay> bayOfDisk(const ORVHddInfo &disk)
{
    return disk.slotPath() ? bayNamed(*disk.slotPath()) : std::nullopt;
}

std::shared_ptr<ORVHddInfo> diskInBay(Bay bay, const ORVThunderboltInfo &enclosure)
{
    for (const auto &disk : enclosure.hddArray()) {
        if (bayOfDisk(*disk) == bay)
            return disk;
    }
    return nullptr;
}

DiskUtilInfo diskUtilInfo(const ORVHddInfo &disk, const std::string &volume)
{
    return {disk.hddSN().value_or(std::string()), disk.hddModel().value_or(std::string()),
            disk.devPath().value_or(std::string()), volume};
}

ShownDisks shownDisks(const ORVThunderboltInfo &enclosure)
{
    ShownDisks shown;
    for (const auto &disk : enclosure.hddArray()) {
        if (const auto bay = bayOfDisk(*disk))
            shown[*bay] = ShownDisk{diskUtilInfo(*disk, std::string()), disk->fingerprint()};
    }
    return shown;
}

std::vector<BayVolume> volumesInBays(const ORVThunderboltInfo &enclosure)
{
    std::vector<BayVolume> volumes;
    for (const auto bay : AllBays) {
        for (const auto &disk : enclosure.hddArray()) {
            if (bayOfDisk(*disk) != bay)
                continue;
            for (const auto &volume : disk->bsdPathArray()) {
                if (const auto root = volume->mountPoint(); root && !root->empty())
                    volumes.push_back({bay, *root});
            }
        }
    }
    return volumes;
}

std::uint64_t bytesOfBlocks(const std::optional<std::int64_t> &blocks)
{
    return static_cast<std::uint64_t>(std::max<std::int64_t>(0, blocks.value_or(0)) * DeviceBlockBytes);
}

} // namespace orvana
