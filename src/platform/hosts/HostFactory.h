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

/// The machine that the program runs on. What comes and goes is told on `queue`, which must outlive the host;
/// without one nothing is watched.
std::unique_ptr<Host> makeMachineHost(MainQueue *queue = nullptr);

/// Whose desktop a simulated machine has: with the user's, its pages open and its notices show.
enum class Desktop { None, Users };

/// The simulated machine of a file. Edits of the file, and what other programs do to the machine, are seen
/// on `queue`, which must outlive the host; without one nothing is watched. The error names file, entry and
/// reason.
tl::expected<std::unique_ptr<Host>, std::string> makeSimulatorHost(const std::string &file, MainQueue *queue,
                                                                   Desktop desktop = Desktop::None);

/// Writes the ready-made demo machine into `folder`, unless it is there already, and returns its file.
/// Refused when others than this user can write to the folder.
tl::expected<std::string, std::string> prepareDemo(const std::string &folder);

/// Moves a lever of the simulated machine in `file`: "attach", "detach" (a device), "mount", "unmount" (a
/// volume) or "rename" (a volume to `newName`). The error says why the machine stays as it is.
tl::expected<void, std::string> moveSimulatorLever(const std::string &file, const std::string &lever,
                                                   const std::string &target, const std::string &newName);

/// The description of the simulated machine as it is now.
tl::expected<std::string, std::string> simulatorText(const std::string &file);

} // namespace orvana::platform
