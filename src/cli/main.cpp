#include "cli/BaysCommand.h"
#include "cli/CopyCommand.h"
#include "cli/DevicesCommand.h"
#include "cli/DiskCommands.h"
#include "cli/DuplicateCommand.h"
#include "cli/LogsCommand.h"
#include "cli/SimulatorCommand.h"
#include "cli/Terminal.h"
#include "cli/VerifyCommand.h"
#include "foundation/LiteralWords.h"
#include "foundation/PlainMainQueue.h"
#include "platform/Host.h"
#include "platform/hosts/HostOptions.h"
#include "platform/posix/CancelRequest.h"
#include "platform/posix/ProcessStart.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace
{

using namespace orvana;

/// The options of the command line.
struct CommandLineOptions
{
    platform::HostChoice machine;
    std::optional<std::string> logFolder;
    cli::BaysOptions bays;
    cli::CopyOptions copy;
    cli::DevicesOptions devices;
    cli::DuplicateOptions duplicate;
    cli::DiskOptions disks;
    cli::LogsOptions logs;
    cli::SimulatorOptions simulator;
    cli::VerifyCommandOptions verify;
};

// Describes the options that every command has.
void describeCommon(CLI::App &command, CommandLineOptions &options)
{
    platform::describeHost(command, options.machine);
    command.add_option("--log-dir", options.logFolder, "Folder for log and report instead of ~/Documents")
        ->type_name("FOLDER");
}

enum class CopiesTo { Disks, Folders };

void describeSettings(CLI::App &command, RunSettings &settings, CopiesTo destinations)
{
    for (const auto &setting : AllRunSettings) {
        if (destinations == CopiesTo::Disks || !setting.isForDisks)
            command.add_flag(setting.flag, setting.of(settings), setting.help);
    }
    for (const auto &setting : AllListedRunSettings)
        command
            .add_option_function<std::string>(
                setting.flag, [&](const std::string &value) { setting.set(settings, value); }, setting.help)
            ->type_name(setting.typeName)
            ->check(CLI::IsMember(setting.values()));
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
    describeSettings(copy, options.settings, CopiesTo::Folders);
    copy.add_flag("--json", options.json, "Print one JSON object a line");
}

void describeDuplicate(CLI::App &duplicate, cli::DuplicateOptions &options)
{
    duplicate.add_option("--enclosure", options.enclosure,
                         "Number of the enclosure, as \"devices\" counts them");
    duplicate.add_option("--source", options.source, "Name of the source; by default the volume in bay A")
        ->type_name("NAME");
    duplicate
        .add_option("--select", options.selection,
                    "File or folder of the source to copy; by default all of it. May be given several times")
        ->type_name("PATH")
        ->allow_extra_args(false);
    duplicate.add_flag("--erase", options.erase, "Erase the destination disks first");
    duplicate.add_option("--name", options.names, "New name of an erased disk: B=COPY1")
        ->type_name("BAY=NAME")
        ->allow_extra_args(false);
    duplicate.add_flag("--verify", options.verify, "Read every copy back and compare it with its source");
    describeSettings(duplicate, options.settings, CopiesTo::Disks);
    auto *job =
        duplicate.add_option("--job", options.jobFile, "Do what this job file says")->type_name("FILE");
    for (auto *option : duplicate.get_options()) {
        const auto name = option->get_name();
        if (option != job && name != "--enclosure" && !option->get_lnames().empty() && name != "--help")
            job->excludes(option);
    }
    duplicate.add_flag("--yes", options.yes, "Do not ask");
    duplicate.add_flag("--json", options.json, "Print one JSON object a line");
}

void describeDisks(CLI::App &command, cli::DiskOptions &options)
{
    command
        .add_option("--enclosure", options.enclosure, "Number of the enclosure, as \"devices\" counts them")
        ->required();
    command.add_option("--bay", options.bays, "Bay from A to D; by default B, C and D")
        ->type_name("BAY")
        ->allow_extra_args(false);
    command.add_flag("--yes", options.yes, "Do not ask");
}

void describeMount(CLI::App &mount, cli::DiskOptions &options)
{
    mount.add_option("--enclosure", options.enclosure, "Number of the enclosure, as \"devices\" counts them");
    mount.add_option("--bay", options.bays, "Bay from A to D; by default all of them")
        ->type_name("BAY")
        ->allow_extra_args(false);
}

void describeErase(CLI::App &erase, cli::DiskOptions &options)
{
    describeDisks(erase, options);
    erase.add_option("--name", options.names, "New name of an erased disk: B=COPY1; by default the old one")
        ->type_name("BAY=NAME")
        ->allow_extra_args(false);
}

void describeDevices(CLI::App &devices, cli::DevicesOptions &options)
{
    devices.add_flag("--json", options.json, "Print JSON");
    devices.add_flag("--watch", options.watch, "Go on to print what comes and goes");
}

void describeBays(CLI::App &bays, cli::BaysOptions &options)
{
    bays.add_option("ACTION", options.action, "list (without one), learn, check or forget")
        ->check(CLI::IsMember({"list", "learn", "check", "forget"}));
    bays.add_option("NAME", options.name,
                    "With learn and forget: the enclosure. With check: a file, to check nothing else");
    bays.add_option("--bays", options.bays, "With learn: number of bays to ask for; by default 4")
        ->check(CLI::Range(2, 4));
    bays.add_flag("--json", options.json, "With list: print JSON");
}

void describeLogs(CLI::App &logs, cli::LogsOptions &options)
{
    logs.add_option("ACTION", options.action, "list (without one), show, delete or clear")
        ->check(CLI::IsMember({"list", "show", "delete", "clear"}));
    logs.add_option("NAME", options.names, "With show and delete: the logs, as list names them");
    logs.add_flag("--yes", options.yes, "With clear: do it");
    logs.add_flag("--json", options.json, "With list: print JSON");
}

void describeVerify(CLI::App &verify, cli::VerifyCommandOptions &options)
{
    verify.add_option("FOLDER", options.folders, "Disks or folders to verify, side by side")
        ->type_name("FOLDER...");
    verify.add_option("--enclosure", options.enclosure,
                      "Number of the enclosure whose disks to verify, as \"devices\" counts them");
    verify.add_option("--bay", options.bays, "Bay from A to D; by default B, C and D")
        ->type_name("BAY")
        ->allow_extra_args(false);
    verify.add_option("--manifest", options.manifest, "List of files to use instead of those on the disks")
        ->type_name("FILE");
    verify.add_flag("--record", options.record,
                    "Append the result to the history on each disk, as its next generation");
    verify.add_flag("--json", options.json, "Print one JSON object a line");
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

void takeLiterally(std::string &text)
{
    text = literal(text);
}

void takeLiterally(std::optional<std::string> &text)
{
    if (text)
        takeLiterally(*text);
}

void takeLiterally(std::vector<std::string> &texts)
{
    for (auto &text : texts)
        takeLiterally(text);
}

// Restores every text as the user typed it.
void takeLiterally(CommandLineOptions &options)
{
    for (auto *text :
         {&options.machine.simulatorFile, &options.machine.demoFolder, &options.logFolder, &options.copy.root,
          &options.duplicate.source, &options.duplicate.jobFile, &options.verify.manifest})
        takeLiterally(*text);
    for (auto *texts : {&options.copy.sources, &options.copy.destinations, &options.duplicate.selection,
                        &options.duplicate.names, &options.disks.bays, &options.disks.names,
                        &options.logs.names, &options.verify.folders, &options.verify.bays})
        takeLiterally(*texts);
    for (auto *text : {&options.simulator.target, &options.simulator.newName, &options.bays.name})
        takeLiterally(*text);
}

// The working folder changes after this, so every path must be absolute by then.
void makeAbsolute(CommandLineOptions &options)
{
    const auto makePath = [](std::string &path) { path = cli::cleanPath(path); };
    for (auto *path : {&options.machine.simulatorFile, &options.machine.demoFolder, &options.logFolder,
                       &options.copy.logFolder, &options.duplicate.logFolder, &options.disks.logFolder,
                       &options.logs.logFolder, &options.verify.logFolder, &options.copy.root,
                       &options.duplicate.jobFile, &options.verify.manifest}) {
        if (*path)
            makePath(**path);
    }
    for (auto *paths : {&options.copy.sources, &options.copy.destinations, &options.verify.folders})
        std::for_each(paths->begin(), paths->end(), makePath);
    if (options.bays.action == "check" && !options.bays.name.empty())
        makePath(options.bays.name);
}

ExitStatus onHost(const CommandLineOptions &options, cli::Terminal &terminal, const std::string &command)
{
    PlainMainQueue queue;
    const bool watches =
        command == "devices" ? options.devices.watch : command != "copy" && command != "logs";
    const bool writesLog =
        command != "devices" && command != "logs" && command != "bays" && command != "verify";
    if (const auto refusal = writesLog ? platform::makeLogFolder(options.logFolder) : std::nullopt) {
        terminal.printError("plurimoctl: " + refusal->reason);
        return refusal->status;
    }
    const auto host = platform::makeHost(options.machine, watches ? &queue : nullptr);
    if (!host) {
        terminal.printError("plurimoctl: " + host.error().reason);
        return host.error().status;
    }
    if (command == "copy")
        return cli::runCopy(**host, terminal, options.copy);
    if (command == "duplicate")
        return cli::runDuplicate(**host, queue, terminal, options.duplicate);
    if (command == "erase")
        return cli::runErase(**host, queue, terminal, options.disks);
    if (command == "mount")
        return cli::runMount(**host, queue, terminal, options.disks);
    if (command == "eject")
        return cli::runEject(**host, queue, terminal, options.disks);
    if (command == "verify")
        return cli::runVerify(**host, queue, terminal, options.verify);
    if (command == "bays")
        return cli::runBays((*host)->enclosureSetup(), queue, terminal, options.bays);
    if (command == "logs")
        return cli::runLogs(**host, terminal, options.logs);
    return cli::runDevices(**host, queue, terminal, options.devices);
}

ExitStatus onSimulator(const CommandLineOptions &options, cli::Terminal &terminal)
{
    const auto file = platform::simulatorFileOf(options.machine);
    if (!file) {
        terminal.printError("plurimoctl: " + file.error().reason);
        return file.error().status;
    }
    return cli::runSimulator(*file, terminal, options.simulator);
}

int runMain(int argc, char **argv)
{
    platform::posix::CancelRequest::blockSignals();
    platform::posix::CancelRequest::endWhileNobodyWaits();
    platform::posix::openStandardFiles();
    CLI::App app("Duplicates disks: one read, many writes, verified.", "plurimoctl");
    app.set_version_flag("--version", "plurimoctl " PLURIMO_VERSION);
    app.require_subcommand(1);
    CommandLineOptions options;
    auto *copy = app.add_subcommand("copy", "Copy files and folders to several folders at once");
    auto *duplicate = app.add_subcommand("duplicate", "Copy a source onto the disks in an enclosure's bays");
    auto *erase = app.add_subcommand("erase", "Give the disks in an enclosure's bays a new file system");
    auto *eject = app.add_subcommand("eject", "Eject the disks in an enclosure's bays");
    auto *mount = app.add_subcommand("mount", "Mount what is in an enclosure's bays and not mounted");
    auto *verify =
        app.add_subcommand("verify", "Compare disks with the lists of their files, without the source");
    auto *bays = app.add_subcommand("bays", "Set up enclosures: which ports are the bays");
    auto *devices = app.add_subcommand("devices", "List enclosures, disks and volumes");
    auto *logs = app.add_subcommand("logs", "List, print and remove the logs of earlier runs");
    auto *simulator = app.add_subcommand("simulator", "Change the simulated machine");
    describeCopy(*copy, options.copy);
    describeDuplicate(*duplicate, options.duplicate);
    describeErase(*erase, options.disks);
    describeVerify(*verify, options.verify);
    describeDisks(*eject, options.disks);
    describeMount(*mount, options.disks);
    describeBays(*bays, options.bays);
    describeDevices(*devices, options.devices);
    describeLogs(*logs, options.logs);
    describeSimulator(*simulator, options.simulator);
    for (auto *command : {copy, duplicate, erase, eject, mount, verify, bays, devices, logs, simulator})
        describeCommon(*command, options);
    try {
        auto typed = shelteredWords(argc, argv);
        std::reverse(typed.begin(), typed.end()); // the parser takes them from the end
        app.parse(std::move(typed));
    } catch (const CLI::ParseError &error) {
        std::ostringstream out;
        std::ostringstream complaint;
        const auto status = app.exit(error, out, complaint);
        std::fputs(out.str().c_str(), stdout);
        std::fputs(shownLiteral(complaint.str()).c_str(), stderr);
        return status == 0 ? AllDone : WrongUsage;
    }
    takeLiterally(options);
    options.copy.logFolder = options.duplicate.logFolder = options.disks.logFolder = options.logFolder;
    options.logs.logFolder = options.verify.logFolder = options.logFolder;
    makeAbsolute(options);
    platform::posix::enterEmptyFolder();
    auto terminal = cli::Terminal::ofProcess();
    if (simulator->parsed())
        return onSimulator(options, terminal);
    return onHost(options, terminal, app.get_subcommands().front()->get_name());
}

} // namespace

int main(int argc, char **argv)
{
    try {
        return runMain(argc, argv);
    } catch (const std::exception &error) {
        // One cause is that there is no memory left. What was written stays, but the status is not success.
        std::fprintf(stderr, "plurimoctl: %s\n", error.what());
        return SomethingFailed;
    }
}
