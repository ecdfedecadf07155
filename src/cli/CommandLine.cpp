#include "cli/CommandLine.h"

#include "cli/Completion.h"
#include "foundation/LiteralWords.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace orvana::cli
{

namespace
{
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

void describeCopy(CLI::App &copy, CopyOptions &options)
{
    copy.add_option("SOURCE", options.sources, "Files and folders to copy")->required()->type_name("FILE");
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

void describeDuplicate(CLI::App &duplicate, DuplicateOptions &options)
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
    auto *insist = duplicate
                       .add_option("--insist", options.insisted,
                                   "Use the disk with this serial number although it calls itself failing")
                       ->type_name("SERIAL")
                       ->allow_extra_args(false);
    auto *job =
        duplicate.add_option("--job", options.jobFile, "Do what this job file says")->type_name("FILE");
    for (auto *option : duplicate.get_options()) {
        const auto name = option->get_name();
        if (option != job && option != insist && name != "--enclosure" && !option->get_lnames().empty() &&
            name != "--help")
            job->excludes(option);
    }
    duplicate.add_flag("--yes", options.yes, "Do not ask");
    duplicate.add_flag("--json", options.json, "Print one JSON object a line");
}

void describeDisks(CLI::App &command, DiskOptions &options)
{
    command
        .add_option("--enclosure", options.enclosure, "Number of the enclosure, as \"devices\" counts them")
        ->required();
    command.add_option("--bay", options.bays, "Bay from A to D; by default B, C and D")
        ->type_name("BAY")
        ->allow_extra_args(false);
    command.add_flag("--yes", options.yes, "Do not ask");
}

void describeMount(CLI::App &mount, DiskOptions &options)
{
    mount.add_option("--enclosure", options.enclosure, "Number of the enclosure, as \"devices\" counts them");
    mount.add_option("--bay", options.bays, "Bay from A to D; by default all of them")
        ->type_name("BAY")
        ->allow_extra_args(false);
}

void describeErase(CLI::App &erase, DiskOptions &options)
{
    describeDisks(erase, options);
    erase.add_option("--name", options.names, "New name of an erased disk: B=COPY1; by default the old one")
        ->type_name("BAY=NAME")
        ->allow_extra_args(false);
}

void describeDevices(CLI::App &devices, DevicesOptions &options)
{
    devices.add_flag("--json", options.json, "Print JSON");
    devices.add_flag("--health", options.health, "Ask each disk how it is");
    devices.add_flag("--watch", options.watch, "Go on to print what comes and goes");
}

void describeBays(CLI::App &bays, BaysOptions &options)
{
    bays.add_option("ACTION", options.action, "list (without one), learn, check or forget")
        ->check(CLI::IsMember({"list", "learn", "check", "forget"}));
    bays.add_option("NAME", options.name,
                    "With learn and forget: the enclosure. With check: a file, to check nothing else");
    bays.add_option("--bays", options.bays, "With learn: number of bays to ask for; by default 4")
        ->check(CLI::Range(2, 4));
    bays.add_flag("--json", options.json, "With list: print JSON");
}

void describeLine(CLI::App &line, LineOptions &options)
{
    line.add_option("ACTION", options.action, "start, resume, status (without one), pause, end or collect")
        ->check(CLI::IsMember({"start", "resume", "status", "pause", "end", "collect"}));
    line.add_option(
            "WORD", options.words,
            "With start: the job file. With collect: ledgers. Otherwise: the line, as status names it")
        ->type_name("FILE");
    line.add_option("--count", options.count,
                    "With start: number of disks to make instead of the job's wanted number")
        ->check(CLI::Range(1, 1'000'000));
    line.add_option("--title", options.title, "With start: what people call the line")->type_name("TEXT");
    line.add_option("--names", options.pattern,
                    "With start: pattern of the disks' new names, with {n:03}, {serial}, {bay} and {date}")
        ->type_name("PATTERN");
    line.add_option("--certificates", options.certificates,
                    "With start: folder of the certificates instead of one in the line's own folder")
        ->type_name("FOLDER");
    line.add_flag("--without-serial", options.withoutSerial,
                  "With start: take disks without a serial number as well");
    line.add_option("--arm", options.arm, "With start and resume: bays that are armed; without it none")
        ->type_name("BAY,...");
    line.add_option("--consent", options.consent,
                    "With start and resume: the words \"erase whatever comes\", to be asked about no content")
        ->type_name("WORDS");
    line.add_option("--enclosure", options.enclosure, "Number of the enclosure, as \"devices\" counts them");
    line.add_flag("--json", options.json, "Print one JSON object a line");
}

void describeLogs(CLI::App &logs, LogsOptions &options)
{
    logs.add_option("ACTION", options.action, "list (without one), show, delete or clear")
        ->check(CLI::IsMember({"list", "show", "delete", "clear"}));
    logs.add_option("NAME", options.names, "With show and delete: the logs, as list names them");
    logs.add_flag("--yes", options.yes, "With clear: do it");
    logs.add_flag("--json", options.json, "With list: print JSON");
}

void describeVerify(CLI::App &verify, VerifyCommandOptions &options)
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

void describeSimulator(CLI::App &simulator, SimulatorOptions &options)
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

} // namespace

void describe(CLI::App &app, CommandLineOptions &options)
{
    auto *copy = app.add_subcommand("copy", "Copy files and folders to several folders at once");
    auto *duplicate = app.add_subcommand("duplicate", "Copy a source onto the disks in an enclosure's bays");
    auto *erase = app.add_subcommand("erase", "Give the disks in an enclosure's bays a new file system");
    auto *eject = app.add_subcommand("eject", "Eject the disks in an enclosure's bays");
    auto *mount = app.add_subcommand("mount", "Mount what is in an enclosure's bays and not mounted");
    auto *verify =
        app.add_subcommand("verify", "Compare disks with the lists of their files, without the source");
    auto *line =
        app.add_subcommand("line", "Copy the same job onto disk after disk, as they come into armed bays");
    auto *bays = app.add_subcommand("bays", "Set up enclosures: which ports are the bays");
    auto *devices = app.add_subcommand("devices", "List enclosures, disks and volumes");
    auto *logs = app.add_subcommand("logs", "List, print and remove the logs of earlier runs");
    auto *simulator = app.add_subcommand("simulator", "Change the simulated machine");
    auto *completion =
        app.add_subcommand("completion", "Print a script that completes these commands in a shell");
    describeCopy(*copy, options.copy);
    describeDuplicate(*duplicate, options.duplicate);
    describeErase(*erase, options.disks);
    describeVerify(*verify, options.verify);
    describeDisks(*eject, options.disks);
    describeMount(*mount, options.disks);
    describeBays(*bays, options.bays);
    describeDevices(*devices, options.devices);
    describeLine(*line, options.line);
    describeLogs(*logs, options.logs);
    describeSimulator(*simulator, options.simulator);
    completion->add_option("SHELL", options.completedShell, "bash, zsh or fish")
        ->required()
        ->check(CLI::IsMember(CompletedShells));
    for (auto *command : {copy, duplicate, erase, eject, mount, verify, line, bays, devices, logs, simulator})
        describeCommon(*command, options);
}

void takeLiterally(CommandLineOptions &options)
{
    for (auto *text : {&options.machine.simulatorFile, &options.machine.demoFolder, &options.logFolder,
                       &options.copy.root, &options.duplicate.source, &options.duplicate.jobFile,
                       &options.verify.manifest, &options.line.title, &options.line.pattern,
                       &options.line.certificates, &options.line.arm, &options.line.consent})
        takeLiterally(*text);
    for (auto *texts :
         {&options.copy.sources, &options.copy.destinations, &options.duplicate.selection,
          &options.duplicate.names, &options.duplicate.insisted, &options.disks.bays, &options.disks.names,
          &options.logs.names, &options.verify.folders, &options.verify.bays, &options.line.words})
        takeLiterally(*texts);
    for (auto *text : {&options.simulator.target, &options.simulator.newName, &options.bays.name})
        takeLiterally(*text);
    for (auto *folder : {&options.copy.logFolder, &options.duplicate.logFolder, &options.disks.logFolder,
                         &options.logs.logFolder, &options.verify.logFolder, &options.line.logFolder})
        *folder = options.logFolder;
}

void makeAbsolute(CommandLineOptions &options)
{
    const auto makePath = [](std::string &path) { path = cleanPath(path); };
    for (auto *path :
         {&options.machine.simulatorFile, &options.machine.demoFolder, &options.logFolder,
          &options.copy.logFolder, &options.duplicate.logFolder, &options.disks.logFolder,
          &options.logs.logFolder, &options.verify.logFolder, &options.line.logFolder, &options.copy.root,
          &options.duplicate.jobFile, &options.verify.manifest, &options.line.certificates}) {
        if (*path)
            makePath(**path);
    }
    for (auto *paths : {&options.copy.sources, &options.copy.destinations, &options.verify.folders})
        std::for_each(paths->begin(), paths->end(), makePath);
    if (options.line.action == "start" || options.line.action == "collect")
        std::for_each(options.line.words.begin(), options.line.words.end(), makePath);
    if (options.bays.action == "check" && !options.bays.name.empty())
        makePath(options.bays.name);
}

} // namespace orvana::cli
