#include "platform/posix/PrivateFolder.h"

#include "foundation/DisplayPath.h"
#include "platform/posix/PosixAccount.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvana::platform
{

namespace
{

std::string ownFolder(const char *variable, const std::string &otherwise)
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the program never changes its environment.
    const char *folder = std::getenv(variable);
    // The rules for these variables say that a relative path is ignored.
    const bool isNamed = folder && folder[0] == '/';
    return (isNamed ? folder : otherwise) + "/orvana-plurimo";
}

} // namespace

tl::expected<void, std::string> makePrivateFolder(const std::string &path)
{
    const auto refuse = [&](const std::string &why) {
        return tl::unexpected(displayPath(path) + ": " + why);
    };
    struct stat status{};
    if (::lstat(path.c_str(), &status) != 0) {
        std::error_code error;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
        if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
            return refuse("cannot be made: " + std::generic_category().message(errno));
        if (::lstat(path.c_str(), &status) != 0)
            return refuse(std::generic_category().message(errno));
    }
    if (S_ISLNK(status.st_mode))
        return refuse("is a link, and is not followed");
    if (!S_ISDIR(status.st_mode))
        return refuse("is not a folder");
    if (status.st_uid != ::geteuid())
        return refuse("belongs to another user");
    if ((status.st_mode & 022U) != 0)
        return refuse("can be written to by other users");
    return {};
}

std::string cacheFolder()
{
    return ownFolder("XDG_CACHE_HOME", posix::PosixAccount().homeFolder() + "/.cache");
}

std::string stateFolder(const std::string &home)
{
    return ownFolder("XDG_STATE_HOME", home + "/.local/state");
}

} // namespace orvana::platform
