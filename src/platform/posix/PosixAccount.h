#pragma once

#include "platform/Account.h"

namespace orvana::platform::posix
{

/// The user of this process, from the user database. If $HOME holds an absolute path, it names the home
/// folder.
class PosixAccount final : public Account
{
public:
    std::string loginName() const override;
    std::string homeFolder() const override;
};

} // namespace orvana::platform::posix
