// Reasons why a duplication in the terminal does not start. No disk is touched then.

#include "cli/MachineFixture.h"

namespace orvana::cli
{

class DuplicateRefusal : public SimulatedMachineTest
{
protected:
    /// No disk lost or gained a byte, and no log was begun.
    void expectUntouched() const
    {
        EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
        EXPECT_EQ(filesOn("COPY2"), (Files{"old2"}));
        EXPECT_FALSE(isMounted("Untitled"));
        EXPECT_FALSE(hasLog());
    }

    void expectRefused(ExitStatus status, const std::string &reason)
    {
        EXPECT_EQ(duplicate(), status);
        EXPECT_NE(m_err.find(reason), std::string::npos) << m_err;
        expectUntouched();
    }
};

TEST_F(DuplicateRefusal, EraseThatNobodyCanConfirm)
{
    m_options.erase = true;
    expectRefused(Refused, "say --yes");
}

TEST_F(DuplicateRefusal, EraseThatIsNotConfirmed)
{
    m_options.erase = true;
    answer("n");
    expectRefused(Refused, "not confirmed");
    EXPECT_NE(m_err.find("Slot-B: MB, serial number SB, now COPY1, holds 1 file, will be COPY1"),
              std::string::npos)
        << m_err;
    EXPECT_NE(m_err.find("Slot-D: MD, serial number SD, holds nothing, will be Untitled"), std::string::npos)
        << m_err;
}

TEST_F(DuplicateRefusal, AllBaysTooSmall)
{
    for (const std::size_t index : {1U, 2U})
        bay(index)["volumes"][0]["capacity"] = 1000;
    bay(3) = {{"bay", "D"}, {"size", 1000}, {"volumes", {{{"name", "SMALL"}, {"capacity", 1000}}}}};
    m_options.yes = true;
    expectRefused(Refused, "There is insufficient free disk space on the destination drive(s).");
}

TEST_F(DuplicateRefusal, OnlyBayTooSmall)
{
    bay(1)["volumes"][0]["capacity"] = 1000;
    bay(2)["volumes"][0]["capacity"] = 1000;
    bay(3)["attached"] = false;
    m_options.erase = m_options.yes = true;
    expectRefused(Refused, "There is insufficient free disk space on the destination drive(s).");
}

TEST_F(DuplicateRefusal, SomeBaysTooSmallAndNobodyToAsk)
{
    bay(1)["volumes"][0]["capacity"] = 1000;
    expectRefused(Refused, "There is insufficient free disk space on the destination drive(s) COPY1.");
}

TEST_F(DuplicateRefusal, RaidSet)
{
    bay(3) = {{"bay", "D"}, {"size", 1000}, {"raid", true}};
    m_options.yes = true;
    expectRefused(Refused, "This device cannot be selected, because it includes a RAID set.");
}

TEST_F(DuplicateRefusal, StartupDiskInTheFirstBay)
{
    std::swap(bay(0)["volumes"], m_machine["internalDisks"][0]["volumes"]);
    m_options.erase = m_options.yes = true;
    expectRefused(Refused, "This device cannot be selected when it's used as a startup disk.");
}

TEST_F(DuplicateRefusal, StartupDiskInTheLastBay)
{
    bay(3)["formatted"] = true;
    std::swap(bay(3)["volumes"], m_machine["internalDisks"][0]["volumes"]);
    m_machine["internalDisks"] = Json::array();
    m_options.erase = m_options.yes = true;
    expectRefused(Refused, "This device cannot be selected when it's used as a startup disk.");
}

TEST_F(DuplicateRefusal, NameThatIsNotAllowed)
{
    m_options.erase = m_options.yes = true;
    m_options.names = {"C=a/b"};
    expectRefused(Refused, "Slot-C (a/b): a name cannot hold \"/\"");
}

TEST_F(DuplicateRefusal, NameForABayThatIsNotErased)
{
    m_options.erase = m_options.yes = true;
    m_options.names = {"A=Mine"};
    expectRefused(WrongUsage, "Slot-A is given a name, but no disk in it is erased");
}

TEST_F(DuplicateRefusal, TwoNamesForOneBay)
{
    m_options.erase = m_options.yes = true;
    m_options.names = {"B=One", "B=Two"};
    expectRefused(WrongUsage, "Slot-B is given two names");
}

TEST_F(DuplicateRefusal, NameWithoutErase)
{
    m_options.names = {"B=One"};
    expectRefused(WrongUsage, "with --erase only");
}

TEST_F(DuplicateRefusal, NoSuchEnclosure)
{
    m_options.enclosure = 2;
    expectRefused(NotThere, "there is no enclosure 2");
}

TEST_F(DuplicateRefusal, NoEnclosureAtAll)
{
    m_machine["enclosures"][0]["attached"] = false;
    EXPECT_EQ(duplicate(), NotThere);
    EXPECT_NE(m_err.find("there is no enclosure"), std::string::npos);
}

TEST_F(DuplicateRefusal, TwoEnclosuresAndNoneIsNamed)
{
    m_machine["enclosures"].push_back({{"uid", 8}, {"bays", Json::array()}});
    m_options.erase = m_options.yes = true;
    expectRefused(WrongUsage, "there are 2 enclosures");
}

TEST_F(DuplicateRefusal, TwoEnclosuresThatCannotBeToldApart)
{
    m_machine["enclosures"].push_back({{"uid", 7}, {"bays", Json::array()}});
    m_options.enclosure = 1;
    expectRefused(Refused, "Another device has taken the place of the selected one.");
}

TEST_F(DuplicateRefusal, UnknownSource)
{
    m_options.source = "Nothing";
    expectRefused(NotThere, "Nothing: no such source");
}

TEST_F(DuplicateRefusal, SelectionOutsideTheSource)
{
    m_options.selection = {"../COPY1/old1"};
    expectRefused(WrongUsage, "../COPY1/old1: does not lie in the source");
}

TEST_F(DuplicateRefusal, SelectionThatIsNotThere)
{
    m_options.selection = {"Nothing"};
    expectRefused(NotThere, "Nothing: no such file or folder");
}

TEST_F(DuplicateRefusal, DisksThatChangedPlacesWhileTheQuestionStood)
{
    m_options.erase = true;
    answer("y", [this] {
        std::swap(bay(1)["bay"], bay(2)["bay"]);
        m_tree.file("machine.json", m_machine.dump());
    });
    expectRefused(Refused, "the disks are not those that were shown any more");
}

TEST_F(DuplicateRefusal, DiskThatAnotherReplacedWhileTheQuestionStood)
{
    m_options.erase = true;
    answer("y", [this] {
        bay(2)["serial"] = "another";
        m_tree.file("machine.json", m_machine.dump());
    });
    expectRefused(Refused, "the disks are not those that were shown any more");
}

TEST_F(DuplicateRefusal, DiskThatWasPulledWhileTheQuestionStood)
{
    m_options.erase = true;
    answer("y", [this] { move("detach", "1/B"); });
    EXPECT_EQ(duplicate(), Refused);
    EXPECT_NE(m_err.find("the disks are not those that were shown any more"), std::string::npos) << m_err;
    EXPECT_EQ(filesOn("COPY2"), (Files{"old2"}));
    EXPECT_FALSE(hasLog());
}

TEST_F(DuplicateRefusal, EnclosureThatWasPulledWhileTheQuestionStood)
{
    m_options.erase = true;
    answer("y", [this] { move("detach", "1"); });
    EXPECT_EQ(duplicate(), NotThere);
    EXPECT_FALSE(hasLog());
}

TEST_F(DuplicateRefusal, EnclosureWhosePlaceAnotherTookWhileTheQuestionStood)
{
    auto other = m_machine["enclosures"][0];
    other["uid"] = 8;
    other["bays"] = Json::array(
        {{{"bay", "B"},
          {"size", 1000},
          {"volumes",
           {{{"name", "OTHER"}, {"capacity", 900}, {"content", {{{"path", "kept"}, {"bytes", 5}}}}}}}}});
    m_machine["enclosures"].push_back(other);
    m_options.enclosure = 1;
    m_options.erase = true;
    answer("y", [this] { move("detach", "1"); });
    EXPECT_EQ(duplicate(), Refused);
    EXPECT_EQ(filesOn("OTHER"), (Files{"kept"}));
    EXPECT_FALSE(hasLog());
}

TEST_F(DuplicateRefusal, SourceThatWasUnmountedWhileTheQuestionStood)
{
    m_options.source = "STICK";
    m_options.erase = true;
    answer("y", [this] { move("unmount", "STICK"); });
    expectRefused(NotThere, "the source is not there any more");
    EXPECT_EQ(filesOn("Master").size(), 4U);
}

TEST_F(DuplicateRefusal, NothingButTheSourceInTheEnclosure)
{
    for (const std::size_t index : {1U, 2U, 3U})
        bay(index)["attached"] = false;
    EXPECT_EQ(duplicate(), NotThere);
    EXPECT_NE(m_err.find("no destination"), std::string::npos) << m_err;
    EXPECT_EQ(report()["note"], "no destination");
}

} // namespace orvana::cli
