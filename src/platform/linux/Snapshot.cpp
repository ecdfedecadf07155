#include "platform/linux/Snapshot.h"

#include <algorithm>
#include <filesystem>

namespace orvana::platform::linux_host
{

namespace
{

// Longer chains of images within images are no sane system's.
constexpr int DeepestStack = 16;

/// Follows a file system down to the devices that it really lies on.
class Foundations
{
public:
    Foundations(const Snapshot &snapshot, const SystemFiles &files) : m_snapshot(snapshot), m_files(files) {}

    std::set<std::string> ofPath(const std::string &path)
    {
        addPath(path, 0);
        return std::move(m_found);
    }

private:
    void addPath(const std::string &path, int level)
    {
        const auto *mount = mountAt(m_snapshot.mounts, path);
        if (!mount || level > DeepestStack)
            return;
        if (const auto *device = deviceOf(m_snapshot.devices, *mount))
            addDevice(*device, level);
        if (mount->type == "overlay") {
            for (const char *layer : {"lowerdir=", "upperdir="})
                addLayers(mount->options, layer, path, level);
        }
    }

    // "lowerdir=/a:/b": each is a path of its own, seen from where the layers were put together.
    void addLayers(const std::string &options, const std::string &key, const std::string &own, int level)
    {
        auto start = options.find(key);
        if (start == std::string::npos)
            return;
        start += key.size();
        const auto end = std::min(options.find(',', start), options.size());
        while (start < end) {
            const auto next = std::min(options.find(':', start), end);
            const auto path = options.substr(start, next - start);
            if (path.starts_with('/') && path != own)
                addPath(path, level + 1);
            start = next + 1;
        }
    }

    void addDevice(const Device &device, int level)
    {
        if (level > DeepestStack)
            return;
        for (const auto &name : device.slaves) {
            if (const auto *slave = m_snapshot.devices.blockNamed(name))
                addDevice(*slave, level + 1);
        }
        if (const auto image = device.attribute("loop/backing_file"); !image.empty())
            addPath(image, level + 1);
        else if (device.slaves.empty())
            addWithCompanions(device);
    }

    // A file system over several devices is mounted by one of them.
    void addWithCompanions(const Device &device)
    {
        m_found.insert(device.name);
        std::error_code error;
        for (std::filesystem::directory_iterator entry(m_files.btrfs, error), end; !error && entry != end;
             entry.increment(error)) {
            const auto members = entry->path() / "devices";
            std::error_code none;
            if (!std::filesystem::exists(members / device.name, none))
                continue;
            for (const auto &member : std::filesystem::directory_iterator(members, none))
                m_found.insert(member.path().filename().native());
        }
    }

    const Snapshot &m_snapshot;
    const SystemFiles &m_files;
    std::set<std::string> m_found;
};

// Folders are there as long as the file system is mounted.
std::set<std::string> readCompanions(const std::string &folder)
{
    std::set<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code none;
        for (std::filesystem::directory_iterator member(entry->path() / "devices", none);
             !none && member != end; member.increment(none))
            names.insert(member->path().filename().native());
    }
    return names;
}

// The higher, the sooner it is taken for the device's mount point.
int rankOf(const Mount &mount)
{
    if (mount.target == "/")
        return 2;
    return mount.root == "/" ? 1 : 0;
}

} // namespace

bool Snapshot::isMounted(const Device &device) const
{
    return companions.contains(device.name) ||
           std::any_of(mounts.begin(), mounts.end(),
                       [&](const Mount &mount) { return deviceOf(devices, mount) == &device; });
}

Snapshot readSnapshot(const SystemFiles &files)
{
    Snapshot snapshot{files.devices(), readMounts(files.mounts), {}, {}, readCompanions(files.btrfs)};
    for (const auto &source : readSwaps(files.swaps)) {
        const auto *device = snapshot.devices.blockAtNode(source);
        // A file is swapped on by way of the file system that it lies on.
        const auto *mount = device ? nullptr : mountAt(snapshot.mounts, source);
        if (mount)
            device = deviceOf(snapshot.devices, *mount);
        if (device)
            snapshot.swaps.insert(device->name);
    }
    snapshot.beneathRoot = Foundations(snapshot, files).ofPath("/");
    return snapshot;
}

const Device *deviceOf(const DeviceList &devices, const Mount &mount)
{
    // Numbers with a leading 0 are the file system's own and say nothing of its device.
    if (!mount.number.starts_with("0:"))
        return devices.blockNumbered(mount.number);
    return mount.source.starts_with("/dev/") ? devices.blockAtNode(mount.source) : nullptr;
}

const Mount *mountAt(const std::vector<Mount> &mounts, const std::string &path)
{
    const Mount *best = nullptr;
    for (const auto &mount : mounts) {
        const bool covers = mount.target == "/" || mount.target == path || isBelow(path, mount.target);
        if (covers && (!best || mount.target.size() >= best->target.size()))
            best = &mount;
    }
    return best;
}

std::vector<MountedDevice> mountedDevices(const Snapshot &snapshot)
{
    std::vector<MountedDevice> found;
    std::vector<int> ranks;
    for (const auto &mount : snapshot.mounts) {
        const auto *device = deviceOf(snapshot.devices, mount);
        if (!device || mountAt(snapshot.mounts, mount.target) != &mount)
            continue;
        const auto known = std::find_if(found.begin(), found.end(),
                                        [&](const MountedDevice &entry) { return entry.device == device; });
        const auto index = static_cast<std::size_t>(known - found.begin());
        if (known == found.end()) {
            found.push_back({device, mount.target});
            ranks.push_back(rankOf(mount));
        } else if (rankOf(mount) > ranks[index]) {
            known->point = mount.target;
            ranks[index] = rankOf(mount);
        }
    }
    return found;
}

} // namespace orvana::platform::linux_host
