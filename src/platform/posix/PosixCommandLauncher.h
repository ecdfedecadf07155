#pragma once

#include "platform/CommandLauncher.h"

namespace orvana::platform::posix
{

/// Runs real programs, never by way of a shell.
class PosixCommandLauncher final : public CommandLauncher
{
public:
    Result run(const std::string &path, const std::vector<std::string> &arguments) override;
};

} // namespace orvana::platform::posix
