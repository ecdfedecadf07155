#include "cli/BaysCommand.h"

#include "cli/Terminal.h"
#include "enclosures/BayLearning.h"
#include "foundation/DisplayPath.h"
#include "foundation/PathJson.h"
#include "foundation/PlainMainQueue.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace orvana::cli
{

namespace
{

using namespace enclosures;

constexpr std::chrono::milliseconds BetweenLooks{250};

ExitStatus refuse(Terminal &terminal, const std::string &reason, ExitStatus status)
{
    terminal.printError("plurimoctl: " + reason);
    return status;
}

// Lets the machine notice what has changed outside.
void takeUpChanges(PlainMainQueue &queue)
{
    queue.after(BetweenLooks, [&] { queue.quit(); });
    queue.run();
}

void askForBay(Terminal &terminal, char bay)
{
    terminal.print("Put a disk into bay " + std::string(1, bay) +
                   ". If one is there already, take it out and put it in again.");
    if (terminal.canAsk())
        terminal.print(
            "  Enter: it has no such bay.  done: it has no more bays.  Ctrl+C: stop, and write nothing.");
}

// Returns true when the user said that there are no more bays.
bool hearUser(Terminal &terminal, BayLearning &learning)
{
    const auto line = terminal.lineIfAny();
    if (!line)
        return false;
    if (*line == "done")
        return true;
    learning.skip();
    if (learning.bay())
        askForBay(terminal, *learning.bay());
    return false;
}

void learnBays(EnclosureSetup &setup, PlainMainQueue &queue, Terminal &terminal, int bays,
               BayLearning &learning)
{
    askForBay(terminal, *learning.bay());
    while (learning.bay() && learning.learned() < static_cast<std::size_t>(bays)) {
        takeUpChanges(queue);
        const auto answer = learning.look(setup.look());
        if (answer.kind == BayLearning::Answer::Kind::Refused)
            terminal.print(answer.text + ".");
        if (answer.kind == BayLearning::Answer::Kind::Learned) {
            terminal.print("Bay " + std::string(1, answer.bay) + ": " + answer.text);
            if (learning.bay() && learning.learned() < static_cast<std::size_t>(bays))
                askForBay(terminal, *learning.bay());
        }
        if (hearUser(terminal, learning))
            return;
    }
}

ExitStatus learn(EnclosureSetup &setup, PlainMainQueue &queue, Terminal &terminal, const BaysOptions &options)
{
    if (idOfName(options.name).empty() || !isUtf8(options.name))
        return refuse(terminal, "name the enclosure, with a letter or a digit: bays learn \"Desk dock\"",
                      WrongUsage);
    const auto existing = setup.definitions();
    for (const auto &other : existing.definitions) {
        if (other.id == idOfName(options.name))
            return refuse(terminal,
                          "there is an enclosure \"" + displayPath(other.name) +
                              "\" already; forget it first, or take another name",
                          Refused);
    }
    takeUpChanges(queue);
    BayLearning learning(setup.look());
    learnBays(setup, queue, terminal, options.bays, learning);
    const auto definition = learning.finish(options.name, setup.definitions());
    if (!definition)
        return refuse(terminal, definition.error() + "; nothing was written", Refused);
    if (const auto written = setup.add(*definition); !written)
        return refuse(terminal, written.error(), SomethingFailed);
    terminal.print("Written as " + definition->id + ".json:");
    terminal.print(textOf(*definition));
    return AllDone;
}

ExitStatus list(EnclosureSetup &setup, Terminal &terminal, bool json)
{
    const auto set = setup.definitions();
    if (json) {
        Json all = {{"enclosures", Json::array()}, {"problems", set.problems}};
        for (const auto &definition : set.definitions) {
            auto entry = Json::parse(textOf(definition));
            entry["id"] = definition.id;
            all["enclosures"].push_back(std::move(entry));
        }
        terminal.print(all.dump(2));
        return AllDone;
    }
    if (set.definitions.empty())
        terminal.print("No enclosure is defined.");
    for (const auto &definition : set.definitions) {
        terminal.print(displayPath(definition.name) + " (" + definition.id + ".json)");
        for (const auto &[bay, ports] : definition.bays) {
            std::string line = "  " + slotOf(bay) + "  ";
            for (const auto &port : ports)
                line.append(&port == &ports.front() ? "" : ", or ").append(nameOf(port));
            terminal.print(line);
        }
    }
    for (const auto &problem : set.problems)
        terminal.printError("plurimoctl: " + problem);
    return AllDone;
}

ExitStatus checkFile(Terminal &terminal, const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!file || !(text << file.rdbuf()))
        return refuse(terminal, displayPath(path) + ": cannot be read", NotThere);
    const auto definition = readDefinition("file", text.str());
    if (!definition)
        return refuse(terminal, displayPath(path) + ": " + definition.error(), Refused);
    terminal.print(displayPath(path) + " is a definition of \"" + displayPath(definition->name) + "\" with " +
                   std::to_string(definition->bays.size()) + " bays");
    return AllDone;
}

// Says which enclosures are there on this machine now, which disks are in their bays, and what is wrong.
ExitStatus check(EnclosureSetup &setup, Terminal &terminal)
{
    const auto set = setup.definitions();
    const auto ports = setup.look();
    std::vector<DiskPlace> places;
    places.reserve(ports.disks.size());
    for (const auto &disk : ports.disks)
        places.push_back(disk.place);
    const auto claims = claimBays(set.definitions, ports.anchors, places);
    auto problems = set.problems;
    const auto shared = sharedPorts(set.definitions);
    problems.insert(problems.end(), claims.remarks.begin(), claims.remarks.end());
    problems.insert(problems.end(), shared.begin(), shared.end());
    for (std::size_t i = 0; i < set.definitions.size(); ++i)
        terminal.print(displayPath(set.definitions[i].name) + ": " +
                       (claims.isPresent[i] ? "is there" : "is not there"));
    for (const auto &disk : ports.disks) {
        const auto bay = claims.bays.find(disk.place.disk);
        const auto unclear = claims.unclear.find(disk.place.disk);
        if (unclear != claims.unclear.end())
            problems.push_back(titleOf(disk) + ": " + unclear->second);
        else if (bay != claims.bays.end() && !disk.refusal.empty())
            problems.push_back(titleOf(disk) + " " + disk.refusal);
        else if (bay != claims.bays.end())
            terminal.print("  " + slotOf(bay->second.bay) + " of " +
                           displayPath(set.definitions[bay->second.definition].name) + ": " + titleOf(disk));
    }
    for (const auto &problem : problems)
        terminal.printError("plurimoctl: " + problem);
    if (set.definitions.empty() && problems.empty())
        terminal.print("No enclosure is defined.");
    return problems.empty() ? AllDone : SomethingFailed;
}

ExitStatus forget(EnclosureSetup &setup, Terminal &terminal, const std::string &name)
{
    const auto set = setup.definitions();
    const auto found =
        std::find_if(set.definitions.begin(), set.definitions.end(),
                     [&](const Definition &one) { return one.id == name || one.name == name; });
    // A file that is wrong can be removed by its name, too.
    const auto id = found != set.definitions.end() ? found->id : name;
    if (!isDefinitionId(id))
        return refuse(terminal, "no enclosure is called \"" + displayPath(name) + "\"", NotThere);
    if (const auto removed = setup.remove(id); !removed)
        return refuse(terminal, removed.error(), SomethingFailed);
    terminal.print("Removed " + id + ".json");
    return AllDone;
}

} // namespace

ExitStatus runBays(EnclosureSetup &setup, PlainMainQueue &queue, Terminal &terminal,
                   const BaysOptions &options)
{
    if (options.action == "learn")
        return learn(setup, queue, terminal, options);
    if (options.action == "check")
        return options.name.empty() ? check(setup, terminal) : checkFile(terminal, options.name);
    if (options.action == "forget")
        return forget(setup, terminal, options.name);
    return list(setup, terminal, options.json);
}

} // namespace orvana::cli
