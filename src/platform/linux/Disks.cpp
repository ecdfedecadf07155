#include "platform/linux/Disks.h"

#include "platform/linux/ThunderboltRouters.h"
#include "platform/posix/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

namespace orvana::platform::linux_host
{

namespace
{

bool startsWithAny(const std::string &text, std::initializer_list<const char *> starts)
{
    return std::any_of(starts.begin(), starts.end(),
                       [&](const char *start) { return text.starts_with(start); });
}

std::optional<std::string> firstText(std::initializer_list<std::string> texts)
{
    for (const auto &text : texts) {
        if (!text.empty())
            return text;
    }
    return std::nullopt;
}

bool isCardReader(const DeviceList &devices, const Device &disk)
{
    for (const auto &[key, value] : disk.properties) {
        if (startsWithAny(key, {"ID_DRIVE_FLASH", "ID_DRIVE_MEDIA_FLASH"}))
            return true;
    }
    // Only the disk's own USB device is checked. A hub above it may be built in, but the disk that is plugged
    // into the hub is not.
    const auto *usb = devices.above(disk, "usb");
    while (usb && usb->type != "usb_device")
        usb = devices.above(*usb, "usb");
    return usb && usb->attribute("removable") == "fixed";
}

std::string interconnectOf(const DeviceList &devices, const Device &disk)
{
    if (disk.property("ID_BUS") == "usb" || devices.above(disk, "usb"))
        return "USB";
    if (disk.property("ID_BUS") == "ieee1394" || devices.above(disk, "firewire"))
        return "FireWire";
    const auto *card = devices.above(disk, "mmc");
    return card && card->attribute("type") == "SD" ? "Secure Digital" : std::string();
}

// A component "ata7" of the path stands for a port. The kernel gives the number of the port in "ata_port"
// below it.
void setPort(const DeviceList &devices, Disk &disk)
{
    for (auto path = pathAbove(disk.device->path); !path.empty(); path = pathAbove(path)) {
        const auto name = path.substr(path.rfind('/') + 1);
        if (!name.starts_with("ata"))
            continue;
        auto portPath = path;
        const auto *port = devices.at(portPath.append("/ata_port/").append(name));
        if (!port)
            continue;
        // The kernel counts from 1.
        if (const auto number = decimalNumber(port->attribute("port_no")); number > 0)
            disk.port = static_cast<int>(number - 1);
        break;
    }
    // "6:1:0:0": host, channel, target, unit.
    if (const auto *scsi = devices.above(*disk.device, "scsi"); scsi && disk.port) {
        const auto first = scsi->name.find(':') + 1;
        const auto channel = decimalNumber(scsi->name.substr(first, scsi->name.find(':', first) - first));
        disk.channel = static_cast<int>(std::max(channel, 0L));
    }
}

void setPlace(const DeviceList &devices, Disk &disk)
{
    disk.controller = devices.above(*disk.device, "pci");
    if (!disk.controller)
        return;
    const auto place = routerOfPci(devices, *disk.controller);
    disk.router = place.router;
    disk.isPlaceUnclear = place.answer == RouterPlace::Answer::Unclear;
    disk.isExternal = place.answer != RouterPlace::Answer::None || isRemovable(devices, *disk.controller);
}

void setNames(const DeviceList &devices, Disk &disk)
{
    const auto &device = *disk.device;
    const auto *scsi = devices.above(device, "scsi");
    const auto *nvme = devices.above(device, "nvme");
    const auto *card = devices.above(device, "mmc");
    const auto of = [](const Device *from, const char *name) {
        return from ? from->attribute(name) : std::string();
    };
    disk.model = firstText({decoded(device.property("ID_MODEL_ENC")), device.property("ID_MODEL"),
                            of(scsi, "model"), of(nvme, "model"), of(card, "name")});
    disk.serial = firstText({device.property("ID_SERIAL_SHORT"), device.attribute("serial"),
                             of(nvme, "serial"), of(card, "serial")});
    disk.wwn = firstText(
        {device.property("ID_WWN_WITH_EXTENSION"), device.property("ID_WWN"), device.attribute("wwid")});
    disk.product = disk.model;
    disk.vendor = firstText(
        {decoded(device.property("ID_VENDOR_ENC")), device.property("ID_VENDOR"), of(scsi, "vendor")});
}

bool isInUse(const SystemState &system, const Device &device)
{
    return system.isMounted(device) || !device.holders.empty() || system.swaps.contains(device.name);
}

std::string contentOf(const Device &device)
{
    const auto table = device.property("ID_PART_TABLE_TYPE");
    if (table == "gpt")
        return "GUID_partition_scheme";
    if (table == "dos")
        return "FDisk_partition_scheme";
    return firstText({table, device.property("ID_FS_TYPE"), device.property("ID_FS_USAGE"),
                      device.property("ID_FS_AMBIVALENT")})
        .value_or("");
}

void addPartition(const SystemState &system, const Device &device, int number, Disk &disk)
{
    disk.isRaid = disk.isRaid || isMember(device);
    const bool holdsRoot = system.beneathRoot.contains(device.name);
    disk.partitions.push_back({.device = &device,
                               .number = number,
                               .isOpen = holdsRoot || isInUse(system, device),
                               .isLeaf = !isMember(device),
                               .holdsRoot = holdsRoot});
}

void setContent(const SystemState &system, Disk &disk, const ExclusiveUse &inExclusiveUse)
{
    const auto &device = *disk.device;
    const auto partitions = system.devices.partitionsOf(device);
    for (const auto *partition : partitions)
        addPartition(system, *partition, static_cast<int>(decimalNumber(partition->attribute("partition"))),
                     disk);
    disk.content = contentOf(device);
    disk.isRaid = disk.isRaid || isMember(device);
    if (partitions.empty() && (!device.property("ID_FS_TYPE").empty() || isInUse(system, device)))
        addPartition(system, device, 0, disk);
    disk.isOpen = !partitions.empty() || !disk.content.empty() || isInUse(system, device) ||
                  !hasUdevLooked(device) || inExclusiveUse("/dev/" + device.name);
}

// In the bay of a definition every disk has a driver like the disks of the maker's enclosures, whatever bus
// it is on. A bridge reports the disk's maker and its model apart.
void putIntoBay(Disk &disk)
{
    const auto vendor = withoutBlanks(disk.vendor.value_or(""));
    if (disk.model)
        disk.model = withoutBlanks(*disk.model);
    if (disk.diskClass == DiskClass::Services && disk.model && !vendor.empty() && vendor != "ATA")
        disk.model = vendor + " " + *disk.model;
    disk.diskClass = DiskClass::Driver;
    disk.isExternal = true;
    disk.router = nullptr;
    disk.isPlaceUnclear = false;
}

// A dock that shows the same serial number for each of its disks shows the number of none.
void dropSharedSerials(std::vector<Disk> &disks, const std::set<std::string> &shared)
{
    std::map<std::string, int> counts;
    for (const auto &disk : disks) {
        if (disk.serial && disk.blocks > 0)
            ++counts[*disk.serial];
    }
    for (auto &disk : disks) {
        if (disk.definedBay && disk.serial && (counts[*disk.serial] > 1 || shared.contains(*disk.serial)))
            disk.serial.reset();
    }
}

Disk diskOf(const SystemState &system, const Device &device, const ExclusiveUse &inExclusiveUse)
{
    Disk disk;
    disk.device = &device;
    disk.blocks = static_cast<std::uint64_t>(std::max(decimalNumber(device.attribute("size")), 0L));
    const auto sequence = firstText({device.property("DISKSEQ"), device.attribute("diskseq")});
    if (const auto number = sequence ? decimalNumber(*sequence) : -1; number >= 0)
        disk.sequence = static_cast<std::uint64_t>(number);
    disk.interconnect = interconnectOf(system.devices, device);
    if (disk.interconnect.empty()) {
        setPlace(system.devices, disk);
        setPort(system.devices, disk);
    } else {
        disk.diskClass = DiskClass::Services;
        disk.controller = system.devices.above(device, "pci");
        disk.isExternal = disk.interconnect != "Secure Digital" && !isCardReader(system.devices, device);
    }
    setNames(system.devices, disk);
    setContent(system, disk, inExclusiveUse);
    disk.definedBay = system.defined.bayOf(device);
    if (disk.definedBay)
        putIntoBay(disk);
    return disk;
}

} // namespace

bool isInExclusiveUse(const std::string &node)
{
    // Without permission to open the disk we cannot tell, and report it as unused.
    const posix::Descriptor disk(::open(node.c_str(), O_RDONLY | O_EXCL | O_NONBLOCK | O_CLOEXEC));
    return !disk.isOpen() && errno == EBUSY;
}

std::vector<Disk> disksOf(const SystemState &system, const ExclusiveUse &isInUse)
{
    std::vector<Disk> disks;
    for (const auto *device : system.devices.ofSubsystem("block")) {
        if (isPhysicalDisk(*device))
            disks.push_back(diskOf(system, *device, isInUse));
    }
    dropSharedSerials(disks, system.sharedSerials);
    return disks;
}

bool isPhysicalDisk(const Device &device)
{
    if (device.type != "disk" || device.attribute("hidden") == "1" || device.property("ID_CDROM") == "1" ||
        device.property("ID_TYPE") == "cd")
        return false;
    if (startsWithAny(device.name, {"sr", "fd", "nbd", "loop", "ram", "zram"}))
        return false;
    if (device.name.starts_with("mmcblk") &&
        (device.name.find("boot") != std::string::npos || device.name.find("rpmb") != std::string::npos))
        return false;
    // Disks with several paths are among the virtual devices, but they are real disks.
    return !isBelow(device.path, "/sys/devices/virtual") ||
           isBelow(device.path, "/sys/devices/virtual/nvme-subsystem");
}

bool isMember(const Device &device)
{
    // udev recognises nothing on these partitions. If udev does name a file system, the file system was made
    // there later.
    static const std::set<std::string> memberTypes{
        "52414944-0000-11aa-aa11-00306543ecac", // RAID set of the system that HFS+ comes from
        "52414944-5f4f-11aa-aa11-00306543ecac", // RAID set of that system, offline
        "53746f72-6167-11aa-aa11-00306543ecac", // volume group of that system
        "5808c8aa-7e8f-42e0-85d2-e1e90434cfb3", // dynamic disk, metadata
        "af9b60a0-1431-4f62-bc68-3311714a69ad", // dynamic disk, data
        "e75caf8f-f680-4cee-afa3-b001e56efc2d", // storage pool
        "0x42",                                 // dynamic disk, in the older kind of partition table
    };
    if (device.property("ID_FS_TYPE").empty() && memberTypes.contains(device.property("ID_PART_ENTRY_TYPE")))
        return true;
    const auto type = device.property("ID_FS_TYPE");
    // When udev recognises several formats at once, it lists them all and chooses none.
    const auto several = device.property("ID_FS_AMBIVALENT");
    return device.property("ID_FS_USAGE") == "raid" || type.ends_with("_member") || type == "bcache" ||
           several.find("raid") != std::string::npos || several.find("_member") != std::string::npos;
}

bool hasUdevLooked(const Device &device)
{
    return device.isInitialized ||
           std::any_of(device.properties.begin(), device.properties.end(),
                       [](const auto &property) { return property.first.starts_with("ID_"); });
}

std::string withoutBlanks(const std::string &text)
{
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string decoded(const std::string &text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto number =
            text.compare(i, 2, "\\x") == 0 && i + 4 <= text.size() ? hexNumber(text.substr(i + 2, 2)) : -1;
        if (number < 0) {
            bytes += text[i];
            continue;
        }
        bytes += static_cast<char>(number);
        i += 3;
    }
    return bytes;
}

} // namespace orvana::platform::linux_host
