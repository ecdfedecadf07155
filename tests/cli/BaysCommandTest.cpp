// Setting up enclosures from the terminal, on a simulated machine.

#include "cli/BaysCommand.h"
#include "cli/MachineFixture.h"
#include "platform/posix/PosixCommandLauncher.h"

#include <atomic>
#include <thread>

namespace orvana::cli
{

class BaysCommand : public SimulatedMachineTest
{
protected:
    BaysCommand()
    {
        m_machine["docks"] = Json::parse(R"([{"usb":"2109:0817","disks":[
            {"port":"1","model":"HD","serial":"A1","size":9000,"attached":false},
            {"port":"2","model":"HD","serial":"B1","size":9000,"attached":false},
            {"port":"3","model":"HD","serial":"C1","size":9000,"attached":false}]}])");
    }

    /// Runs the program; what it prints and complains of comes together.
    int both(const Files &words)
    {
        program({"devices"}); // makes the machine
        auto all = words;
        all.insert(all.end(), {"--simulator", m_tree.path("machine.json")});
        auto result = platform::posix::PosixCommandLauncher(platform::posix::Complaints::IntoTheOutput)
                          .run(PLURIMOCTL, all);
        m_out = std::move(result.output);
        return result.status.value_or(-1);
    }

    /// Something that the user does once the program has printed a text.
    struct Step
    {
        std::string after;
        std::string disk; ///< put in then
    };

    /// Learns with the real program, while the user puts in the disks.
    int learn(const Files &words, const std::vector<Step> &steps)
    {
        program({"devices"}); // makes the machine
        Files all{"-c", R"(output=$1; shift; exec "$0" "$@" >"$output" 2>&1)", PLURIMOCTL,
                  m_tree.path("output")};
        all.insert(all.end(), words.begin(), words.end());
        all.insert(all.end(), {"--simulator", m_tree.path("machine.json")});
        m_tree.file("output", "");
        std::atomic<bool> hasEnded = false;
        std::thread user([&] {
            for (const auto &step : steps) {
                while (!hasEnded && m_tree.read("output").find(step.after) == std::string::npos)
                    std::this_thread::sleep_for(std::chrono::milliseconds(5));
                move("attach", step.disk);
            }
        });
        const auto result = platform::posix::PosixCommandLauncher().run("/bin/sh", all);
        hasEnded = true;
        user.join();
        m_out = m_tree.read("output");
        return result.status.value_or(-1);
    }

    Json definitions() const
    {
        return Json::parse(m_tree.read("machine.json")).value("definitions", Json::array());
    }
};

TEST_F(BaysCommand, LearnWritesTheDefinitionOfWhatWasPutIn)
{
    EXPECT_EQ(learn({"bays", "learn", "Desk dock", "--bays", "2"},
                    {{"bay A.", "dock/1/1"}, {"bay B.", "dock/1/3"}}),
              AllDone)
        << m_out;
    ASSERT_EQ(definitions().size(), 1U);
    EXPECT_EQ(definitions()[0]["bays"].dump(), R"({"A":{"port":"1"},"B":{"port":"3"}})");
    EXPECT_NE(m_out.find("Bay B: HD, serial number C1"), std::string::npos) << m_out;
    EXPECT_EQ(both({"devices"}), AllDone);
    EXPECT_NE(m_out.find("Enclosure 2: Desk dock"), std::string::npos) << m_out;
}

