#include "platform/simulator/SimulatorHost.h"

#include "foundation/MainQueue.h"
#include "foundation/SystemLog.h"
#include "platform/simulator/SimulatedSetup.h"

#include <algorithm>

namespace orvana::platform::simulator
{

namespace
{

constexpr std::chrono::milliseconds BetweenLooks{100};

} // namespace

class SimulatorHost::SimulatedAccount final : public Account
{
public:
    explicit SimulatedAccount(const SimulatedMachine &machine)
        : m_login(machine.machine().login), m_home(machine.volumes().homeFolder(m_login))
    {
    }
    std::string loginName() const override { return m_login; }
    std::string homeFolder() const override { return m_home; }

private:
    // These are the values from the start. Other threads ask for them while the machine's file may be read
    // again.
    const std::string m_login;
    const std::string m_home;
};

class SimulatorHost::SimulatedPlaces final : public Places
{
public:
    explicit SimulatedPlaces(const SimulatedMachine &machine)
        : m_machine(machine), m_login(machine.machine().login), m_home(machine.volumes().homeFolder(m_login))
    {
    }

    std::optional<std::string> userPath(const std::string &login) const override
    {
        return login == m_login ? std::optional(m_home) : std::nullopt;
    }

    std::vector<std::string> disksBeneath(const std::vector<std::string> &paths) const override
    {
        return m_machine.disksBeneath(paths);
    }

    bool isVolumeRoot(const Folder &folder) const override
    {
        const auto own = folder.attributes(".", Links::Follow, Want::Basics);
        posix::PosixVolumeFiles files;
        for (const auto &point : m_machine.mountPoints()) {
            const auto root = files.workingFolder().attributes(point, Links::Follow, Want::Basics);
            if (own && root && own->device == root->device && own->inode == root->inode)
                return true;
        }
        return false;
    }

private:
    const SimulatedMachine &m_machine;
    const std::string m_login;
    const std::string m_home;
};

class SimulatorHost::SimulatedRegistry final : public HardwareRegistry
{
public:
    explicit SimulatedRegistry(const SimulatedMachine &machine) : m_machine(machine), m_tree(machine.tree())
    {
    }

    Answer match(const std::optional<RegistryMatching> &matching) override
    {
        if (!matching)
            return {RegistryBadArgument, {}};
        Answer answer;
        m_machine.tree()->collect(*matching, answer.entries);
        return answer;
    }

    Answer watch(const std::string &className, RegistryEvent event, EventHandler handler) override
    {
        m_watches.push_back({className, event, std::move(handler)});
        return event == RegistryEvent::Published ? match(RegistryMatching{className, {}}) : Answer{};
    }

    std::vector<std::string> remarks() override { return m_machine.machine().remarks; }

    // Reports to each watch the entries that are only in the new tree (published) or only in the last tree
    // (terminated).
    void tellChanges()
    {
        const auto before = std::exchange(m_tree, m_machine.tree());
        if (before == m_tree)
            return;
        const auto watches = m_watches;
        for (const auto &watch : watches) {
            const bool isPublished = watch.event == RegistryEvent::Published;
            const auto &with = isPublished ? *m_tree : *before;
            const auto &without = isPublished ? *before : *m_tree;
            auto changed = difference(with, without, watch.className);
            if (watch.className == "IOPCIDevice")
                addControllersOfDisks(with, without, changed);
            if (!changed.empty())
                watch.handler(changed);
        }
    }

private:
    struct Watch
    {
        std::string className;
        RegistryEvent event;
        EventHandler handler;
    };

    static std::set<std::string> pathsOf(const RegistryNode &tree, const std::string &className)
    {
        std::vector<RegistryEntryPtr> entries;
        tree.collect({className, {}}, entries);
        std::set<std::string> paths;
        for (const auto &entry : entries)
            paths.insert(entry->path());
        return paths;
    }

    static std::vector<RegistryEntryPtr> difference(const RegistryNode &tree, const RegistryNode &other,
                                                    const std::string &className)
    {
        std::vector<RegistryEntryPtr> entries;
        tree.collect({className, {}}, entries);
        const auto known = pathsOf(other, className);
        std::erase_if(entries, [&](const auto &entry) { return known.contains(entry->path()); });
        return entries;
    }

    // When a disk comes or goes while its controller stays, the controller is reported, as on Linux.
    static void addControllersOfDisks(const RegistryNode &tree, const RegistryNode &other,
                                      std::vector<RegistryEntryPtr> &changed)
    {
        const auto arrivals = [](const RegistryNode &root) {
            std::map<std::int64_t, RegistryEntryPtr> disks;
            std::vector<RegistryEntryPtr> entries;
            root.collect({"AppleAHCIDiskDriver", {}}, entries);
            for (const auto &entry : entries)
                disks[valueOf<std::int64_t>(entry->properties(), "Arrival Number").value_or(0)] = entry;
            return disks;
        };
        const auto lasting = pathsOf(other, "IOPCIDevice");
        const auto others = arrivals(other);
        for (const auto &[arrival, disk] : arrivals(tree)) {
            if (others.contains(arrival))
                continue;
            auto above = disk->parent();
            while (above && !above->path().ends_with("/AppleAHCI"))
                above = above->parent();
            if (above && above->parent() && lasting.contains(above->parent()->path()))
                changed.push_back(above->parent());
        }
    }

