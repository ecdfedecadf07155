#pragma once

#include "discovery/DeviceRecords.h"
#include "platform/HardwareRegistry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

namespace platform
{
class CommandLauncher;
}

/// Finds the four-bay enclosures with their disks and volumes, and the other disks of the machine.
///
/// Scans only append to the lists; `resetArray` empties the lists. If a query fails, its scan ends without a
/// message. If a property is missing, its field stays empty. Used on the main thread, which waits during a
/// scan.
class ORVScanDevice
{
public:
    using Iterator = std::vector<platform::RegistryEntryPtr>;
    using Enclosures = std::vector<std::shared_ptr<ORVThunderboltInfo>>;
    using Disks = std::vector<std::shared_ptr<ORVHddInfo>>;

    /// The results of a scan of one category: something was seen, or nothing.
    static constexpr int Seen = 0;
    static constexpr int NothingSeen = 5;

    ORVScanDevice(platform::HardwareRegistry &registry, platform::CommandLauncher &launcher)
        : m_registry(registry), m_launcher(launcher)
    {
    }

    const Enclosures &tbArray() const { return m_tbArray; }
    const Disks &otherDiskArray() const { return m_otherDiskArray; }
    const Enclosures &otherTBArray() const { return m_otherTBArray; }

    /// One sentence for each attached device that takes no part, with the reason: the registry's own remarks,
    /// and the disks of the last scan that are in an enclosure but in none of its bays.
    std::vector<std::string> remarks() const;

    // Options: which of the scans for other disks run
    bool Detect_System_Disk = true;
    bool Detect_ESATA_Device = false;
    bool Detect_USB_1394_Device = true;

    /// Sets the scans for an edition: USB and FireWire disks in "Orvana" only, internal disks always, eSATA
    /// never.
    void setDetectOption(const std::string &edition);

    /// Empties the lists of a key: "TBBay4", "USB/1394", "TBOthers" or "All". Any other key does nothing.
    void resetArray(const std::string &key);

    void scanTBDevice();
    void scanOtherDevice();
    void scanOtherTBDevice();

    /// Empty lists and fill them by a new scan: the first function all lists, the second the enclosures only.
    void scanEverything();
    void scanEnclosuresAnew();

    /// Measures the volumes of the enclosures again. The records of other disks do not change.
    void reGetDiskVolume() { getMountPoint(); }

    void getMountPoint();
    void getOtherDiskMountPoint();
    void getOtherTBDiskMountPoint();

    /// Queries one category of devices into `iterator`; returns the registry's status.
    int scanForDeviceName(const std::string &category, Iterator &iterator);

    int getThunderboltInfo(const Iterator &iterator);
    int getHddInfo(const Iterator &iterator);
    int getSystemHddInfo(const Iterator &iterator);
    int getExternelDiskInfo(const Iterator &iterator);
    int getESATADiskInfo(const Iterator &iterator);
    int getOtherThunderboltInfo(const Iterator &iterator);
    int getOtherThunderboltHddInfo(const Iterator &iterator);

    void searchPartition(const platform::RegistryEntry &entry, std::size_t tbArrayIndex,
                         std::size_t hddArrayIndex);
    void searchOtherDiskPartition(const platform::RegistryEntry &entry, std::size_t hddArrayIndex);
    void searchOtherTBDiskPartition(const platform::RegistryEntry &entry, std::size_t tbArrayIndex,
                                    std::size_t hddArrayIndex);

    /// Returns the UID of the first switch above `entry` whose depth is below 3; nullopt if there is none.
    static std::optional<std::int64_t> getrootPort(const platform::RegistryEntry &entry);

    /// Runs a program and returns its output as text; nullopt if the output is not UTF-8.
    std::optional<std::string> runCommandWithCommand(const std::string &path,
                                                     const std::vector<std::string> &arguments);

    void dumpDeviceArray() const {}

private:
    using Volumes = std::vector<std::shared_ptr<ORVBsdInfo>>;
    using Walk = void (ORVScanDevice::*)(const platform::RegistryEntry &, std::size_t, std::size_t);

    int attachDisks(const Iterator &iterator, Enclosures &enclosures, Walk walk);
    void addOtherDisk(std::shared_ptr<ORVHddInfo> disk, const platform::RegistryEntry &entry);
    void fillMountPoints(const Volumes &volumes, std::string_view filter);

    platform::HardwareRegistry &m_registry;
    platform::CommandLauncher &m_launcher;
    Enclosures m_tbArray;
    Disks m_otherDiskArray;
    Enclosures m_otherTBArray;
};

} // namespace orvana
