// The scanner's lists and switches, its queries, and the code that its scans share.

#include "discovery/ORVScanDevice.h"

#include "discovery/BayTable.h"
#include "discovery/DiskFreeListing.h"
#include "discovery/RegistryReading.h"
#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "platform/CommandLauncher.h"
#include "platform/EnclosureModels.h"

#include <unordered_map>

namespace orvana
{

using platform::RegistryEntry;
using platform::RegistryProperties;

namespace
{

struct Category
{
    const char *name;
    const char *className;
    RegistryProperties properties;
};

const std::vector<Category> &categories()
{
    const RegistryProperties external{{"Physical Interconnect Location", std::string("External")}};
    const RegistryProperties internal{{"Physical Interconnect Location", std::string("Internal")}};
    const RegistryProperties maker{{"Device Vendor ID", platform::MakerVendor}};
    static const std::vector<Category> all{
        {"thunderbolt", "IOThunderboltSwitch", maker},    {"OtherThunderbolt", "IOThunderboltSwitch", {}},
        {"hdd", "AppleAHCIDiskDriver", external},         {"systemDisk", "AppleAHCIDiskDriver", internal},
        {"USB_1394_Disks", "IOBlockStorageServices", {}}, {"ESATA_Disks", "AppleAHCIDiskDriver", external},
        {"OtherTBDisk", "AppleAHCIDiskDriver", external},
    };
    return all;
}

template <class Disks>
void collectVolumes(const Disks &disks, std::vector<std::shared_ptr<ORVBsdInfo>> &volumes)
{
    for (const auto &disk : disks)
        volumes.insert(volumes.end(), disk->bsdPathArray().begin(), disk->bsdPathArray().end());
}

std::vector<std::shared_ptr<ORVBsdInfo>> volumesOf(const ORVScanDevice::Enclosures &enclosures)
{
    std::vector<std::shared_ptr<ORVBsdInfo>> volumes;
    for (const auto &enclosure : enclosures)
        collectVolumes(enclosure->hddArray(), volumes);
    return volumes;
}

} // namespace

void ORVScanDevice::setDetectOption(const std::string &edition)
{
    Detect_System_Disk = true;
    Detect_ESATA_Device = false;
    Detect_USB_1394_Device = edition == "Orvana";
}

void ORVScanDevice::scanEverything()
{
    resetArray("All");
    scanTBDevice();
    scanOtherDevice();
    scanOtherTBDevice();
}

void ORVScanDevice::scanEnclosuresAnew()
{
    resetArray("TBBay4");
    scanTBDevice();
}

void ORVScanDevice::resetArray(const std::string &key)
{
    const bool all = key == "All";
    if (all || key == "TBBay4")
        m_tbArray = {};
    if (all || key == "USB/1394")
        m_otherDiskArray = {};
    if (all || key == "TBOthers")
        m_otherTBArray = {};
}

int ORVScanDevice::scanForDeviceName(const std::string &category, Iterator &iterator)
{
    std::optional<platform::RegistryMatching> matching;
    for (const auto &[name, className, properties] : categories()) {
        if (category != name)
            continue;
        matching = m_registry.serviceMatching(className);
        if (matching)
            matching->properties = properties;
    }
    if (!matching)
        systemLog("IOServiceMatching returned a NULL dictionary.");
    auto [status, entries] = m_registry.match(matching);
    iterator = std::move(entries);
    return status;
}

// Assigns each disk to every switch in the list that the disk's path names, in the order of the list.
int ORVScanDevice::attachDisks(const Iterator &iterator, Enclosures &enclosures, Walk walk)
{
    std::unordered_map<std::string, std::vector<std::size_t>> switches;
    for (std::size_t i = 0; i < enclosures.size(); ++i)
        switches[enclosures[i]->tbPath()].push_back(i);
    for (const auto &entry : iterator) {
        const auto path = switchPathOf(*entry);
        const auto found = path ? switches.find(*path) : switches.end();
        if (found == switches.end())
            continue;
        for (const std::size_t index : found->second) {
            auto disk = diskRecordOf(*entry);
            disk->setSlotPath(bayOf(entry->path()));
            auto &disks = enclosures[index]->hddArray();
            disks.push_back(std::move(disk));
            (this->*walk)(*entry, index, disks.size() - 1);
        }
    }
    return iterator.empty() ? NothingSeen : Seen;
}

std::vector<std::string> ORVScanDevice::remarks() const
{
    const auto shown = [](const std::optional<std::string> &text, const char *otherwise) {
        return text ? displayPath(*text) : otherwise;
    };
    auto remarks = m_registry.remarks();
    for (const auto &enclosure : m_tbArray) {
        for (const auto &disk : enclosure->hddArray()) {
            if (!disk->slotPath())
                remarks.push_back(
                    shown(disk->hddModel(), "A disk") + " (" + shown(disk->hddSN(), "no serial number") +
                    ") in " + shown(enclosure->moduleName(), "an enclosure") +
                    " sits in none of the bays that are known; it is neither copied to nor erased");
        }
    }
    return remarks;
}

std::optional<std::string> ORVScanDevice::runCommandWithCommand(const std::string &path,
                                                                const std::vector<std::string> &arguments)
{
    auto result = m_launcher.run(path, arguments);
    if (!isUtf8(result.output))
        return std::nullopt;
    return std::move(result.output);
}

void ORVScanDevice::fillMountPoints(const Volumes &volumes, std::string_view filter)
{
    const auto listing = runCommandWithCommand("/bin/df", {});
    if (!listing)
        return;
    std::unordered_multimap<std::string, ORVBsdInfo *> byDevice;
    for (const auto &volume : volumes)
        byDevice.emplace(volume->devPath(), volume.get());
    // If two lines name the same device, the later line wins.
    for (const auto &line : parseDiskFree(*listing, filter)) {
        const auto [first, last] = byDevice.equal_range(line.device);
        for (auto found = first; found != last; ++found) {
            found->second->setMountPoint(std::make_shared<const std::string>(line.mountPoint));
            found->second->setCapacitySize(line.capacity);
            found->second->setAvailableSize(line.available);
            found->second->setUsedSize(line.used);
        }
    }
}

void ORVScanDevice::getMountPoint()
{
    fillMountPoints(volumesOf(m_tbArray), "/dev/disk");
}

void ORVScanDevice::getOtherDiskMountPoint()
{
    Volumes volumes;
    collectVolumes(m_otherDiskArray, volumes);
    fillMountPoints(volumes, "/dev/disk");
}

void ORVScanDevice::getOtherTBDiskMountPoint()
{
    // The listing never prints this form, so these volumes never get a mount point.
    fillMountPoints(volumesOf(m_otherTBArray), "/dev/disk/");
}

std::optional<std::int64_t> ORVScanDevice::getrootPort(const RegistryEntry &entry)
{
    for (auto above = entry.parent(); above; above = above->parent()) {
        const auto depth = platform::searchUpward(*above, "Depth");
        const auto *number = depth ? std::get_if<std::int64_t>(&*depth) : nullptr;
        if (!number || *number >= 3)
            continue;
        const auto uid = platform::searchUpward(*above, "UID");
        const auto *found = uid ? std::get_if<std::int64_t>(&*uid) : nullptr;
        return found ? std::optional(*found) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace orvana
