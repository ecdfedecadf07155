#include "platform/linux/DiskPorts.h"

#include "platform/linux/ThunderboltRouters.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace orvana::platform::linux_host
{

namespace
{

std::string nameIn(const std::string &path)
{
    return path.substr(path.rfind('/') + 1);
}

/// Calls `visit(path)` for each folder above the device, from the nearest upwards, until it returns true.
template <class Visit>
void climb(const Device &device, Visit visit)
{
    for (auto path = pathAbove(device.path); !path.empty(); path = pathAbove(path)) {
        if (visit(path))
            return;
    }
}

/// Returns the nearest folder above the device whose name starts with `start` and goes on with a digit, or an
/// empty text.
std::string folderAbove(const Device &device, const std::string &start)
{
    std::string found;
    climb(device, [&](const std::string &path) {
        const auto name = nameIn(path);
        if (name.starts_with(start) && name.size() > start.size() && name[start.size()] >= '0' &&
            name[start.size()] <= '9')
            found = path;
        return !found.empty();
    });
    return found;
}

const Device *scsiDeviceAbove(const DeviceList &devices, const Device &disk)
{
    const auto *scsi = devices.above(disk, "scsi");
    return scsi && std::count(scsi->name.begin(), scsi->name.end(), ':') == 3 ? scsi : nullptr;
}

/// The numbers of a SCSI device: host, channel, target and LUN.
std::optional<std::array<long, 4>> numbersOf(const Device &scsi)
{
    std::array<long, 4> numbers{};
    const char *next = scsi.name.data();
    const char *end = next + scsi.name.size();
    for (auto &number : numbers) {
        const auto [after, error] = std::from_chars(next, end, number);
        if (error != std::errc())
            return std::nullopt;
        next = after == end ? end : after + 1;
    }
    return numbers;
}

std::string lunName(long lun)
{
    // All other kinds of LUN have a form that bays do not need.
    return lun < 256 ? "lun-" + std::to_string(lun) : std::string();
}

std::string ataPart(const DeviceList &devices, const Device &disk, const std::array<long, 4> &numbers)
{
    const auto folder = folderAbove(disk, "ata");
    auto portPath = folder;
    const auto *port = devices.at(portPath.append("/ata_port/").append(nameIn(folder)));
    if (!port || port->attribute("port_no").empty())
        return {};
    const auto [host, channel, target, lun] = numbers;
    // Behind a port multiplier the channel tells the disks apart.
    const auto place = channel != 0 ? std::to_string(channel) + ".0" : std::to_string(target);
    return "ata-" + port->attribute("port_no") + "." + place;
}

std::string sasPart(const DeviceList &devices, const Device &disk, long lun)
{
    const auto at = [&](const std::string &folder, const char *kind) {
        auto path = folder;
        return devices.at(path.append("/").append(kind).append("/").append(nameIn(folder)));
    };
    const auto end = folderAbove(disk, "end_device-");
    const auto port = pathAbove(end);
    const auto *device = at(end, "sas_device");
    const auto *portDevice = at(port, "sas_port");
    if (!device || !portDevice || lunName(lun).empty())
        return {};
    if (portDevice->attribute("num_phys") != "1")
        return "sas-" + device->attribute("sas_address") + "-" + lunName(lun);
    const auto *expander = at(pathAbove(port), "sas_device");
    return (expander ? "sas-exp" + expander->attribute("sas_address") + "-phy" : "sas-phy") +
           device->attribute("phy_identifier") + "-" + lunName(lun);
}

// The number of a SCSI host is the next free one, so only its distance from the first host of the same
// controller tells something.
std::string scsiPart(const DeviceList &devices, const Device &disk, std::array<long, 4> numbers)
{
    const auto controller = pathAbove(folderAbove(disk, "host"));
    long first = numbers[0];
    for (const auto *scsi : devices.ofSubsystem("scsi")) {
        if (scsi->name.starts_with("host") && pathAbove(scsi->path) == controller)
            first = std::min(first, decimalNumber(scsi->name.substr(4)));
    }
    numbers[0] -= first;
    std::string part = "scsi-";
    for (const auto number : numbers)
        part.append(part.back() == '-' ? "" : ":").append(std::to_string(number));
    return part;
}

/// Returns the part of the path below USB and PCI. Nullopt when no bay can be connected like this.
std::optional<std::string> innerPart(const DeviceList &devices, const Device &disk)
{
    if (devices.above(disk, "firewire"))
        return std::nullopt; // its place on the bus cannot be told
    const auto *scsi = scsiDeviceAbove(devices, disk);
    const auto numbers = scsi ? numbersOf(*scsi) : std::nullopt;
    if (!numbers) {
        const auto nsid = disk.attribute("nsid");
        return nsid.empty() ? std::string() : "nvme-" + nsid;
    }
    if (!folderAbove(disk, "rport-").empty() || !folderAbove(disk, "session").empty())
        return std::nullopt;
    std::string part;
    if (!folderAbove(disk, "end_device-").empty())
        part = sasPart(devices, disk, (*numbers)[3]);
    else if (!folderAbove(disk, "ata").empty())
        part = ataPart(devices, disk, *numbers);
    else
        part = scsiPart(devices, disk, *numbers);
    return part.empty() ? std::nullopt : std::optional(part);
}

std::string joined(const std::string &first, const std::string &second)
{
    return first.empty() || second.empty() ? first + second : first + "-" + second;
}

/// Returns the part of the path from the controller down, which is the same wherever the controller is.
std::optional<std::string> partBelowPci(const DeviceList &devices, const Device &disk)
{
    auto inner = innerPart(devices, disk);
    const auto *usb = devices.above(disk, "usb");
    const auto dash = usb ? usb->name.find('-') : std::string::npos;
    if (!inner || !usb || dash == std::string::npos)
        return inner;
    return joined("usb-0:" + usb->name.substr(dash + 1), *inner);
}

// The hubs of a controller for fast and for slow devices count their ports from 1 each, and the same number
// may be different sockets.
std::string withUsbRevision(const DeviceList &devices, const Device &disk, std::string path)
{
    const Device *root = nullptr;
    for (const auto *usb = devices.above(disk, "usb"); usb; usb = devices.above(*usb, "usb"))
        root = usb;
    const auto version = root ? root->attribute("version") : std::string();
    const auto digit = version.find_first_not_of(' ');
    const auto usb = path.find("-usb-0:");
    if (digit == std::string::npos || usb == std::string::npos)
        return {};
    return path.insert(usb + 4, std::string("v") + version[digit]);
}

std::string slotOf(const Device &pci)
{
    return pci.name.substr(pci.name.rfind(':') + 1);
}

void addUsbPlaces(const DeviceList &devices, const Device &disk, std::vector<enclosures::PlaceBelow> &places)
{
    const Device *own = nullptr;
    for (const auto *usb = devices.above(disk, "usb"); usb; usb = devices.above(*usb, "usb")) {
        if (usb->type != "usb_device" || usb->name.find('-') == std::string::npos)
            continue;
        own = own ? own : usb;
        // "2-1.3" is at port 3 of "2-1".
        places.push_back({usb->path, own == usb ? std::string() : own->name.substr(usb->name.size() + 1)});
    }
}

void addPciPlaces(const DeviceList &devices, const Device &disk, std::vector<enclosures::PlaceBelow> &places)
{
    const auto last = partBelowPci(devices, disk);
    std::string slots;
    for (const auto *pci = devices.above(disk, "pci"); pci && last; pci = devices.above(*pci, "pci")) {
        places.push_back({pci->path, joined(slots, *last)});
        slots.insert(0, slots.empty() ? slotOf(*pci) : slotOf(*pci) + "/");
    }
}

// A device that is built in hangs on nothing that could be unplugged.
bool isBuiltIn(const DeviceList &devices, const Device &device)
{
    for (const auto *usb = &device; usb; usb = devices.above(*usb, "usb")) {
        const bool isRootHub = usb->name.find('-') == std::string::npos;
        if (usb->type == "usb_device" && !isRootHub && usb->attribute("removable") != "fixed")
            return false;
    }
    return true;
}

bool haveSameIds(const Device &a, const Device &b)
{
    return a.attribute("vendor") == b.attribute("vendor") && a.attribute("device") == b.attribute("device");
}

// A PCI switch is a bridge with bridges below it, often all with the same numbers. Of two such switches one
// below the other, every second bridge is an upper side.
bool isLowerSide(const DeviceList &devices, const Device &pci)
{
    const auto *above = isBridge(pci) ? devices.above(pci, "pci") : nullptr;
    return above && isBridge(*above) && haveSameIds(*above, pci) && !isLowerSide(devices, *above);
}

enclosures::Anchor anchorOf(enclosures::Bus bus, const std::string &vendor, const std::string &product)
{
    return {bus,
            static_cast<std::uint16_t>(std::max(hexNumber(vendor), 0L)),
            static_cast<std::uint16_t>(std::max(hexNumber(product), 0L)),
            {}};
}

} // namespace

std::string idPathOf(const DeviceList &devices, const Device &disk)
{
    const auto *pci = devices.above(disk, "pci");
    const auto last = pci ? partBelowPci(devices, disk) : std::nullopt;
    return last ? joined("pci-" + pci->name, *last) : std::string();
}

enclosures::DiskPlace placeOfDisk(const DeviceList &devices, const Device &disk)
{
    enclosures::DiskPlace place{disk.path, idPathOf(devices, disk), std::nullopt, {}, {}};
    place.revisedPath = withUsbRevision(devices, disk, place.path);
    const auto *scsi = scsiDeviceAbove(devices, disk);
    if (const auto numbers = scsi ? numbersOf(*scsi) : std::nullopt)
        place.lun = static_cast<int>((*numbers)[3]);
    addUsbPlaces(devices, disk, place.below);
    addPciPlaces(devices, disk, place.below);
    return place;
}

std::vector<enclosures::AnchorDevice> anchorDevicesOf(const DeviceList &devices)
{
    std::vector<enclosures::AnchorDevice> anchors;
    for (const auto *usb : devices.ofSubsystem("usb")) {
        if (usb->type != "usb_device" || usb->name.find('-') == std::string::npos)
            continue;
        auto ids = anchorOf(enclosures::Bus::Usb, usb->attribute("idVendor"), usb->attribute("idProduct"));
        ids.serial = usb->attribute("serial");
        anchors.push_back(
            {usb->path, std::move(ids), isBuiltIn(devices, *usb) ? "is built into the machine" : ""});
    }
    for (const auto *pci : devices.ofSubsystem("pci")) {
        if (!isLowerSide(devices, *pci))
            anchors.push_back(
                {pci->path,
                 anchorOf(enclosures::Bus::Pci, pci->attribute("vendor"), pci->attribute("device")),
                 {},
                 isRemovable(devices, *pci)});
    }
    return anchors;
}

} // namespace orvana::platform::linux_host
