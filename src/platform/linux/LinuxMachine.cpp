#include "platform/linux/LinuxMachine.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "platform/linux/ThunderboltRouters.h"

#include <algorithm>

namespace orvana::platform::linux_host
{

const Disk *diskCalled(const MachineSnapshot &snapshot, const DiskNames &names, const std::string &node)
{
    const auto found = std::find_if(snapshot.disks.begin(), snapshot.disks.end(), [&](const Disk &disk) {
        const auto number = names.numberOf(disk);
        return number && "/dev/" + DiskNames::nameOf(*number) == node;
    });
    return found == snapshot.disks.end() ? nullptr : &*found;
}

std::shared_ptr<const MachineSnapshot> LinuxMachine::snapshot()
{
    auto snapshot = std::make_shared<MachineSnapshot>();
    snapshot->system = readSystemState(m_files);
    rememberSerials(snapshot->system);
    snapshot->system.sharedSerials = m_sharedSerials;
    snapshot->disks = disksOf(snapshot->system);
    m_names.bind(snapshot->disks);
    snapshot->tree = makeTree(snapshot->system, snapshot->disks, m_names);
    snapshot->volumes = listedVolumes(snapshot->system, snapshot->disks, m_names);
    report(*snapshot);
    return snapshot;
}

// A dock may show its own serial number for whichever disk is in it. Two disks of different sizes, or with
// different World Wide Names, or both there at once, give it away.
void LinuxMachine::rememberSerials(const SystemState &system)
{
    std::set<std::string> present;
    for (const auto *device : system.devices.ofType("disk")) {
        const auto serial = device->property("ID_SERIAL_SHORT");
        if (serial.empty() || !system.defined.bayOf(*device))
            continue;
        const SerialOwner owner{device->attribute("size"), device->property("ID_WWN")};
        const auto known = m_serials.try_emplace(serial, owner).first;
        // A bridge may hide the World Wide Name of a disk that shows it elsewhere.
        const bool isOther =
            known->second.size != owner.size ||
            (!owner.wwn.empty() && !known->second.wwn.empty() && known->second.wwn != owner.wwn);
        if (isOther || !present.insert(serial).second)
            m_sharedSerials.insert(serial);
        if (known->second.wwn.empty())
            known->second.wwn = owner.wwn;
    }
}

void LinuxMachine::report(const MachineSnapshot &snapshot)
{
    std::set<std::string> reasons;
    for (const auto &disk : snapshot.disks) {
        if (disk.isPlaceUnclear)
            reasons.insert(disk.device->name + " (" + displayPath(disk.serial.value_or("no serial number")) +
                           "): it cannot be told in which enclosure it is; it is not offered");
    }
    reasons.insert(snapshot.system.defined.remarks.begin(), snapshot.system.defined.remarks.end());
    for (const auto *router : routersOf(snapshot.system.devices)) {
        if (!isAuthorized(*router))
            reasons.insert(displayPath(router->attribute("device_name")) + " (" + router->name +
                           ") is not authorised; its disks are not there until it is. This lets it in: "
                           "boltctl enroll " +
                           displayPath(router->attribute("unique_id")));
    }
    for (const auto &volume : snapshot.volumes) {
        if (!survivesColumns(volume.point))
            reasons.insert(displayPath(volume.point) + ": volumes with such a mount point cannot be listed");
    }
    for (const auto &reason : reasons) {
        if (!m_remarks.contains(reason))
            systemLog(reason);
    }
    m_remarks = std::move(reasons);
}

} // namespace orvana::platform::linux_host
