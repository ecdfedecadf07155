#include "platform/linux/SystemState.h"

#include "platform/linux/DefinedBays.h"

#include <algorithm>
#include <filesystem>

namespace orvana::platform::linux_host
{

namespace
{

std::vector<std::set<std::string>> readPools(const std::string &folder)
{
    std::vector<std::set<std::string>> pools;
    for (const auto &name : namesIn(folder)) {
        const auto devices = namesIn(std::filesystem::path(folder) / name / "devices");
        if (devices.size() > 1)
            pools.emplace_back(devices.begin(), devices.end());
    }
    return pools;
}

/// Finds the devices that a file system really lies on. Layers and images may refer to each other in any way,
/// so each mount and each device is followed only once.
class Foundations
{
public:
    explicit Foundations(const SystemState &system) : m_system(system) {}

    void addPath(const std::string &path)
    {
        if (const auto *mount = mountAt(m_system.mounts, path))
            addMount(*mount);
    }

    void addMountsBelow(const std::string &path)
    {
        for (const auto &mount : m_system.mounts) {
            if (isBelow(mount.target, path))
                addMount(mount);
        }
    }

    std::set<std::string> found() && { return std::move(m_found); }

private:
    void addMount(const Mount &mount)
    {
        if (!m_seenMounts.insert(&mount).second)
            return;
        const auto *device = deviceOf(m_system.devices, mount);
        if (device)
            addDevice(*device);
        if (mount.type == "overlay") {
            for (const char *layer : {"lowerdir=", "upperdir="})
                addLayers(mount.options, layer);
        } else if (!device && mount.source.starts_with('/')) {
            // A file system that shows other folders has these folders as its source.
            addPaths(mount.source);
        }
    }

    // Adds each path of a list such as "/a:/b".
    void addPaths(const std::string &paths)
    {
        for (std::size_t start = 0; start < paths.size();) {
            const auto next = std::min(paths.find(':', start), paths.size());
            if (const auto path = paths.substr(start, next - start); path.starts_with('/'))
                addPath(path);
            start = next + 1;
        }
    }

    // Adds the layers of an option such as "lowerdir=/a:/b". Its paths are as seen from where the layers were
    // put together.
    void addLayers(const std::string &options, const std::string &key)
    {
        auto start = options.find(key);
        if (start == std::string::npos)
            return;
        start += key.size();
        addPaths(options.substr(start, std::min(options.find(',', start), options.size()) - start));
    }

    void addDevice(const Device &device)
    {
        if (!m_seenDevices.insert(&device).second)
            return;
        addNamed(device.slaves);
        for (const auto &pool : m_system.pools) {
            if (pool.contains(device.name))
                addNamed(pool);
        }
        if (const auto image = device.attribute("loop/backing_file"); !image.empty())
            addPath(image);
        else if (device.slaves.empty())
            m_found.insert(device.name);
    }

    template <class Names>
    void addNamed(const Names &names)
    {
        for (const auto &name : names) {
            if (const auto *device = m_system.devices.blockNamed(name))
                addDevice(*device);
        }
    }

    const SystemState &m_system;
    std::set<const Mount *> m_seenMounts;
    std::set<const Device *> m_seenDevices;
    std::set<std::string> m_found;
};

// The mount with the highest rank gives the device's mount point.
int rankOf(const Mount &mount)
{
    if (mount.target == "/")
        return 2;
    return mount.root == "/" ? 1 : 0;
}

} // namespace

bool SystemState::isMounted(const Device &device) const
{
    return isPooled(device) || std::any_of(mounts.begin(), mounts.end(), [&](const Mount &mount) {
               return deviceOf(devices, mount) == &device;
           });
}

bool SystemState::isPooled(const Device &device) const
{
    return std::any_of(pools.begin(), pools.end(),
                       [&](const std::set<std::string> &pool) { return pool.contains(device.name); });
}

SystemState readSystemState(const SystemFiles &files)
{
    SystemState system{files.devices(), readMounts(files.mounts), {}, readPools(files.btrfs), {}, {}, {}};
    for (const auto &source : readSwaps(files.swaps)) {
        const auto *device = system.devices.blockAtNode(source);
        // A swap file counts for the device of the file system that holds the file.
        const auto *mount = device ? nullptr : mountAt(system.mounts, source);
        if (mount)
            device = deviceOf(system.devices, *mount);
        if (device)
            system.swaps.insert(device->name);
    }
    system.beneathRoot = devicesBeneath(system, "/");
    system.defined = findDefinedBays(system, files);
    return system;
}

std::set<std::string> devicesBeneath(const SystemState &system, const std::string &path)
{
    Foundations foundations(system);
    foundations.addPath(path);
    if (path != "/")
        foundations.addMountsBelow(path);
    return std::move(foundations).found();
}

const Device *deviceOf(const DeviceList &devices, const Mount &mount)
{
    // A number with a leading 0 is the file system's own and says nothing about its device.
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

std::vector<MountedDevice> mountedDevices(const SystemState &system)
{
    std::vector<MountedDevice> found;
    std::vector<int> ranks;
    for (const auto &mount : system.mounts) {
        const auto *device = deviceOf(system.devices, mount);
        if (!device || mountAt(system.mounts, mount.target) != &mount)
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
