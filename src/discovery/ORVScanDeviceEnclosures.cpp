// The scan of the four-bay enclosures, their disks and their volumes.

#include "discovery/ORVScanDevice.h"

#include "discovery/RegistryReading.h"
#include "platform/EnclosureModels.h"

namespace orvana
{

using platform::RegistryEntry;

void ORVScanDevice::scanTBDevice()
{
    Iterator iterator;
    if (scanForDeviceName("thunderbolt", iterator) != platform::RegistrySuccess)
        return;
    getThunderboltInfo(iterator);
    if (scanForDeviceName("hdd", iterator) != platform::RegistrySuccess)
        return;
    getHddInfo(iterator);
    getMountPoint();
}

int ORVScanDevice::getThunderboltInfo(const Iterator &iterator)
{
    int result = NothingSeen;
    for (const auto &entry : iterator) {
        if (numberOf(*entry, "Device Vendor ID") != platform::MakerVendor)
            continue;
        result = Seen;
        if (platform::isFourBayModel(numberOf(*entry, "Device Model ID").value_or(0)))
            m_tbArray.push_back(switchRecordOf(*entry));
    }
    return result;
}

int ORVScanDevice::getHddInfo(const Iterator &iterator)
{
    return attachDisks(iterator, m_tbArray, &ORVScanDevice::searchPartition);
}

void ORVScanDevice::searchPartition(const RegistryEntry &entry, std::size_t tbArrayIndex,
                                    std::size_t hddArrayIndex)
{
    for (const auto &child : entry.children()) {
        auto &disk = *m_tbArray[tbArrayIndex]->hddArray()[hddArrayIndex];
        const auto isWhole = flagOf(*child, "Whole");
        const auto isOpen = flagOf(*child, "Open");
        if (isWhole == true) {
            disk.setDevPath(devicePathOf(*child));
            disk.setDiskSize(numberOf(*child, "Size"));
            disk.setIsUnFormated(isOpen == false);
            disk.setIsRaidFormated(flagOf(*child, "RAID") == true);
            // A member of a RAID set is offered as one volume: the whole disk.
            if (disk.isRaidFormated())
                disk.bsdPathArray().push_back(volumeRecord(*child));
        } else if (isOpen == true && flagOf(*child, "Leaf") == true && isWhole == false) {
            disk.bsdPathArray().push_back(volumeRecord(*child));
        }
        noteOtherPartition(*child, disk);
        searchPartition(*child, tbArrayIndex, hddArrayIndex);
    }
}

} // namespace orvana
