#include "platform/linux/LinuxVolumes.h"

#include "platform/VolumeFiles.h"
#include "platform/posix/UserDatabase.h"

#include <algorithm>
#include <filesystem>

namespace orvana::platform::linux_host
{

namespace
{

// True when the disk itself or one of its partitions is among the devices.
bool isAnyOf(const SystemState &system, const Disk &disk, const std::set<std::string> &devices)
{
    if (devices.contains(disk.device->name))
        return true;
    const auto partitions = system.devices.partitionsOf(*disk.device);
    return std::any_of(partitions.begin(), partitions.end(),
                       [&](const Device *partition) { return devices.contains(partition->name); });
}

} // namespace

LinuxVolumeEvents::LinuxVolumeEvents(LinuxMachine &machine) : m_machine(machine), m_volumes(volumes()) {}

void LinuxVolumeEvents::subscribe(std::function<void(VolumeChange)> handler)
{
    m_handlers.push_back(std::move(handler));
}

LinuxVolumeEvents::Volumes LinuxVolumeEvents::volumes()
{
    Volumes found;
    const auto system = m_machine.systemState();
    for (const auto &[device, point] : mountedDevices(system))
        found[device->path] = {point, device->property("ID_FS_LABEL_ENC")};
    return found;
}

void LinuxVolumeEvents::tellChanges()
{
    const auto before = std::exchange(m_volumes, volumes());
    const auto now = m_volumes; // a copy, because a handler may call this function too
    for (const auto &[path, volume] : now) {
        const auto found = before.find(path);
        if (found == before.end())
            tell(VolumeChange::Mounted);
        else if (found->second != volume)
            tell(VolumeChange::Renamed);
    }
    for (const auto &[path, volume] : before) {
        if (!now.contains(path))
            tell(VolumeChange::Unmounted);
    }
}

void LinuxVolumeEvents::tell(VolumeChange change) const
{
    const auto handlers = m_handlers;
    for (const auto &handler : handlers)
        handler(change);
}

std::optional<std::string> LinuxPlaces::userPath(const std::string &login) const
{
    const auto user = posix::userByName(login);
    return user ? std::optional(user->home) : std::nullopt;
}

bool LinuxPlaces::isVolumeRoot(const Folder &folder) const
{
    return folder.traits().isMountRoot;
}

std::vector<std::string> LinuxPlaces::disksBeneath(const std::vector<std::string> &paths) const
{
    const auto snapshot = m_machine.snapshot();
    std::set<std::string> devices;
    for (const auto &path : paths) {
        std::error_code error;
        const auto place = std::filesystem::canonical(path, error);
        if (!error)
            devices.merge(devicesBeneath(snapshot->system, place.native()));
    }
    std::vector<std::string> nodes;
    for (const auto &disk : snapshot->disks) {
        const auto number = m_machine.names().numberOf(disk);
        if (number && isAnyOf(snapshot->system, disk, devices))
            nodes.push_back("/dev/" + DiskNames::nameOf(*number));
    }
    return nodes;
}

} // namespace orvana::platform::linux_host
