#pragma once

#include "platform/DiskFingerprint.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana::platform
{

/// Runs the system's tools.
class CommandLauncher
{
public:
    virtual ~CommandLauncher() = default;

    struct Result
    {
        std::string output;        ///< standard output, as unchanged bytes
        std::optional<int> status; ///< exit status; nullopt when the program could not be started
    };

    /// Runs the program at `path`, collects its output and waits for its end. A program that cannot be
    /// started gives no output and a line in the system log. Blocks the calling thread.
    virtual Result run(const std::string &path, const std::vector<std::string> &arguments) = 0;

    /// From now on the disk utility changes no disk that may be one of these, whatever command it gets.
    /// Replaces the disks of the last call.
    virtual void setSparedDisks(std::vector<DiskFingerprint> disks) = 0;
};

} // namespace orvana::platform
