// This file sets the free space and the faults of each volume of the simulated machine.

#include "platform/simulator/MachinePlaces.h"
#include "platform/simulator/SimulatorHost.h"

#include <algorithm>

namespace orvana::platform::simulator
{

namespace
{

void setFaults(VolumeFaults &faults, const std::map<std::string, std::int64_t> &wanted)
{
    const auto number = [&](const char *name, std::int64_t off) {
        const auto found = wanted.find(name);
        return found == wanted.end() ? off : found->second;
    };
    faults.writeErrorAfter = number("writeErrorAfter", -1);
    faults.readErrorAfter = number("readErrorAfter", -1);
    faults.goneAfter = number("goneAfter", -1);
    faults.delayMilliseconds =
        static_cast<int>(std::min<std::int64_t>(number("delayMilliseconds", 0), 60'000));
    faults.gone = number("gone", 0) != 0;
    faults.readOnly = number("readOnly", 0) != 0;
    faults.writeOutError = number("writeOutError", 0) != 0;
    faults.syncError = number("syncError", 0) != 0;
    faults.closeError = number("closeError", 0) != 0;
}

} // namespace

// Files that are open on a detached disk fail, as on hardware.
void SimulatorHost::retireDetachedVolumes()
{
    visitAllDisks(m_machine->machine(), [this](const Disk &disk, bool isAttached) {
        for (const auto &volume : disk.volumes) {
            if (auto point = isAttached ? m_points.end() : m_points.find(volume.where);
                point != m_points.end()) {
                m_files.retire(point->second);
                m_points.erase(point);
            }
        }
    });
}

// Limits each volume to the free part of its capacity, however much space the real disk has, and sets the
// faults of its entry.
void SimulatorHost::setUpVolumes()
{
    retireDetachedVolumes();
    const auto setUp = [this](const Disk &disk) {
        for (const auto &volume : disk.volumes) {
            const auto point = m_machine->volumes().mountPoint(volume);
            if (!point || *point == "/") {
                m_points.erase(volume.where);
                continue;
            }
            m_points[volume.where] = *point;
            auto &faults = m_files.volume(*point);
            setFaults(faults, volume.faults);
            // An image's own file system knows when it is full.
            faults.capacity =
                disk.image ? -1 : m_machine->volumes().space(m_machine->machine(), disk, volume).free;
        }
    };
    std::for_each(m_machine->machine().disks.begin(), m_machine->machine().disks.end(), setUp);
    for (const auto &enclosure : m_machine->machine().enclosures)
        std::for_each(enclosure.bays.begin(), enclosure.bays.end(), setUp);
}

} // namespace orvana::platform::simulator
