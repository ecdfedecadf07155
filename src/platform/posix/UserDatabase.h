#pragma once

#include <optional>
#include <string>
#include <sys/types.h>

namespace orvana::platform::posix
{

struct User
{
    std::string name;
    std::string home;
};

std::optional<User> userById(uid_t id);
std::optional<User> userByName(const std::string &name);

} // namespace orvana::platform::posix
