#include "platform/posix/PosixAccount.h"

#include "platform/posix/UserDatabase.h"

#include <cstdlib>
#include <unistd.h>

namespace orvana::platform::posix
{

std::string PosixAccount::loginName() const
{
    const auto user = userById(::getuid());
    return user ? user->name : std::to_string(::getuid());
}

std::string PosixAccount::homeFolder() const
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the program never changes its environment.
    if (const char *home = std::getenv("HOME"); home != nullptr && *home == '/')
        return home;
    const auto user = userById(::getuid());
    return user ? user->home : "/";
}

} // namespace orvana::platform::posix
