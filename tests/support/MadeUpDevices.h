#pragma once

#include "duplicate/plan/ScannedDevices.h"

#include <string>

namespace orvana::test
{

using EnclosurePtr = std::shared_ptr<ORVThunderboltInfo>;
using DiskPtr = std::shared_ptr<ORVHddInfo>;
using VolumePtr = std::shared_ptr<ORVBsdInfo>;

/// Makes records like those of a scan. Sizes are counts of 512-byte blocks.
inline VolumePtr volume(const std::string &mountPoint, std::int64_t capacity = 1000,
                        std::int64_t available = 500)
{
    auto record = std::make_shared<ORVBsdInfo>();
    record->setMountPoint(std::make_shared<const std::string>(mountPoint));
    record->setCapacitySize(capacity);
    record->setAvailableSize(available);
    return record;
}

/// A volume that is mounted nowhere.
inline VolumePtr unmountedVolume()
{
    return std::make_shared<ORVBsdInfo>();
}

/// A disk whose device node, model and serial number are made of its number.
inline DiskPtr disk(int number, std::vector<VolumePtr> volumes = {})
{
    const auto text = std::to_string(number);
    auto record = std::make_shared<ORVHddInfo>();
    record->setHddModel("Model " + text);
    record->setHddSN("SN" + text);
    record->setDevPath("/dev/disk" + text);
    record->setDiskSize(1'048'576);
    record->setBsdPathArray(std::move(volumes));
    return record;
}

inline DiskPtr inBay(const std::string &slot, DiskPtr record)
{
    record->setSlotPath(slot);
    return record;
}

inline DiskPtr blank(DiskPtr record)
{
    record->setIsUnFormated(true);
    return record;
}

inline DiskPtr raid(DiskPtr record)
{
    record->setIsRaidFormated(true);
    return record;
}

inline EnclosurePtr enclosure(std::int64_t uid, std::vector<DiskPtr> disks)
{
    auto record = std::make_shared<ORVThunderboltInfo>();
    record->setUid(uid);
    record->setHddArray(std::move(disks));
    return record;
}

/// The disk that the system runs from, with the user's home.
inline DiskPtr startupDisk(int number = 0)
{
    return disk(number, {volume("/", 4000, 3000)});
}

inline const UserHome Anna{"anna", "/Users/anna"};

} // namespace orvana::test
