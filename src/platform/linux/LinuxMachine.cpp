#include "platform/linux/LinuxMachine.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "platform/linux/ThunderboltRouters.h"

namespace orvana::platform::linux_host
{

std::shared_ptr<const MachineSnapshot> LinuxMachine::snapshot()
{
    auto snapshot = std::make_shared<MachineSnapshot>();
    snapshot->system = readSystemState(m_files);
    snapshot->disks = disksOf(snapshot->system);
    m_names.bind(snapshot->disks);
    snapshot->tree = makeTree(snapshot->system, snapshot->disks, m_names);
    snapshot->volumes = listedVolumes(snapshot->system, snapshot->disks, m_names);
    report(*snapshot);
    return snapshot;
}

void LinuxMachine::report(const MachineSnapshot &snapshot)
{
    std::set<std::string> reasons;
    for (const auto &disk : snapshot.disks) {
        if (disk.isPlaceUnclear)
            reasons.insert(disk.device->name + " (" + displayPath(disk.serial.value_or("no serial number")) +
                           "): it cannot be told in which enclosure it is; it is not offered");
    }
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
