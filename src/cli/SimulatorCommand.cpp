#include "cli/SimulatorCommand.h"

#include "cli/Terminal.h"
#include "platform/hosts/HostFactory.h"

namespace orvana::cli
{

ExitStatus runSimulator(const std::string &file, Terminal &terminal, const SimulatorOptions &options)
{
    const auto refuse = [&](const std::string &reason) {
        terminal.printError("plurimoctl: " + reason);
        return NotThere;
    };
    if (options.lever == "show") {
        const auto text = platform::simulatorText(file);
        if (!text)
            return refuse(text.error());
        terminal.print(*text);
        return AllDone;
    }
    const auto moved = platform::moveSimulatorLever(file, options.lever, options.target, options.newName);
    return moved ? AllDone : refuse(moved.error());
}

} // namespace orvana::cli