    const SimulatedMachine &m_machine;
    std::shared_ptr<RegistryNode> m_tree;
    std::vector<Watch> m_watches;
};

// The definitions are read and written on any thread, and the machine is used on one. So they go through the
// file, as in another program.
class SimulatorHost::SimulatedEvents final : public VolumeEvents
{
public:
    explicit SimulatedEvents(const SimulatedMachine &machine) : m_machine(machine), m_mounts(mounts()) {}

    void subscribe(std::function<void(VolumeChange)> handler) override
    {
        m_handlers.push_back(std::move(handler));
    }

    void tellChanges()
    {
        const auto before = std::exchange(m_mounts, mounts());
        for (const auto &[where, point] : m_mounts) {
            const auto found = before.find(where);
            if (found == before.end())
                tell(VolumeChange::Mounted);
            else if (found->second != point)
                tell(VolumeChange::Renamed);
        }
        for (const auto &[where, point] : before) {
            if (!m_mounts.contains(where))
                tell(VolumeChange::Unmounted);
        }
    }

private:
    std::map<std::string, std::string> mounts() const
    {
        std::map<std::string, std::string> found;
        const auto note = [&](const Disk &disk) {
            for (const auto &volume : disk.volumes) {
                if (const auto point = m_machine.volumes().mountPoint(volume))
                    found[volume.where] = *point;
            }
        };
        std::for_each(m_machine.machine().disks.begin(), m_machine.machine().disks.end(), note);
        for (const auto &enclosure : m_machine.machine().enclosures)
            std::for_each(enclosure.bays.begin(), enclosure.bays.end(), note);
        return found;
    }

    void tell(VolumeChange change) const
    {
        const auto handlers = m_handlers;
        for (const auto &handler : handlers)
            handler(change);
    }

    const SimulatedMachine &m_machine;
    std::map<std::string, std::string> m_mounts;
    std::vector<std::function<void(VolumeChange)>> m_handlers;
};

class SimulatorHost::SimulatedTools final : public CommandLauncher
{
public:
    SimulatedTools(SimulatedMachine &machine, std::function<void()> onChange)
        : m_machine(machine), m_onChange(std::move(onChange))
    {
    }

    void setSparedDisks(std::vector<DiskFingerprint> disks) override
    {
        m_machine.setSparedDisks(std::move(disks));
    }

    Result run(const std::string &path, const std::vector<std::string> &arguments) override
    {
        if (path == "/bin/df")
            return {m_machine.diskFree(), 0};
        if (path == "/usr/sbin/diskutil")
            return changed(diskUtility(arguments));
        systemLog(path + " cannot be started: not on the simulated machine");
        return {};
    }

private:
    Result diskUtility(const std::vector<std::string> &words)
    {
        if (words.size() == 4 && words[0] == "eraseDisk")
            return m_machine.eraseDisk(words[2], words[3]);
        if (words.size() == 2 && words[0] == "eject")
            return m_machine.eject(words[1]);
        if (words.size() == 2 && words[0] == "mountDisk")
            return m_machine.mountDisk(words[1]);
        return {"Usage: diskutil eraseDisk FORMAT NAME DEVICE | diskutil eject DEVICE | diskutil mountDisk "
                "DEVICE\n",
                2};
    }

    Result changed(Result result)
    {
        m_onChange();
        return result;
    }

    SimulatedMachine &m_machine;
    std::function<void()> m_onChange;
};

SimulatorHost::SimulatorHost(std::unique_ptr<SimulatedMachine> machine, MainQueue *queue,
                             std::unique_ptr<Workspace> workspace)
    : m_machine(std::move(machine)), m_queue(queue),
      m_account(std::make_unique<SimulatedAccount>(*m_machine)),
      m_places(std::make_unique<SimulatedPlaces>(*m_machine)),
      m_registry(std::make_unique<SimulatedRegistry>(*m_machine)),
      m_events(std::make_unique<SimulatedEvents>(*m_machine)),
      m_launcher(std::make_unique<SimulatedTools>(*m_machine, [this] { setUpVolumes(); })),
      m_setup(std::make_unique<SimulatedSetup>(*m_machine)), m_workspace(std::move(workspace)),
      m_self(std::make_shared<SimulatorHost *>(this))
{
    setUpVolumes();
    if (m_queue)
        lookAgainLater();
}

SimulatorHost::~SimulatorHost() = default;

Account &SimulatorHost::account()
{
    return *m_account;
}

Places &SimulatorHost::places()
{
    return *m_places;
}

HardwareRegistry &SimulatorHost::registry()
{
    return *m_registry;
}

VolumeEvents &SimulatorHost::volumeEvents()
{
    return *m_events;
}

CommandLauncher &SimulatorHost::launcher()
{
    return *m_launcher;
}

enclosures::EnclosureSetup &SimulatorHost::enclosureSetup()
{
    return *m_setup;
}

void SimulatorHost::lookForChanges()
{
    if (m_machine->refresh())
        setUpVolumes();
    m_registry->tellChanges();
    m_events->tellChanges();
}

void SimulatorHost::lookAgainLater()
{
    m_queue->after(BetweenLooks, [weak = std::weak_ptr(m_self)] {
        if (const auto self = weak.lock()) {
            (*self)->lookForChanges();
            (*self)->lookAgainLater();
        }
    });
}

} // namespace orvana::platform::simulator
