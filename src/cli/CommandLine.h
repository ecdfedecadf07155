#pragma once

#include "cli/BaysCommand.h"
#include "cli/CopyCommand.h"
#include "cli/DevicesCommand.h"
#include "cli/DiskCommands.h"
#include "cli/DuplicateCommand.h"
#include "cli/LineCommand.h"
#include "cli/LogsCommand.h"
#include "cli/SimulatorCommand.h"
#include "cli/VerifyCommand.h"
#include "platform/hosts/HostOptions.h"

#include <optional>
#include <string>

namespace CLI
{
class App;
}

namespace orvana::cli
{

/// The options of the command line.
struct CommandLineOptions
{
    platform::HostChoice machine;
    std::optional<std::string> logFolder;
    BaysOptions bays;
    CopyOptions copy;
    DevicesOptions devices;
    DuplicateOptions duplicate;
    DiskOptions disks;
    LineOptions line;
    LogsOptions logs;
    SimulatorOptions simulator;
    VerifyCommandOptions verify;
    std::string completedShell;
};

/// Describes all commands and their options to the parser, which fills in `options`.
void describe(CLI::App &app, CommandLineOptions &options);

/// Restores every text as the user typed it, after the words of the command line went through
/// `shelteredWords`. Gives each command the folder of its logs.
void takeLiterally(CommandLineOptions &options);

/// Makes every path absolute. Call it before the working folder changes.
void makeAbsolute(CommandLineOptions &options);

} // namespace orvana::cli
