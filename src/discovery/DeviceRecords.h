#pragma once

#include "foundation/PathObject.h"
#include "platform/DiskFingerprint.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

using platform::DiskFingerprint;

/// A usable volume: a partition, or the whole disk of a RAID set.
class ORVBsdInfo
{
public:
    /// Device node: "/dev/" and the name of the medium. Empty for a medium without a name.
    const std::string &devPath() const { return m_devPath; }
    void setDevPath(std::string path) { m_devPath = std::move(path); }

    /// The id that the file system carries, such as its UUID; nullopt when it carries none. A copy of a whole
    /// disk has the same id.
    const std::optional<std::string> &volumeId() const { return m_volumeId; }
    void setVolumeId(std::optional<std::string> id) { m_volumeId = std::move(id); }

    /// The mount point; null until a listing has named it.
    const PathObject &mountPoint() const { return m_mountPoint; }
    void setMountPoint(PathObject path) { m_mountPoint = std::move(path); }

    /// Total and free size in blocks of 512 bytes, as the listing reports them.
    const std::optional<std::int64_t> &capacitySize() const { return m_capacitySize; }
    void setCapacitySize(std::optional<std::int64_t> blocks) { m_capacitySize = blocks; }
    const std::optional<std::int64_t> &availableSize() const { return m_availableSize; }
    void setAvailableSize(std::optional<std::int64_t> blocks) { m_availableSize = blocks; }

    /// Used size in blocks of 512 bytes, as the listing reports it.
    const std::optional<std::int64_t> &usedSize() const { return m_usedSize; }
    void setUsedSize(std::optional<std::int64_t> blocks) { m_usedSize = blocks; }

private:
    std::string m_devPath;
    std::optional<std::string> m_volumeId;
    PathObject m_mountPoint;
    std::optional<std::int64_t> m_capacitySize;
    std::optional<std::int64_t> m_availableSize;
    std::optional<std::int64_t> m_usedSize;
};

/// A physical disk.
class ORVHddInfo
{
public:
    using Volumes = std::vector<std::shared_ptr<ORVBsdInfo>>;

    /// Model and serial number without blanks at their ends.
    const std::optional<std::string> &hddModel() const { return m_hddModel; }
    void setHddModel(std::optional<std::string> model) { m_hddModel = std::move(model); }
    const std::optional<std::string> &hddSN() const { return m_hddSN; }
    void setHddSN(std::optional<std::string> serial) { m_hddSN = std::move(serial); }

    /// Device node of the whole disk.
    const std::optional<std::string> &devPath() const { return m_devPath; }
    void setDevPath(std::optional<std::string> path) { m_devPath = std::move(path); }

    /// "Slot-A" to "Slot-D" in a four-bay enclosure; nullopt elsewhere, or if no bay rule fits.
    const std::optional<std::string> &slotPath() const { return m_slotPath; }
    void setSlotPath(std::optional<std::string> slot) { m_slotPath = std::move(slot); }

    bool isUnFormated() const { return m_isUnFormated; }
    void setIsUnFormated(bool unformatted) { m_isUnFormated = unformatted; }
    bool isRaidFormated() const { return m_isRaidFormated; }
    void setIsRaidFormated(bool raid) { m_isRaidFormated = raid; }

    /// Size of the disk in bytes.
    const std::optional<std::int64_t> &diskSize() const { return m_diskSize; }
    void setDiskSize(std::optional<std::int64_t> bytes) { m_diskSize = bytes; }

    // Marks for the reasons to refuse a disk. No row shows them.

    /// The serial number that the disk itself reports. USB disks have this number, too.
    const std::optional<std::string> &unitSerial() const { return m_unitSerial; }
    void setUnitSerial(std::optional<std::string> serial) { m_unitSerial = std::move(serial); }
    const std::optional<std::string> &wwn() const { return m_wwn; }
    void setWwn(std::optional<std::string> name) { m_wwn = std::move(name); }

    /// The system's number of this arrival of the disk. It is another number each time the disk is plugged
    /// in.
    const std::optional<std::int64_t> &arrival() const { return m_arrival; }
    void setArrival(std::optional<std::int64_t> number) { m_arrival = number; }

