#include "platform/posix/PosixPlaces.h"

#include "platform/VolumeFiles.h"
#include "platform/posix/UserDatabase.h"

#include <array>
#include <cstdio>
#include <memory>
#include <mntent.h>
#include <set>

namespace orvana::platform::posix
{

namespace
{

std::string lastComponent(const std::string &path)
{
    return path.substr(path.rfind('/') + 1);
}

// Every mount point of the machine, once.
std::set<std::string> mountPoints()
{
    struct EndMountTable
    {
        void operator()(std::FILE *file) const { endmntent(file); }
    };
    const std::unique_ptr<std::FILE, EndMountTable> table(setmntent("/proc/self/mounts", "re"));
    std::set<std::string> points;
    mntent entry{};
    std::array<char, 16384> buffer{};
    while (table && getmntent_r(table.get(), &entry, buffer.data(), static_cast<int>(buffer.size())))
        points.insert(entry.mnt_dir);
    return points;
}

} // namespace

std::optional<std::string> PosixPlaces::volumePath(const std::string &name) const
{
    std::optional<std::string> found;
    for (const auto &point : mountPoints()) {
        if (lastComponent(point) != name)
            continue;
        if (found)
            return std::nullopt;
        found = point;
    }
    return found;
}

std::optional<std::string> PosixPlaces::userPath(const std::string &login) const
{
    const auto user = userByName(login);
    if (!user)
        return std::nullopt;
    return user->home;
}

bool PosixPlaces::isVolumeRoot(const Folder &folder) const
{
    return folder.traits().isMountRoot;
}

} // namespace orvana::platform::posix
