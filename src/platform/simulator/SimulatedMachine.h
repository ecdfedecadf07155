#pragma once

#include "enclosures/EnclosureSetup.h"
#include "platform/CommandLauncher.h"
#include "platform/simulator/MachineReader.h"
#include "platform/simulator/MachineTree.h"
#include "platform/simulator/SimulatedVolumes.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tl/expected.hpp>

namespace orvana::platform::simulator
{

/// The simulated machine: a file that describes it, and folders that are its volumes.
///
/// The file is the state. A program that changes the machine rewrites the whole file. An edit from outside
/// changes the machine at the next `refresh`. Used on one thread. Several processes may share a file.
class SimulatedMachine
{
public:
    using Outcome = tl::expected<void, std::string>;

    /// Opens the machine of `file`. Its volumes lie in "<file>.volumes". The error names the file, the entry
    /// and the reason.
    static tl::expected<std::unique_ptr<SimulatedMachine>, std::string> open(const std::string &file);

    const Machine &machine() const { return m_machine; }
    const SimulatedVolumes &volumes() const { return m_volumes; }
    const std::string &file() const { return m_file; }
    /// The file's text.
    const std::string &text() const { return m_text; }
    const std::shared_ptr<RegistryNode> &tree() const { return m_tree; }

    /// Reads the file again if it was edited. Returns true when the machine changed. A wrong edit is reported
    /// in the system log, once, and the last good state stays.
    bool refresh();

    /// Returns the listing of mounted volumes, as "/bin/df" prints it.
    std::string diskFree() const;

    /// Returns the mount points of all mounted volumes.
    std::vector<std::string> mountPoints() const;

    /// Returns the nodes of the disks whose volumes hold the paths; see `Places::disksBeneath`.
    std::vector<std::string> disksBeneath(const std::vector<std::string> &paths) const;

    /// The disk utility: what "/usr/sbin/diskutil" does on a real machine.
    void setSparedDisks(std::vector<DiskFingerprint> disks) { m_sparedDisks = std::move(disks); }
    CommandLauncher::Result eraseDisk(const std::string &name, const std::string &device);
    CommandLauncher::Result eject(const std::string &device);
    CommandLauncher::Result mountDisk(const std::string &device);

    // The levers. A target is an enclosure's number ("1"), a bay ("1/B"), or another disk ("internal/1",
    // "usb/1", "fireWire/1"). A volume is named by its label.
    Outcome setAttached(const std::string &target, bool isAttached);
    Outcome setMounted(const std::string &volume, bool isMounted);
    Outcome renameVolume(const std::string &volume, const std::string &newName);

    /// The disks with their ports; see `enclosures::EnclosureSetup`.
    enclosures::PortSnapshot ports() const;
    Outcome addDefinition(const enclosures::Definition &definition);
    Outcome removeDefinition(const std::string &id);

    /// Returns the health of the disk at the device node, as the file says it.
    DiskHealth healthOf(const std::string &device) const
    {
        const auto *disk = diskAt(device);
        return disk ? disk->health : DiskHealth();
    }

private:
    SimulatedMachine(std::string file, MachineFile content, std::string text);

    int numberOf(const std::string &where);
    void apply(MachineFile content);
    bool refreshLocked();
    Outcome
    change(const std::function<void(Json &)> &edit, const std::function<void()> &onceAccepted = [] {});
    void forgetNumbersOfDetached();
    const Disk *diskAt(const std::string &device) const;
    bool isSpared(const Disk &disk, const std::string &device) const;
    bool isInUse(const Disk &disk) const;
    std::optional<CommandLauncher::Result> refusal(const Disk *disk, const std::string &device) const;
    bool fails(const std::string &command, const Disk &disk) const;
    void delay(const std::string &command) const;

    std::string m_file;
    std::string m_text;
    std::string m_rejected;
    std::shared_ptr<Json> m_json;
    Machine m_machine;
    SimulatedVolumes m_volumes;
    std::map<std::string, int> m_numbers;
    std::vector<DiskFingerprint> m_sparedDisks;
    int m_nextNumber = 0;
    std::shared_ptr<RegistryNode> m_tree;
};

} // namespace orvana::platform::simulator