    /// True if the disk has partitions that are not among its usable volumes, such as unmounted partitions.
    bool hasOtherPartitions() const { return m_hasOtherPartitions; }
    void setHasOtherPartitions(bool has) { m_hasOtherPartitions = has; }

    DiskFingerprint fingerprint() const
    {
        return {m_devPath.value_or(std::string()), m_unitSerial ? m_unitSerial : m_hddSN, m_wwn, m_arrival,
                m_diskSize};
    }

    /// Its usable volumes, in registry order.
    Volumes &bsdPathArray() { return m_bsdPathArray; }
    const Volumes &bsdPathArray() const { return m_bsdPathArray; }
    void setBsdPathArray(Volumes volumes) { m_bsdPathArray = std::move(volumes); }

private:
    std::optional<std::string> m_hddModel;
    std::optional<std::string> m_hddSN;
    std::optional<std::string> m_devPath;
    std::optional<std::string> m_slotPath;
    bool m_isUnFormated = false;
    bool m_isRaidFormated = false;
    std::optional<std::int64_t> m_diskSize;
    std::optional<std::string> m_unitSerial;
    std::optional<std::string> m_wwn;
    std::optional<std::int64_t> m_arrival;
    bool m_hasOtherPartitions = false;
    Volumes m_bsdPathArray;
};

/// A Thunderbolt switch. A switch of the four-bay model is an enclosure.
class ORVThunderboltInfo
{
public:
    using Disks = std::vector<std::shared_ptr<ORVHddInfo>>;

    const std::optional<std::string> &moduleName() const { return m_moduleName; }
    void setModuleName(std::optional<std::string> name) { m_moduleName = std::move(name); }
    const std::optional<std::int64_t> &uid() const { return m_uid; }
    void setUid(std::optional<std::int64_t> uid) { m_uid = uid; }
    const std::optional<std::int64_t> &depth() const { return m_depth; }
    void setDepth(std::optional<std::int64_t> depth) { m_depth = depth; }

    /// UID of the switch above. It is read only if the depth is greater than 0.
    const std::optional<std::int64_t> &parentTb() const { return m_parentTb; }
    void setParentTb(std::optional<std::int64_t> uid) { m_parentTb = uid; }
    const std::optional<std::int64_t> &routeSring() const { return m_routeSring; }
    void setRouteSring(std::optional<std::int64_t> route) { m_routeSring = route; }
    float portNum() const { return m_portNum; }
    void setPortNum(float port) { m_portNum = port; }

    /// Full registry path. Disks are assigned to the switch by this path.
    const std::string &tbPath() const { return m_tbPath; }
    void setTbPath(std::string path) { m_tbPath = std::move(path); }

    /// Id of the enclosure definition that makes an enclosure of it; nullopt for the maker's own enclosures.
    const std::optional<std::string> &definition() const { return m_definition; }
    void setDefinition(std::optional<std::string> id) { m_definition = std::move(id); }

    /// The disks behind it, in the order in which they were found.
    Disks &hddArray() { return m_hddArray; }
    const Disks &hddArray() const { return m_hddArray; }
    void setHddArray(Disks disks) { m_hddArray = std::move(disks); }

    const std::optional<std::int64_t> &state() const { return m_state; }
    void setState(std::optional<std::int64_t> state) { m_state = state; }
    const std::optional<std::int64_t> &moduleID() const { return m_moduleID; }
    void setModuleID(std::optional<std::int64_t> number) { m_moduleID = number; }
    const std::optional<std::int64_t> &vendorID() const { return m_vendorID; }
    void setVendorID(std::optional<std::int64_t> number) { m_vendorID = number; }
    const std::optional<std::string> &vendorName() const { return m_vendorName; }
    void setVendorName(std::optional<std::string> name) { m_vendorName = std::move(name); }

private:
    std::optional<std::string> m_moduleName;
    std::optional<std::int64_t> m_uid;
    std::optional<std::int64_t> m_depth;
    std::optional<std::int64_t> m_parentTb;
    std::optional<std::int64_t> m_routeSring;
    float m_portNum = 0.0F;
    std::string m_tbPath;
    std::optional<std::string> m_definition;
    Disks m_hddArray;
    std::optional<std::int64_t> m_state;
    std::optional<std::int64_t> m_moduleID;
    std::optional<std::int64_t> m_vendorID;
    std::optional<std::string> m_vendorName;
};

} // namespace orvana
