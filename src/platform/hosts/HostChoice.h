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

/// The machine on which a command works.
struct HostChoice
{
    std::optional<std::string> simulatorFile;
    bool demo = false;
    std::optional<std::string> demoFolder; ///< its folder; otherwise in the user's own cache
};

/// Makes the host. It reports changes on `queue`, which is null for a command that does not watch for
/// changes. `desktop` is used only for a simulated machine.
tl::expected<std::unique_ptr<Host>, Refusal> makeHost(const HostChoice &choice, MainQueue *queue,
                                                      Desktop desktop = Desktop::None);

/// Makes the folder for logs that the user named, unless it exists. If it cannot be made, returns a refusal
/// with the reason.
std::optional<Refusal> makeLogFolder(const std::optional<std::string> &named);

/// Returns the file of the simulated machine that `choice` names. Makes the demo machine when it is missing.
tl::expected<std::string, Refusal> simulatorFileOf(const HostChoice &choice);

} // namespace orvana::platform
