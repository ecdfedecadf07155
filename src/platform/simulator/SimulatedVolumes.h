#pragma once

#include "platform/simulator/ImageDisk.h"
#include "platform/simulator/MachineTree.h"

#include <map>
#include <optional>
#include <string>

namespace orvana::platform::simulator
{

/// The simulated volumes as real folders below one root: "Volumes/<name>" for what is mounted, "Store/<key>"
/// for the rest, "Users/<login>" for the user's home on the start-up volume.
class SimulatedVolumes
{
public:
    /// `root` is made when it is missing.
    explicit SimulatedVolumes(std::string root);

    /// Makes the folders agree with the machine, which no other program may change meanwhile: mounts,
    /// unmounts, renames, and fills volumes that are new. A name that is taken gets " 1" behind it, or the
    /// next number.
    void agreeWith(const Machine &machine);

    /// Removes a volume of the disk with all it holds.
    void remove(const Disk &disk, const Volume &volume);

    /// Where the volume is mounted: "/" for the start-up volume; nothing when it is not.
    std::optional<std::string> mountPoint(const Volume &volume) const;

    /// Size of the volume and what is free of it, in bytes. A volume on an image has what its file system
    /// says.
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
    std::map<std::string, std::string> m_mounted; // name of the folder under Volumes, by the volume's key
};

} // namespace orvana::platform::simulator
