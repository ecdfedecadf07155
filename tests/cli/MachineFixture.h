#pragma once

#include "cli/DiskCommands.h"
#include "cli/DuplicateCommand.h"
#include "cli/Terminal.h"
#include "foundation/PathJson.h"
#include "support/TemporaryTree.h"

#include <functional>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana::cli
{

/// The terminal's commands on a simulated machine: an enclosure with "Master" in bay A, "COPY1" and "COPY2"
/// in B and C, a blank disk in D; the start-up disk with anna's home, and the USB disk "STICK".
class SimulatedMachineTest : public testing::Test
{
protected:
    using Files = std::vector<std::string>;

    SimulatedMachineTest();

    /// A disk of the description, which may be changed before the first command.
    Json &bay(std::size_t index) { return m_machine["enclosures"][0]["bays"][index]; }

    // Each of these functions makes a new host, as a new process would.
    ExitStatus duplicate();
    ExitStatus erase();
    ExitStatus eject();

    /// Runs the program itself on the machine with these words, and returns its exit status.
    int program(const Files &words);

    /// Starts the command in a process of its own, sends it SIGINT once it has printed `text`, and returns
    /// its exit status.
    int duplicateUntil(const std::string &text);

    /// Simulates a user: after the question calls `happening`, then types `answer`.
    void answer(std::string answer, std::function<void()> happening = [] {});

    /// Called before each command of the disk utility with its words.
    void beforeEachTool(std::function<void(const Files &)> happening) { m_beforeTool = std::move(happening); }

    /// Changes the machine from outside the program.
    void move(const std::string &lever, const std::string &target) const;

    bool isAttached(std::size_t bay) const;
    bool isMounted(const std::string &volume) const;

    /// Returns the relative paths of the files on a mounted volume, sorted.
    Files filesOn(const std::string &volume) const;
    std::string read(const std::string &volume, const std::string &file) const;

    bool hasLog() const { return !test::treeOf(m_tree.path("logs")).empty(); }
    std::string log() const { return m_tree.read("logs/" + nameEndingWith("-Log.txt")); }
    Json report() const { return Json::parse(m_tree.read("logs/" + nameEndingWith("-Report.json"))); }

    test::TemporaryTree m_tree;
    Json m_machine;
    DuplicateOptions m_options;
    DiskOptions m_disks;
    std::string m_out;
    std::string m_err;

private:
    using Command = std::function<ExitStatus(platform::Host &, PlainMainQueue &, Terminal &)>;

    void writeMachine();
    ExitStatus run(const Command &command);
    std::string nameEndingWith(const std::string &end) const;

    bool m_isWritten = false;
    std::optional<std::string> m_answer;
    std::function<void()> m_happening;
    std::function<void(const Files &)> m_beforeTool = [](const Files &) {};
};

} // namespace orvana::cli
