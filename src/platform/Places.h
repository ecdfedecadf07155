#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orvana::platform
{

class Folder;

/// Where the product's own places really lie on this machine.
class Places
{
public:
    virtual ~Places() = default;

    /// The home folder of the user `login` ("/Users/<login>"); nothing when there is no such user.
    virtual std::optional<std::string> userPath(const std::string &login) const = 0;

    /// True when the open folder is the top of a mounted volume.
    virtual bool isVolumeRoot(const Folder &folder) const = 0;

    /// The whole disks that hold the file systems at these paths, and every file system that is mounted below
    /// one of them: through volume groups, encryption, pools, layers and images. Links are followed. Each
    /// disk is named by the node that the registry gives it, "/dev/disk3". Paths on no disk of the machine,
    /// and paths that do not exist, add nothing. Main thread only.
    virtual std::vector<std::string> disksBeneath(const std::vector<std::string> &paths) const = 0;
};

} // namespace orvana::platform
