// What the command for production lines says and refuses. A line at work is in the tests of ProductionLine.

#include "cli/MachineFixture.h"
#include "platform/posix/PosixCommandLauncher.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace orvana::cli
{

class LineCommandTest : public SimulatedMachineTest
{
protected:
    LineCommandTest()
    {
        bay(0)["volumes"][0]["id"] = "MASTER-1";
        ::setenv("XDG_STATE_HOME", m_tree.path("state").c_str(), 1);
        m_tree.folder("state");
    }
    ~LineCommandTest() override { ::unsetenv("XDG_STATE_HOME"); }

    std::string job(const std::string &more = R"(,"erase":true,"verify":true)") const
    {
        return m_tree.file("reel.plurimo",
                           R"({"job":1,"source":{"volume":"MASTER-1","name":"Master"})" + more + "}");
    }

    void expectError(const Files &words, ExitStatus status, const std::string &reason)
    {
        (void)program({"line", "status"}); // makes the machine
        auto all = words;
        all.insert(all.end(), {"--simulator", m_tree.path("machine.json"), "--log-dir", m_tree.path("logs")});
        const auto result = platform::posix::PosixCommandLauncher(platform::posix::Complaints::IntoTheOutput)
                                .run(PLURIMOCTL, all);
        EXPECT_EQ(result.status, status) << result.output;
        EXPECT_NE(result.output.find(reason), std::string::npos) << result.output;
    }

    std::string onlyLine()
    {
        EXPECT_EQ(program({"line", "status", "--json"}), AllDone);
        return Json::parse(m_out)[0]["id"];
    }
};

TEST_F(LineCommandTest, LineIsMadeAndTold)
{
    EXPECT_EQ(program({"line", "status"}), AllDone);
    EXPECT_NE(m_out.find("There is no line."), std::string::npos) << m_out;
    EXPECT_EQ(program({"line", "start", job(), "--count", "40"}), AllDone);
    EXPECT_NE(m_out.find("plurimoctl line resume"), std::string::npos) << m_out;
    const auto id = onlyLine();
    EXPECT_EQ(program({"line", "status", id}), AllDone);
    EXPECT_NE(m_out.find("reel: 0 of 40, open"), std::string::npos) << m_out;
    EXPECT_EQ(program({"line", "pause"}), AllDone);
    EXPECT_EQ(program({"line", "status"}), AllDone);
    EXPECT_NE(m_out.find("paused"), std::string::npos) << m_out;
    EXPECT_EQ(program({"line", "resume"}), AllDone);
    EXPECT_EQ(program({"line", "end", id}), AllDone);
    expectError({"line", "pause", id}, Refused, "the line has ended");
    expectError({"line", "end"}, NotThere, "there is no line that has not ended");
}

TEST_F(LineCommandTest, NumberOfTheJobCountsWithoutAnother)
{
    expectError({"line", "start", job()}, WrongUsage, "the job has no wanted number");
    EXPECT_EQ(program({"line", "start", job(R"(,"verify":true,"wanted":12)")}), AllDone);
    EXPECT_EQ(program({"line", "status"}), AllDone);
    EXPECT_NE(m_out.find("0 of 12"), std::string::npos) << m_out;
}

TEST_F(LineCommandTest, WhatWouldNeverCountADiskIsRefusedAtOnce)
{
    expectError({"line", "start", job(R"(,"erase":true)"), "--count", "4"}, WrongUsage, "does not verify");
    expectError({"line", "start", job(R"(,"verify":true,"options":{"resume":true})"), "--count", "4"},
                WrongUsage, "begins each disk anew");
    expectError({"line", "start", job(), "--count", "4", "--names", "{x}"}, WrongUsage, "{x}: no field");
    expectError({"line", "start", job(), "--count", "4", "--names", "same"}, WrongUsage, "would be the same");
    expectError({"line", "start", job(), "--count", "4", "--names", "a name that is too long {n}"},
                WrongUsage, "longer than 16 bytes");
    expectError({"line", "start", job(R"(,"verify":true)"), "--count", "4", "--names", "{n}"}, WrongUsage,
                "erased only");
    expectError({"line", "start", m_tree.path("none"), "--count", "4"}, WrongUsage, "No such file");
    expectError({"line", "start", "--count", "4"}, WrongUsage, "needs one job file");
    EXPECT_EQ(program({"line", "status"}), AllDone);
    EXPECT_NE(m_out.find("There is no line."), std::string::npos)
        << "a refused line left something: " << m_out;
}

TEST_F(LineCommandTest, ConsentAndBaysAreCheckedBeforeTheLineIsMade)
{
    expectError({"line", "start", job(), "--count", "4", "--arm", "B", "--consent", "yes"}, WrongUsage,
                "erase whatever comes");
    expectError({"line", "start", job(), "--count", "4", "--arm", "B,E"}, WrongUsage, "E: no bay");
    EXPECT_EQ(program({"line", "status"}), AllDone);
    EXPECT_NE(m_out.find("There is no line."), std::string::npos) << m_out;
}

TEST_F(LineCommandTest, BayOfTheSourceIsNotArmed)
{
    expectError({"line", "start", job(), "--count", "4", "--arm", "A,B"}, Refused, "Slot-A holds the source");
}

TEST_F(LineCommandTest, UnknownLinesAreNotThere)
{
    expectError({"line", "status", "20260101-000000-abcd"}, NotThere, "no line of this station");
    expectError({"line", "end", "../.."}, NotThere, "no line of this station");
}

TEST_F(LineCommandTest, LineWhoseFilesAreDamagedDoesNotHideTheOthers)
{
    EXPECT_EQ(program({"line", "start", job(), "--count", "40"}), AllDone);
    const auto damaged = onlyLine();
    EXPECT_EQ(program({"line", "status", "--json"}), AllDone);
    const std::string ledger = Json::parse(m_out)[0]["ledger"];
    EXPECT_EQ(program({"line", "end", damaged}), AllDone);
    EXPECT_EQ(program({"line", "start", job(), "--count", "7"}), AllDone);
    const auto events = ledger.substr(0, ledger.rfind('/')) + "/events";
    ASSERT_TRUE(std::filesystem::exists(events)) << events;
    std::ofstream(events) << "no events\n\n";

    EXPECT_EQ(program({"line", "status"}), NotThere);
    EXPECT_NE(m_out.find("0 of 7, open"), std::string::npos) << m_out;
    EXPECT_EQ(m_out.find("0 of 40"), std::string::npos) << m_out;
}

TEST_F(LineCommandTest, LedgersAreCollected)
{
    EXPECT_EQ(program({"line", "start", job(), "--count", "4"}), AllDone);
    const auto ledger = m_tree.path("state/orvana-plurimo/lines/" + onlyLine() + "/ledger.csv");
    EXPECT_EQ(program({"line", "collect", ledger, ledger}), AllDone);
    EXPECT_TRUE(m_out.starts_with("id,station,line,number,serial")) << m_out;
    expectError({"line", "collect"}, WrongUsage, "needs ledgers");
    expectError({"line", "collect", m_tree.path("none")}, NotThere, "none: ");
    expectError({"line", "collect", job()}, SomethingFailed, "reel.plurimo");
}

} // namespace orvana::cli
