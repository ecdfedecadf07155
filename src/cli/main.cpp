#include "cli/CancelRequest.h"
#include "cli/CopyCommand.h"
#include "cli/DevicesCommand.h"
#include "cli/HostChoice.h"
#include "cli/LogsCommand.h"
#include "cli/SimulatorCommand.h"
#include "cli/Terminal.h"
#include "foundation/PlainMainQueue.h"

#include <CLI/CLI.hpp>

namespace
{

using namespace orvana;

/// Everything that the user can say.
struct Words
{
    cli::HostChoice machine;
    std::optional<std::string> logFolder;
    cli::CopyOptions copy;
    cli::DevicesOptions devices;
    cli::LogsOptions logs;
    cli::SimulatorOptions simulator;
};

// What every command takes.
void describeCommon(CLI::App &command, Words &words)
{
    command
        .add_option("--simulator", words.machine.simulatorFile, "Work on the simulated machine of this file")
        ->type_name("FILE");
    command.add_flag("--demo", words.machine.demo, "Work on the ready-made demo machine");
    command.add_option("--demo-folder", words.machine.demoFolder, "The same, with its files in this folder")
        ->type_name("FOLDER");
    command.add_option("--log-dir", words.logFolder, "Folder for log and report instead of ~/Documents")
        ->type_name("FOLDER");
}

void describeCopy(CLI::App &copy, cli::CopyOptions &options)
{
    copy.add_option("SOURCE", options.sources, "Files and folders to copy")->required();
    copy.add_option("--to", options.destinations, "Folders that each get a copy of everything")
        ->required()
        ->type_name("FOLDER...");
    copy.add_option("--root", options.root,
                    "Folder whose layout is kept; by default the one that holds all sources")
        ->type_name("FOLDER");
    copy.add_flag("--verify", options.verify, "Read every copy back and compare it with its source");
    copy.add_flag("--json", options.json, "Print one JSON object a line");
}

void describeDevices(CLI::App &devices, cli::DevicesOptions &options)
{
    devices.add_flag("--json", options.json, "Print JSON");
    devices.add_flag("--watch", options.watch, "Go on to print what comes and goes");
}

void describeLogs(CLI::App &logs, cli::LogsOptions &options)
{
    logs.add_option("ACTION", options.action, "list (without one), show, delete or clear")
        ->check(CLI::IsMember({"list", "show", "delete", "clear"}));
    logs.add_option("NAME", options.names, "With show and delete: the logs, as list names them");
    logs.add_flag("--yes", options.yes, "With clear: do it");
    logs.add_flag("--json", options.json, "With list: print JSON");
}

void describeSimulator(CLI::App &simulator, cli::SimulatorOptions &options)
{
    simulator.add_option("LEVER", options.lever, "attach, detach, mount, unmount, rename or show")
        ->required()
        ->check(CLI::IsMember({"attach", "detach", "mount", "unmount", "rename", "show"}));
    simulator.add_option(
        "TARGET", options.target,
        "An enclosure (1), a bay (1/B), a disk (internal/1, usb/1, fireWire/1) or a volume's name");
    simulator.add_option("NEWNAME", options.newName, "With rename");
}

enum class HostCommand { Copy, Devices, Logs };

cli::ExitStatus onHost(const Words &words, cli::Terminal &terminal, HostCommand command)
{
    PlainMainQueue queue;
    const auto host = cli::makeHost(words.machine, words.devices.watch ? &queue : nullptr);
    if (!host) {
        terminal.printError("plurimoctl: " + host.error().reason);
        return host.error().status;
    }
    if (command == HostCommand::Copy)
        return cli::runCopy(**host, terminal, words.copy);
    if (command == HostCommand::Logs)
        return cli::runLogs(**host, terminal, words.logs);
    return cli::runDevices(**host, queue, terminal, words.devices);
}

cli::ExitStatus onSimulator(const Words &words, cli::Terminal &terminal)
{
    const auto file = cli::simulatorFileOf(words.machine);
    if (!file) {
        terminal.printError("plurimoctl: " + file.error().reason);
        return file.error().status;
    }
    return cli::runSimulator(*file, terminal, words.simulator);
}

} // namespace

int main(int argc, char **argv)
{
    cli::CancelRequest::blockSignals();
    CLI::App app("Duplicates disks: one read, many writes, verified.", "plurimoctl");
    app.set_version_flag("--version", "plurimoctl " PLURIMO_VERSION);
    app.require_subcommand(1);
    Words words;
    auto *copy = app.add_subcommand("copy", "Copy files and folders to several folders at once");
    auto *devices = app.add_subcommand("devices", "List enclosures, disks and volumes");
    auto *logs = app.add_subcommand("logs", "List, print and remove the logs of earlier runs");
    auto *simulator = app.add_subcommand("simulator", "Change the simulated machine");
    describeCopy(*copy, words.copy);
    describeDevices(*devices, words.devices);
    describeLogs(*logs, words.logs);
    describeSimulator(*simulator, words.simulator);
    for (auto *command : {copy, devices, logs, simulator})
        describeCommon(*command, words);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? cli::AllDone : cli::WrongUsage;
    }
    words.copy.logFolder = words.logFolder;
    words.logs.logFolder = words.logFolder;
    auto terminal = cli::Terminal::ofProcess();
    if (simulator->parsed())
        return onSimulator(words, terminal);
    const auto onLogs = logs->parsed() ? HostCommand::Logs : HostCommand::Devices;
    return onHost(words, terminal, copy->parsed() ? HostCommand::Copy : onLogs);
}
