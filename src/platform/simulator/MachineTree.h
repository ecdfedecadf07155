#pragma once

#include "platform/RegistryTree.h"
#include "platform/simulator/Machine.h"

#include <functional>
#include <string>
#include <vector>

namespace orvana::platform::simulator
{

/// Returns the number of a disk's device node ("disk3") for the entry's place in the file.
using DiskNumbers = std::function<int(const std::string &where)>;

/// Builds the hardware registry of the attached devices. Classes, names, paths and properties are like those
/// of a real registry.
std::shared_ptr<RegistryNode> makeTree(const Machine &machine, const DiskNumbers &numbers);

/// A mounted volume and its device node.
struct MountedVolume
{
    const Disk *disk;
    const Volume *volume;
    std::string device; ///< "/dev/disk3s1"
};

/// Returns the mounted volumes of all attached disks. They point into `machine`.
std::vector<MountedVolume> mountedVolumes(const Machine &machine, const DiskNumbers &numbers);

} // namespace orvana::platform::simulator
