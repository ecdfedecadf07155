#pragma once

#include "duplicate/job/JobFile.h"
#include "duplicate/run/ProductionLine.h"
#include "foundation/PathJson.h"
#include "foundation/SystemLog.h"
#include "platform/hosts/HostFactory.h"
#include "support/ManualMainQueue.h"
#include "support/SmallMachine.h"
#include "support/TemporaryTree.h"
#include "support/WatchedHost.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace orvana
{

/// Makes the entry one of a disk with a volume that holds a file.
inline void withContent(Json &entry)
{
    entry["formatted"] = true;
    entry["volumes"] = Json::array({Json{{"name", "OLD"},
                                         {"capacity", 900'000},
                                         {"content", Json::array({Json{{"path", "old"}, {"bytes", 10}}})}}});
}

/// A production line on the simulated machine: "Master" in bay A is copied onto whatever comes into bays B, C
/// and D. Time is that of the queue, so a countdown takes no time.
class ProductionLineTest : public testing::Test, public LineView
{
protected:
    ProductionLineTest();
    ~ProductionLineTest() override { m_line.reset(); }

    /// Makes the machine and a line on it.
    void makeLine(std::int64_t wanted, const std::string &pattern = "REEL {n:03}");

    /// Opens the line once more, as the program does after its end.
    void openAgain();

    /// Lets the line work until the disk utility is about to get the command, and goes on as after a power
    /// cut at that moment, with what is on the station's disk.
    void crashAt(const std::string &command);

    tl::expected<void, Refusal> arm(const std::vector<Bay> &bays = {Bay::B, Bay::C, Bay::D},
                                    ProductionLine::Consent consent = ProductionLine::Consent::AskForContent)
    {
        return m_line->arm(bays, consent);
    }

    /// Puts a disk into the bay in place of what is there. `change` may alter its entry.
    void insert(Bay bay, const std::string &serial, const std::function<void(Json &)> &change = {});
    void pull(Bay bay);
    void changeMachine(const std::function<void(Json &)> &change);

    /// Lets seconds pass until the condition holds.
    void until(const std::function<bool()> &condition, const std::string &what);
    void untilState(Bay bay, LineBayState state);
    void seconds(int count);

    LineBayState state(Bay bay) const { return m_line->bay(bay).state; }
    std::string text(Bay bay) const { return m_line->bay(bay).text; }
    std::vector<LineEntry> entries() const { return m_line->store().entries(); }
    Job job() const;
    std::string statePath() const { return m_tree.path("state"); }

    void lineChanged() override {}
    void lineDiskEnded(const LineEntry &entry) override { m_ended.push_back(entry); }
    void lineDisarmed(const std::string &reason) override { m_disarmed.push_back(reason); }

    test::TemporaryTree m_tree;
    Json m_machine;
    Job m_job;
    test::ManualMainQueue m_queue;
    SystemClock m_clock;
    SystemLogCapture m_silence{[](const std::string &) {}};
    std::unique_ptr<platform::Host> m_simulator;
    std::unique_ptr<test::WatchedHost> m_host;
    std::vector<std::string> m_toolCommands;
    std::function<void()> m_onTool; ///< called before each command of the disk utility
    std::string m_crashCommand;     ///< at which the state folder is kept as it is
    std::unique_ptr<ProductionLine> m_line;
    std::vector<LineEntry> m_ended;
    std::vector<std::string> m_disarmed;

private:
    void makeHost();
    void open(const std::string &id);
    void put(LineStore store);
};

} // namespace orvana
