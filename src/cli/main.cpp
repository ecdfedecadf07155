#include "cli/CommandLine.h"
#include "cli/Completion.h"
#include "cli/Terminal.h"
#include "foundation/LiteralWords.h"
#include "foundation/PlainMainQueue.h"
#include "platform/Host.h"
#include "platform/posix/CancelRequest.h"
#include "platform/posix/ProcessStart.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace
{

using namespace orvana;

ExitStatus onHost(const cli::CommandLineOptions &options, cli::Terminal &terminal, const std::string &command)
{
    PlainMainQueue queue;
    const bool watches =
        command == "devices" ? options.devices.watch : command != "copy" && command != "logs";
    const bool writesLog = command != "devices" && command != "logs" && command != "bays" &&
                           command != "verify" && (command != "line" || options.line.runs());
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
    if (command == "line")
        return cli::runLine(**host, queue, terminal, options.line);
    if (command == "bays")
        return cli::runBays((*host)->enclosureSetup(), queue, terminal, options.bays);
    if (command == "logs")
        return cli::runLogs(**host, terminal, options.logs);
    return cli::runDevices(**host, queue, terminal, options.devices);
}

ExitStatus onSimulator(const cli::CommandLineOptions &options, cli::Terminal &terminal)
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
    cli::CommandLineOptions options;
    cli::describe(app, options);
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
    const auto command = app.get_subcommands().front()->get_name();
    if (command == "completion") {
        std::fputs(cli::completionFor(options.completedShell, app).c_str(), stdout);
        return AllDone;
    }
    cli::takeLiterally(options);
    cli::makeAbsolute(options);
    platform::posix::enterEmptyFolder();
    auto terminal = cli::Terminal::ofProcess();
    if (command == "simulator")
        return onSimulator(options, terminal);
    return onHost(options, terminal, command);
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
