#pragma once

#include "platform/hosts/HostChoice.h"

#include <CLI/CLI.hpp>

namespace orvana::platform
{

/// Adds the options that select the machine. They are the same for every program.
inline void describeHost(CLI::App &app, HostChoice &choice)
{
    app.add_option("--simulator", choice.simulatorFile, "Work on the simulated machine of this file")
        ->type_name("FILE");
    app.add_flag("--demo", choice.demo, "Work on the ready-made demo machine");
    app.add_option("--demo-folder", choice.demoFolder, "The same, with its files in this folder")
        ->type_name("FOLDER");
}

} // namespace orvana::platform
