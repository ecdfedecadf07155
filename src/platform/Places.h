#pragma once

#include <optional>
#include <string>

namespace orvana::platform
{

class Folder;

/// Where the product's own places really lie on this machine.
class Places
{
public:
    virtual ~Places() = default;

    /// The mount point of the one volume whose last path component is `name` ("/Volumes/<name>"); nothing
    /// when there is no such volume or more than one.
    virtual std::optional<std::string> volumePath(const std::string &name) const = 0;

    /// The home folder of the user `login` ("/Users/<login>"); nothing when there is no such user.
    virtual std::optional<std::string> userPath(const std::string &login) const = 0;

    /// True when the open folder is the top of a mounted volume.
    virtual bool isVolumeRoot(const Folder &folder) const = 0;
};

} // namespace orvana::platform
