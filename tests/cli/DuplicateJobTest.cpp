// Job files, and what a run does beyond erasing and verifying, in the terminal.

#include "cli/MachineFixture.h"

#include <algorithm>

namespace orvana::cli
{

class DuplicateJob : public SimulatedMachineTest
{
protected:
    DuplicateJob() { bay(0)["volumes"][0]["id"] = "MASTER-ID"; }

    void useJob(const std::string &text)
    {
        m_tree.file("run.plurimo", text);
        m_options.jobFile = m_tree.path("run.plurimo");
    }
};

TEST_F(DuplicateJob, DoesWhatItSays)
{
    useJob(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "selection": ["Read me.txt"], "erase": true,
               "verify": true, "names": {"B": "Job"}})");
    m_options.yes = true;
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_EQ(filesOn("Job"), Files{"Read me.txt"});
    EXPECT_EQ(filesOn("COPY2"), Files{"Read me.txt"});
    EXPECT_EQ(report()["destinations"][0]["verified"], 1);
}

TEST_F(DuplicateJob, EraseIsAskedForAlthoughTheJobErases)
{
    useJob(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "erase": true})");
    EXPECT_EQ(duplicate(), Refused);
    EXPECT_NE(m_err.find("These disks will lose everything they hold"), std::string::npos) << m_err;
    EXPECT_EQ(filesOn("COPY1"), Files{"old1"});
}

TEST_F(DuplicateJob, SourceIsFoundByItsIdUnderAnotherName)
{
    bay(0)["volumes"][0]["name"] = "Renamed";
    useJob(
        R"({"job": 1, "source": {"volume": "MASTER-ID", "name": "Master"}, "selection": ["Read me.txt"]})");
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_EQ(filesOn("COPY1"), (Files{"Read me.txt", "old1"}));
}

TEST_F(DuplicateJob, OtherVolumeOfTheSameNameIsNotTheSource)
{
    useJob(R"({"job": 1, "source": {"volume": "OTHER-ID", "name": "Master"}})");
    EXPECT_EQ(duplicate(), NotThere);
    EXPECT_EQ(m_err, "plurimoctl: Master: the source of the job is not there\n");
    EXPECT_FALSE(hasLog());
}

TEST_F(DuplicateJob, TwoVolumesOfOneIdAreNotChosenBetween)
{
    bay(0)["volumes"].push_back({{"name", "Clone"}, {"capacity", 300000}, {"id", "MASTER-ID"}});
    useJob(R"({"job": 1, "source": {"volume": "MASTER-ID", "name": "Master"}})");
    EXPECT_EQ(duplicate(), NotThere);
    EXPECT_EQ(m_err, "plurimoctl: Master: two volumes have the id of the job's source\n");
}

TEST_F(DuplicateJob, BadJobIsRefusedByItsEntryBeforeAnythingHappens)
{
    useJob(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "verfy": true})");
    EXPECT_EQ(duplicate(), WrongUsage);
    EXPECT_EQ(m_err, "plurimoctl: " + m_tree.path("run.plurimo") + ": /verfy: is not a known key\n");
}

TEST_F(DuplicateJob, SelectedFileThatIsMissingIsNamed)
{
    useJob(R"({"job": 1, "source": {"volume": "MASTER-ID"}, "selection": ["gone"]})");
    EXPECT_EQ(duplicate(), NotThere);
    EXPECT_NE(m_err.find("/gone: no such file or folder"), std::string::npos) << m_err;
}

TEST_F(DuplicateJob, CannotBeMixedWithTheOptionsThatItReplaces)
{
    m_tree.file("run.plurimo", R"({"job": 1, "source": {"volume": "MASTER-ID"}})");
    for (const char *option : {"--erase", "--verify", "--eject"})
        EXPECT_EQ(program({"duplicate", "--job", m_tree.path("run.plurimo"), option}), WrongUsage) << option;
    EXPECT_EQ(program({"duplicate", "--job", m_tree.path("run.plurimo"), "--source", "Master"}), WrongUsage);
    EXPECT_EQ(program({"duplicate", "--job", m_tree.path("run.plurimo"), "--json"}), AllDone);
}

TEST_F(DuplicateJob, EjectAtTheEndTakesOnlyWholeCopies)
{
    bay(1)["volumes"][0]["faults"] = {{"writeErrorAfter", 100}};
    m_options.settings.ejectAtEnd = true;
    EXPECT_EQ(duplicate(), SomethingFailed);
    EXPECT_TRUE(isMounted("COPY1")) << "its copy is not whole";
    EXPECT_FALSE(isMounted("COPY2"));
    EXPECT_TRUE(isMounted("Master"));
}

TEST_F(DuplicateJob, EjectThatFailsIsTold)
{
    m_machine["failing"] = {"eject C"};
    m_options.settings.ejectAtEnd = true;
    EXPECT_EQ(duplicate(), SomethingFailed);
    EXPECT_NE(m_err.find("could not be ejected"), std::string::npos) << m_err;
    EXPECT_TRUE(isMounted("COPY2"));
    EXPECT_FALSE(isMounted("COPY1"));
}

TEST_F(DuplicateJob, NothingIsEjectedUnlessThatWasChosen)
{
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_TRUE(isMounted("COPY1"));
}

} // namespace orvana::cli
