// The scans of disks outside the four-bay enclosures.

#include "discovery/ORVScanDevice.h"

#include "discovery/RegistryReading.h"
#include "platform/EnclosureModels.h"

#include <algorithm>

namespace orvana
{

using platform::RegistryEntry;
using platform::RegistryProperties;

namespace
{

// The one vendor number would have to equal both values. So no switch passes, on purpose.
bool isListedVendor(const std::optional<std::int64_t> &vendor)
{
    constexpr std::int64_t required[] = {platform::MakerVendor, 4};
    return std::all_of(std::begin(required), std::end(required),
                       [&](std::int64_t number) { return vendor == number; });
}

RegistryProperties dictionaryOf(const RegistryEntry &entry, const std::string &key)
{
    using Dictionary = std::shared_ptr<const platform::RegistryDictionary>;
    const auto found = platform::valueOf<Dictionary>(entry.properties(), key);
    return found && *found ? (*found)->values : RegistryProperties();
}

std::string trimmedIn(const RegistryProperties &properties, const std::string &key)
{
    const auto text = platform::valueOf<std::string>(properties, key);
    return text ? trimmed(*text) : "(null)";
}

bool isExternalUsbOrFireWire(const RegistryEntry &entry)
{
    const auto protocol = dictionaryOf(entry, "Protocol Characteristics");
    const auto interconnect = platform::valueOf<std::string>(protocol, "Physical Interconnect");
    return platform::valueOf<std::string>(protocol, "Physical Interconnect Location") == "External" &&
           (interconnect == "USB" || interconnect == "FireWire");
}

} // namespace

void ORVScanDevice::scanOtherDevice()
{
    const auto pass = [this](bool isOn, const char *category, int (ORVScanDevice::*get)(const Iterator &)) {
        if (!isOn)
            return true;
        Iterator iterator;
        if (scanForDeviceName(category, iterator) != platform::RegistrySuccess)
            return false;
        (this->*get)(iterator);
        return true;
    };
    if (pass(Detect_System_Disk, "systemDisk", &ORVScanDevice::getSystemHddInfo) &&
        pass(Detect_USB_1394_Device, "USB_1394_Disks", &ORVScanDevice::getExternelDiskInfo) &&
        pass(Detect_ESATA_Device, "ESATA_Disks", &ORVScanDevice::getESATADiskInfo))
        getOtherDiskMountPoint();
}

void ORVScanDevice::addOtherDisk(std::shared_ptr<ORVHddInfo> disk, const RegistryEntry &entry)
{
    m_otherDiskArray.push_back(std::move(disk));
    searchOtherDiskPartition(entry, m_otherDiskArray.size() - 1);
}

int ORVScanDevice::getSystemHddInfo(const Iterator &iterator)
{
    for (const auto &entry : iterator)
        addOtherDisk(diskRecordOf(*entry), *entry);
    return iterator.empty() ? NothingSeen : Seen;
}

int ORVScanDevice::getExternelDiskInfo(const Iterator &iterator)
{
    for (const auto &entry : iterator) {
        if (!isExternalUsbOrFireWire(*entry))
            continue;
        const auto device = dictionaryOf(*entry, "Device Characteristics");
        auto disk = std::make_shared<ORVHddInfo>();
        disk->setHddModel(trimmedIn(device, "Vendor Name") + " " + trimmedIn(device, "Product Name"));
        readMarks(*entry, *disk);
        addOtherDisk(std::move(disk), *entry);
    }
    return iterator.empty() ? NothingSeen : Seen;
}

int ORVScanDevice::getESATADiskInfo(const Iterator &iterator)
{
    for (const auto &entry : iterator) {
        const auto path = switchPathOf(*entry);
        // Compares with the last enclosure only. This shortcut is kept on purpose.
        if (path && !m_tbArray.empty() && m_tbArray.back()->tbPath() == *path)
            continue;
        addOtherDisk(diskRecordOf(*entry), *entry);
    }
    return iterator.empty() ? NothingSeen : Seen;
}

void ORVScanDevice::searchOtherDiskPartition(const RegistryEntry &entry, std::size_t hddArrayIndex)
{
    for (const auto &child : entry.children()) {
        auto &disk = *m_otherDiskArray[hddArrayIndex];
        if (flagOf(*child, "Open") == true) {
            if (flagOf(*child, "Leaf") == true) {
                disk.bsdPathArray().push_back(volumeRecord(*child));
            } else {
                disk.setDevPath(devicePathOf(*child));
                disk.setDiskSize(numberOf(*child, "Size"));
            }
        }
        searchOtherDiskPartition(*child, hddArrayIndex);
    }
}

void ORVScanDevice::scanOtherTBDevice()
{
    Iterator iterator;
    if (scanForDeviceName("OtherThunderbolt", iterator) != platform::RegistrySuccess)
        return;
    getOtherThunderboltInfo(iterator);
    if (scanForDeviceName("OtherTBDisk", iterator) != platform::RegistrySuccess)
        return;
    getOtherThunderboltHddInfo(iterator);
    getOtherTBDiskMountPoint();
}

int ORVScanDevice::getOtherThunderboltInfo(const Iterator &iterator)
{
    for (const auto &entry : iterator) {
        const auto model = numberOf(*entry, "Device Model ID");
        if (isListedVendor(numberOf(*entry, "Device Vendor ID")) &&
            !platform::isFourBayModel(model.value_or(0)))
            m_otherTBArray.push_back(switchRecordOf(*entry));
    }
    return iterator.empty() ? NothingSeen : Seen;
}

int ORVScanDevice::getOtherThunderboltHddInfo(const Iterator &iterator)
{
    return attachDisks(iterator, m_otherTBArray, &ORVScanDevice::searchOtherTBDiskPartition);
}

void ORVScanDevice::searchOtherTBDiskPartition(const RegistryEntry &entry, std::size_t tbArrayIndex,
                                               std::size_t hddArrayIndex)
{
    for (const auto &child : entry.children()) {
        auto &disk = *m_otherTBArray[tbArrayIndex]->hddArray()[hddArrayIndex];
        if (flagOf(*child, "Whole") == true) {
            disk.setDevPath(devicePathOf(*child));
            disk.setDiskSize(numberOf(*child, "Size"));
            disk.setIsUnFormated(textOf(*child, "Content").value_or("").empty());
        }
        if (flagOf(*child, "Open") == true && flagOf(*child, "Leaf") == true)
            disk.bsdPathArray().push_back(volumeRecord(*child));
        searchOtherTBDiskPartition(*child, tbArrayIndex, hddArrayIndex);
    }
}

} // namespace orvana
