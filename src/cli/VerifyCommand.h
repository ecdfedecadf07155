#pragma once

#include "foundation/ExitStatus.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana
{

class PlainMainQueue;

namespace platform
{
class Host;
}

namespace cli
{

class Terminal;

/// The options of `plurimoctl verify`.
struct VerifyCommandOptions
{
    std::vector<std::string> folders; ///< absolute paths
    std::optional<int> enclosure;     ///< its number, as `devices` counts them
    std::vector<std::string> bays;
    std::optional<std::string> manifest; ///< absolute path
    std::optional<std::string> logFolder;
    bool record = false;
    bool json = false;
};

/// Reads disks or folders side by side and compares them with the lists on them. Returns 0 when all are
/// whole, 4 when nothing is wrong but that one has no list, and 1 otherwise.
ExitStatus runVerify(platform::Host &host, PlainMainQueue &queue, Terminal &terminal,
                     const VerifyCommandOptions &options);

} // namespace cli

} // namespace orvana
