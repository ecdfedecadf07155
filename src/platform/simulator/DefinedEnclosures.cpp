// The enclosures that definitions make of the simulated machine's docks and its backplane.

#include "foundation/TextHash.h"
#include "platform/simulator/Machine.h"

#include <algorithm>
#include <set>

namespace orvana::platform::simulator
{

namespace
{

using enclosures::DiskPlace;

DiskPlace placeInDock(const Dock &dock, const PortDisk &disk)
{
    const bool isUsb = dock.ids.bus == enclosures::Bus::Usb;
    const auto lun = disk.lun.value_or(0);
    const auto port = disk.port.empty() ? dock.at : dock.at + "." + disk.port;
    DiskPlace place{disk.disk.where, {}, lun, {{dock.where, disk.port}}};
    place.path = isUsb ? "pci-0000:00:14.0-usb-0:" + port + ":1.0-scsi-0:0:0:" + std::to_string(lun)
                       : "pci-0000:4" + dock.at + ":00.0-" + disk.port;
    return place;
}

/// Collects the disks with their places, and which of them are there.
struct Ports
{
    explicit Ports(Machine &machine)
    {
        for (auto &dock : machine.docks) {
            if (dock.isAttached)
                machine.anchors.push_back({dock.where, dock.ids});
            for (auto &disk : dock.disks) {
                disk.disk.isAttached = disk.disk.isAttached && dock.isAttached;
                disk.disk.kind = dock.ids.bus == enclosures::Bus::Usb ? DiskKind::Usb : DiskKind::Internal;
                machine.places.emplace(disk.disk.where, placeInDock(dock, disk));
                disks.push_back(&disk.disk);
            }
        }
        for (auto &disk : machine.backplane) {
            disk.disk.kind = DiskKind::Internal;
            machine.places.emplace(disk.disk.where, DiskPlace{disk.disk.where, disk.port, {}, {}});
            disks.push_back(&disk.disk);
        }
    }

    std::vector<Disk *> disks;
};

/// Adds the places of the machine's other disks, which a definition may name as well.
void addOtherPlaces(Machine &machine)
{
    int internal = 0;
    int external = 100;
    for (const auto &disk : machine.disks) {
        const bool isInternal = disk.kind == DiskKind::Internal;
        machine.places.emplace(
            disk.where, DiskPlace{disk.where,
                                  isInternal ? "pci-0000:00:1f.2-ata-" + std::to_string(++internal) + ".0"
                                             : "pci-0000:00:14.0-usb-0:" + std::to_string(++external) +
                                                   ":1.0-scsi-0:0:0:0",
                                  {},
                                  {}});
    }
}

// As on a real machine: a serial number that two disks in bays show is none.
void dropSharedSerials(std::vector<Enclosure> &defined)
{
    std::map<std::string, std::vector<Disk *>> owners;
    for (auto &enclosure : defined) {
        for (auto &disk : enclosure.bays) {
            if (disk.isAttached && disk.serial)
                owners[*disk.serial].push_back(&disk);
        }
    }
    for (const auto &[serial, disks] : owners) {
        for (auto *disk : disks) {
            if (disks.size() > 1)
                disk->serial.reset();
        }
    }
}

std::vector<Enclosure> enclosuresOf(const std::vector<enclosures::Definition> &definitions,
                                    const enclosures::BayClaims &claims)
{
    std::vector<Enclosure> made;
    for (std::size_t i = 0; i < definitions.size(); ++i) {
        Enclosure enclosure;
        enclosure.name = definitions[i].name;
        enclosure.vendorName = "Definition";
        enclosure.uid = textHash("enclosure:" + definitions[i].id);
        enclosure.definition = definitions[i].id;
        enclosure.isAttached = claims.isPresent[i];
        made.push_back(std::move(enclosure));
    }
    return made;
}

void putOutside(Machine &machine, Disk disk)
{
    if (disk.kind == DiskKind::Usb && !disk.product) {
        disk.vendor = disk.vendor.value_or("");
        disk.product = disk.model;
    }
    machine.disks.push_back(std::move(disk));
}

} // namespace

void putIntoBays(Machine &machine)
{
    const Ports ports(machine);
    addOtherPlaces(machine);
    std::vector<DiskPlace> there;
    for (const auto *disk : ports.disks) {
        if (disk->isAttached)
            there.push_back(machine.places.at(disk->where));
    }
    const auto claims = enclosures::claimBays(machine.definitions, machine.anchors, there);
    auto defined = enclosuresOf(machine.definitions, claims);
    for (auto *disk : ports.disks) {
        auto bay = claims.bays.find(disk->where);
        // A disk that was taken out keeps its bay, as far as nothing else is there.
        const auto alone = disk->isAttached ? enclosures::BayClaims()
                                            : enclosures::claimBays(machine.definitions, machine.anchors,
                                                                    {machine.places.at(disk->where)});
        if (!disk->isAttached)
            bay = alone.bays.find(disk->where);
        if (bay == (disk->isAttached ? claims.bays.end() : alone.bays.end())) {
            putOutside(machine, *disk);
            continue;
        }
        disk->kind = DiskKind::Bay;
        disk->bay = std::string(1, bay->second.bay);
        defined[bay->second.definition].bays.push_back(*disk);
    }
    dropSharedSerials(defined);
    machine.remarks = claims.remarks;
    for (const auto &[where, reason] : claims.unclear) {
        auto remark = "a disk (" + where;
        remark.append(") is not where one can tell: ").append(reason).append("; it is in no bay");
        machine.remarks.push_back(std::move(remark));
    }
    machine.enclosures.insert(machine.enclosures.end(), std::make_move_iterator(defined.begin()),
                              std::make_move_iterator(defined.end()));
}

} // namespace orvana::platform::simulator
