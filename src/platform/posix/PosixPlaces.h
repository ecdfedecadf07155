#pragma once

#include "platform/Places.h"

namespace orvana::platform::posix
{

/// Places from the mount table and the user database.
class PosixPlaces final : public Places
{
public:
    std::optional<std::string> volumePath(const std::string &name) const override;
    std::optional<std::string> userPath(const std::string &login) const override;
    bool isVolumeRoot(const Folder &folder) const override;
};

} // namespace orvana::platform::posix
