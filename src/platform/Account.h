#pragma once

#include <string>

namespace orvana::platform
{

/// The person who runs the program.
class Account
{
public:
    virtual ~Account() = default;

    virtual std::string loginName() const = 0;

    /// Absolute path of the home folder, without a trailing slash.
    virtual std::string homeFolder() const = 0;
};

} // namespace orvana::platform
