#pragma once

#include "foundation/Refusal.h"

#include <string>

namespace orvana::cli
{

class Terminal;

struct SimulatorOptions
{
    std::string lever; ///< attach, detach, mount, unmount, rename or show
    std::string target;
    std::string newName;
};

/// `plurimoctl simulator`: moves a lever of the simulated machine in `file`.
ExitStatus runSimulator(const std::string &file, Terminal &terminal, const SimulatorOptions &options);

} // namespace orvana::cli
