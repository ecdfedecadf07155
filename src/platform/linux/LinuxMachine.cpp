#include "platform/linux/LinuxMachine.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "platform/linux/ThunderboltRouters.h"

namespace orvana::platform::linux_host
{

std::shared_ptr<const MachineLook> LinuxMachine::look()
{
    auto look = std::make_shared<MachineLook>();
    look->snapshot = readSnapshot(m_files);
    look->disks = disksOf(look->snapshot);
    m_names.bind(look->disks);
    look->tree = makeTree(look->snapshot, look->disks, m_names);
    look->volumes = listedVolumes(look->snapshot, look->disks, m_names);
    report(*look);
    return look;
}

void LinuxMachine::report(const MachineLook &look)
{
    std::set<std::string> reasons;
    for (const auto &disk : look.disks) {
        if (disk.isPlaceUnclear)
            reasons.insert(disk.device->name + " (" + displayPath(disk.serial.value_or("no serial number")) +
                           "): it cannot be told in which enclosure it is; it is not offered");
    }
    for (const auto *router : routersOf(look.snapshot.devices)) {
        if (!isAuthorized(*router))
            reasons.insert(displayPath(router->attribute("device_name")) + " (" + router->name +
                           ") is not authorised; its disks are not there until it is. This lets it in: "
                           "boltctl enroll " +
                           displayPath(router->attribute("unique_id")));
    }
    for (const auto &volume : look.volumes) {
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
