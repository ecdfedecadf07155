#pragma once

#include "platform/Host.h"

#include <memory>
#include <string>
#include <tl/expected.hpp>

namespace orvana
{
class MainQueue;
}

namespace orvana::platform
{

/// Makes the host for the machine that the program runs on. Devices and volumes that come or go are reported
/// on `queue`, which must outlive the host. Without a queue nothing is watched.
std::unique_ptr<Host> makeMachineHost(MainQueue *queue = nullptr);

/// The desktop of a simulated machine: none, or the user's own, where pages open and notices show.
enum class Desktop { None, Users };

/// Makes the host for the simulated machine in `file`. Edits of the file, and changes that other programs
/// make to the machine, are reported on `queue`, which must outlive the host. Without a queue nothing is
/// watched. The error names the file, the entry and the reason.
tl::expected<std::unique_ptr<Host>, std::string> makeSimulatorHost(const std::string &file, MainQueue *queue,
                                                                   Desktop desktop = Desktop::None);

/// Writes the ready-made demo machine into `folder`, unless it is there already, and returns its file. Fails
/// when other users can write to the folder.
tl::expected<std::string, std::string> prepareDemo(const std::string &folder);

/// Moves a lever of the simulated machine in `file`: "attach" or "detach" a device, "mount" or "unmount" a
/// volume, or "rename" a volume to `newName`. The error gives the reason why the machine stays as it is.
tl::expected<void, std::string> moveSimulatorLever(const std::string &file, const std::string &lever,
                                                   const std::string &target, const std::string &newName);

/// Returns the description of the simulated machine as it is now.
tl::expected<std::string, std::string> simulatorText(const std::string &file);

} // namespace orvana::platform
