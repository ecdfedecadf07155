#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orvana::platform
{

class Folder;

/// Finds where the product's own places really lie on this machine.
class Places
{
public:
    virtual ~Places() = default;

    /// Returns the home folder of the user `login` ("/Users/<login>"), or nullopt when there is no such user.
    virtual std::optional<std::string> userPath(const std::string &login) const = 0;

    /// True when the open folder is the top of a mounted volume.
    virtual bool isVolumeRoot(const Folder &folder) const = 0;

    /// Returns the whole disks that hold the file systems at these paths and the file systems that are
    /// mounted below these paths. Looks through volume groups, encryption, pools, layers and images. Follows
    /// links. Names each disk by the node that the registry gives it, "/dev/disk3". A path that does not
    /// exist, or that lies on no disk of the machine, adds no disk. Main thread only.
    virtual std::vector<std::string> disksBeneath(const std::vector<std::string> &paths) const = 0;
};

} // namespace orvana::platform
