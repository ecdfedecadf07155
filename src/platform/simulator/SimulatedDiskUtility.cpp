// This file is the part of the simulated machine that acts as the disk utility.

#include "foundation/ExitStatus.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "platform/simulator/MachinePlaces.h"
#include "platform/simulator/SimulatedMachine.h"

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>
#include <thread>

namespace orvana::platform::simulator
{

namespace
{

constexpr const char *InUse = "Error: the disk is in use";

CommandLauncher::Result failed(const std::string &text, ExitStatus status = SomethingFailed)
{
    return {text + "\n", status};
}

} // namespace

bool SimulatedMachine::isSpared(const Disk &disk, const std::string &device) const
{
    const DiskFingerprint marks{device, disk.serial, disk.wwn, m_numbers.at(disk.where), disk.size};
    return std::any_of(m_sparedDisks.begin(), m_sparedDisks.end(),
                       [&](const DiskFingerprint &spared) { return mayBeTheSame(spared, marks); });
}

// A run of any program holds a lock on each of its volumes.
bool SimulatedMachine::isInUse(const Disk &disk) const
{
    posix::PosixVolumeFiles files;
    return std::any_of(disk.volumes.begin(), disk.volumes.end(), [&](const Volume &volume) {
        const auto point = m_volumes.mountPoint(volume);
        const auto lock = point ? files.lockFolder(*point, Sharing::Exclusive)
                                : Expected<std::unique_ptr<FolderLock>>(nullptr);
        return !lock && lock.error().problem == FileProblem::Busy;
    });
}

// Returns the answer to a command that must not change the disk, or nullopt if commands may change it.
std::optional<CommandLauncher::Result> SimulatedMachine::refusal(const Disk *disk,
                                                                 const std::string &device) const
{
    if (!disk)
        return failed("Unable to find disk for " + device, NotThere);
    if (isSpared(*disk, device))
        return failed("Error: the disk is one that must not be touched", Refused);
    return isInUse(*disk) ? std::optional(failed(InUse, Refused)) : std::nullopt;
}

bool SimulatedMachine::fails(const std::string &command, const Disk &disk) const
{
    const auto &list = m_machine.failing;
    return std::find(list.begin(), list.end(), command) != list.end() ||
           std::find(list.begin(), list.end(), command + " " + disk.bay) != list.end();
}

void SimulatedMachine::delay(const std::string &command) const
{
    if (const auto found = m_machine.delays.find(command); found != m_machine.delays.end())
        std::this_thread::sleep_for(std::chrono::milliseconds(found->second));
}

CommandLauncher::Result SimulatedMachine::eraseDisk(const std::string &name, const std::string &device)
{
    delay("eraseDisk");
    const auto *disk = diskAt(device);
    if (const auto refused = refusal(disk, device))
        return *refused;
    if (fails("eraseDisk", *disk))
        return failed("Error: the disk could not be erased");
    const auto where = disk->where;
    if (disk->realSize && *disk->realSize < disk->size) {
        const auto old = *disk;
        const auto emptied = change(
            [&](Json &json) {
                entryAt(json, where)["formatted"] = false;
                entryAt(json, where).erase("volumes");
            },
            [&] {
                for (const auto &volume : old.volumes)
                    m_volumes.remove(old, volume);
            });
        return failed(emptied ? device + " was emptied; it is smaller than it says" : emptied.error());
    }
    const auto capacity = disk->volumes.empty() ? disk->size : disk->volumes.front().capacity;
    const auto old = *disk;
    const auto edit = [&](Json &json) {
        auto &entry = entryAt(json, where);
        entry["formatted"] = true;
        entry.erase("raid");
        entry["volumes"] = Json::array({Json{{"name", name}, {"capacity", capacity}}});
    };
    const auto changed = change(edit, [&] {
        for (const auto &volume : old.volumes)
            m_volumes.remove(old, volume);
    });
    return changed ? CommandLauncher::Result{"Finished erase on " + device + "\n", 0}
                   : failed(changed.error());
}

CommandLauncher::Result SimulatedMachine::eject(const std::string &device)
{
    delay("eject");
    const auto *disk = diskAt(device);
    if (const auto refused = refusal(disk, device))
        return *refused;
    if (fails("eject", *disk))
        return failed(InUse);
    const auto where = disk->where;
    const auto changed = change([&, isInBay = !disk->bay.empty()](Json &json) {
        auto &entry = entryAt(json, where);
        // A disk in a bay is parked and stays where it is. Any other disk is powered off.
        if (!isInBay) {
            entry["attached"] = false;
        } else if (entry.contains("volumes")) {
            for (auto &volume : entry["volumes"])
                volume["mounted"] = false;
        }
    });
    return changed ? CommandLauncher::Result{"Disk " + device + " ejected\n", 0} : failed(changed.error());
}

CommandLauncher::Result SimulatedMachine::mountDisk(const std::string &device)
{
    const auto *disk = diskAt(device);
    if (!disk)
        return failed("Unable to find disk for " + device, NotThere);
    if (disk->bay.empty())
        return failed("Error: the disk is in no bay", Refused);
    if (disk->volumes.empty() || disk->isRaid)
        return failed("Error: the disk has no volume that can be mounted", Refused);
    if (fails("mountDisk", *disk))
        return failed("Error: the disk could not be mounted");
    const auto where = disk->where;
    const auto changed = change([&](Json &json) {
        for (auto &volume : entryAt(json, where)["volumes"])
            volume.erase("mounted");
    });
    return changed ? CommandLauncher::Result{"Disk " + device + " mounted\n", 0} : failed(changed.error());
}

} // namespace orvana::platform::simulator
