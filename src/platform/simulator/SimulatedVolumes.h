#pragma once

#include "platform/simulator/ImageDisk.h"
#include "platform/simulator/MachineTree.h"
#include "platform/simulator/UsedSpace.h"

#include <map>
#include <optional>
#include <string>

namespace orvana::platform::simulator
{

/// The simulated volumes as real folders below one root: "Volumes/<name>" for mounted volumes, "Store/<key>"
/// for all others, "Users/<login>" for the user's home on the start-up volume.
class SimulatedVolumes
{
public:
    /// `root` is made when it is missing.
    explicit SimulatedVolumes(std::string root);

    /// Makes the folders agree with the machine: mounts, unmounts and renames volumes, and fills new volumes.
    /// No other program may change the machine meanwhile. If a name is taken, " 1" or the next free number is
    /// added to it.
    void agreeWith(const Machine &machine);

    /// Removes a volume of the disk with all its content.
    void remove(const Disk &disk, const Volume &volume);

    /// Returns where the volume is mounted: "/" for the start-up volume, and nullopt when the volume is not
    /// mounted.
    std::optional<std::string> mountPoint(const Volume &volume) const;

    /// Size and free space of the volume, in bytes. For a mounted volume on an image they come from its file
    /// system.
    struct Space
    {
        std::int64_t capacity;
        std::int64_t free;
    };
    Space space(const Machine &machine, const Disk &disk, const Volume &volume) const;

    std::string homeFolder(const std::string &login) const { return m_root + "/Users/" + login; }
    const std::string &root() const { return m_root; }

private:
    void readMounted();
    std::string placeOf(const Volume &volume) const;
    std::string freeName(const std::string &wanted) const;
    std::optional<ImageDisk> imageOf(const Disk &disk) const;
    void mount(const Disk &disk, const Volume &volume);
    void unmount(const Disk &disk, const Volume &volume);
    void prepare(const Machine &machine, const Volume &volume);

    std::string m_root;
    mutable UsedSpace m_used;
    std::map<std::string, std::string> m_mounted; // name of the folder under Volumes, by the volume's key
};

} // namespace orvana::platform::simulator
