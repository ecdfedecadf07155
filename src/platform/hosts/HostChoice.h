#pragma once

#include "foundation/Refusal.h"
#include "platform/hosts/HostFactory.h"

#include <memory>
#include <optional>
#include <string>
#include <tl/expected.hpp>

namespace orvana
{
class MainQueue;
}

namespace orvana::platform
{

/// On which machine a command works.
struct HostChoice
{
    std::optional<std::string> simulatorFile;
    bool demo = false;
    std::optional<std::string> demoFolder; ///< instead of one in the user's own cache
};

/// Makes the host; `queue` is where it tells changes, if the command watches for them. `desktop` is for a
/// simulated machine.
tl::expected<std::unique_ptr<Host>, Refusal> makeHost(const HostChoice &choice, MainQueue *queue,
                                                      Desktop desktop = Desktop::None);

/// Makes the folder for logs that the user named, if it is not there yet; the refusal says why it cannot be.
std::optional<Refusal> makeLogFolder(const std::optional<std::string> &named);

/// The file of the simulated machine that is meant; the demo machine is made when it is missing.
tl::expected<std::string, Refusal> simulatorFileOf(const HostChoice &choice);

} // namespace orvana::platform