TEST_F(BaysCommand, ListCheckAndForgetWorkOnTheDefinitions)
{
    m_machine["definitions"] =
        Json::parse(R"([{"id":"dock","version":1,"name":"Dock","anchor":{"usb":"2109:0817"},
        "bays":{"A":{"port":"1"},"B":[{"port":"2"},{"path":"pci-x"}]}}])");
    m_machine["docks"][0]["disks"][0]["attached"] = true;
    EXPECT_EQ(both({"bays"}), AllDone);
    EXPECT_NE(m_out.find("  Slot-B  port 2 below USB 2109:0817, or pci-x\n"), std::string::npos) << m_out;
    EXPECT_EQ(both({"bays", "check"}), AllDone) << m_out;
    EXPECT_NE(m_out.find("Dock: is there\n  Slot-A of Dock: HD, serial number A1"), std::string::npos)
        << m_out;
    EXPECT_EQ(both({"bays", "list", "--json"}), AllDone);
    EXPECT_EQ(Json::parse(m_out)["enclosures"][0]["id"], "dock");
    EXPECT_EQ(both({"bays", "learn", "DOCK"}), Refused);
    EXPECT_EQ(both({"bays", "forget", "None"}), NotThere);
    EXPECT_EQ(both({"bays", "forget", "Dock"}), AllDone) << m_out;
    EXPECT_TRUE(definitions().empty());
    EXPECT_EQ(both({"bays"}), AllDone);
    EXPECT_EQ(m_out, "No enclosure is defined.\n");
}

TEST_F(BaysCommand, CheckTellsWhatIsAmbiguous)
{
    m_machine["definitions"] =
        Json::parse(R"([{"id":"dock","version":1,"name":"Dock","anchor":{"usb":"2109:0817"},
        "bays":{"A":{"port":"1"},"B":{"port":"2"}}}])");
    m_machine["docks"].push_back(Json{{"usb", "2109:0817"}});
    EXPECT_EQ(both({"bays", "check"}), SomethingFailed);
    EXPECT_NE(m_out.find("USB 2109:0817 is there 2 times and cannot be told apart"), std::string::npos)
        << m_out;
    EXPECT_EQ(both({"devices"}), AllDone);
    EXPECT_NE(m_out.find("USB 2109:0817 is there 2 times"), std::string::npos) << "devices says so, too";
}

TEST_F(BaysCommand, CheckOfAFileNamesTheEntryAndTheReason)
{
    const auto file = m_tree.file("new.json", R"({"version":1,"name":"n","bays":{"A":{"path":"a"},"B":{}}})");
    EXPECT_EQ(both({"bays", "check", file}), Refused);
    EXPECT_EQ(m_out, "plurimoctl: " + file + ": /bays/B: needs \"path\", \"port\" or \"lun\"\n");
    m_tree.file("new.json", R"({"version":1,"name":"n","bays":{"A":{"path":"a"},"B":{"path":"b"}}})");
    EXPECT_EQ(both({"bays", "check", file}), AllDone);
    EXPECT_EQ(both({"bays", "check", m_tree.path("none")}), NotThere);
}

TEST_F(BaysCommand, LearnNeedsAName)
{
    EXPECT_EQ(both({"bays", "learn"}), WrongUsage);
    EXPECT_EQ(both({"bays", "learn", "//"}), WrongUsage);
    EXPECT_EQ(both({"bays", "learn", "x", "--bays", "5"}), WrongUsage);
}

TEST_F(BaysCommand, MountTakesWhatIsInBaysAndNotMounted)
{
    bay(1)["volumes"][0]["mounted"] = false;
    bay(2)["volumes"][0]["mounted"] = false;
    EXPECT_EQ(both({"mount", "--bay", "B"}), AllDone) << m_out;
    EXPECT_TRUE(isMounted("COPY1"));
    EXPECT_FALSE(isMounted("COPY2"));
    EXPECT_EQ(both({"mount"}), AllDone) << m_out;
    EXPECT_TRUE(isMounted("COPY2"));
    EXPECT_EQ(both({"mount"}), AllDone);
    EXPECT_NE(m_out.find("No disk in a bay has a volume that is not mounted."), std::string::npos);
}

TEST_F(BaysCommand, MountThatFailsIsTold)
{
    bay(1)["volumes"][0]["mounted"] = false;
    m_machine["failing"] = {"mountDisk B"};
    EXPECT_EQ(both({"mount"}), SomethingFailed);
    EXPECT_NE(m_out.find("could not be mounted: Error: the disk could not be mounted"), std::string::npos)
        << m_out;
}

} // namespace orvana::cli
