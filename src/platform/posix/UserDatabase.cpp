#include "platform/posix/UserDatabase.h"

#include <array>
#include <pwd.h>

namespace orvana::platform::posix
{

namespace
{

// This is enough for any entry of a sane user database. A longer entry counts as missing.
using Buffer = std::array<char, 16384>;

std::optional<User> userOf(const passwd *entry)
{
    if (entry == nullptr)
        return std::nullopt;
    return User{entry->pw_name, entry->pw_dir};
}

} // namespace

std::optional<User> userById(uid_t id)
{
    passwd entry{};
    passwd *found = nullptr;
    Buffer buffer{};
    getpwuid_r(id, &entry, buffer.data(), buffer.size(), &found);
    return userOf(found);
}

std::optional<User> userByName(const std::string &name)
{
    passwd entry{};
    passwd *found = nullptr;
    Buffer buffer{};
    getpwnam_r(name.c_str(), &entry, buffer.data(), buffer.size(), &found);
    return userOf(found);
}

} // namespace orvana::platform::posix
