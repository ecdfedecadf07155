// Erasing and ejecting from the terminal, on a simulated machine.

#include "cli/MachineFixture.h"

namespace orvana::cli
{

class DiskCommands : public SimulatedMachineTest
{
protected:
    DiskCommands() { m_disks.yes = true; }
};

TEST_F(DiskCommands, EraseTakesTheBaysBehindTheSourceAndLogsEach)
{
    EXPECT_EQ(erase(), AllDone) << m_err;
    EXPECT_TRUE(filesOn("COPY1").empty());
    EXPECT_TRUE(filesOn("COPY2").empty());
    EXPECT_TRUE(isMounted("Untitled"));
    EXPECT_EQ(filesOn("Master").size(), 4U);
    EXPECT_NE(log().find(" & Mount to /Volumes/COPY1"), std::string::npos);
}

TEST_F(DiskCommands, EraseTakesOnlyTheBaysThatAreNamed)
{
    m_disks.bays = {"C"};
    m_disks.names = {"C=New"};
    EXPECT_EQ(erase(), AllDone) << m_err;
    EXPECT_TRUE(isMounted("New"));
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
}

TEST_F(DiskCommands, EraseTakesBayAOnlyWhenItIsNamed)
{
    m_disks.bays = {"A"};
    EXPECT_EQ(erase(), AllDone) << m_err;
    EXPECT_TRUE(filesOn("Master").empty());
}

TEST_F(DiskCommands, EraseThatNobodyConfirmsTouchesNothing)
{
    m_disks.yes = false;
    EXPECT_EQ(erase(), Refused);
    answer("");
    EXPECT_EQ(erase(), Refused);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
    EXPECT_FALSE(hasLog());
}

TEST_F(DiskCommands, EraseThatIsConfirmedIsDone)
{
    m_disks.yes = false;
    answer("yes");
    EXPECT_EQ(erase(), AllDone) << m_err;
    EXPECT_TRUE(filesOn("COPY1").empty());
}

TEST_F(DiskCommands, EraseOfADiskThatWasChangedWhileTheQuestionStoodIsRefused)
{
    m_disks.yes = false;
    answer("y", [this] { move("detach", "1/C"); });
    EXPECT_EQ(erase(), Refused);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
}

TEST_F(DiskCommands, EraseThatFailsIsNamedWithItsReasonAndTheRestIsDone)
{
    m_machine["failing"] = {"eraseDisk B"};
    EXPECT_EQ(erase(), SomethingFailed);
    EXPECT_NE(m_err.find("(COPY1): could not be erased: Error: the disk could not be erased"),
              std::string::npos)
        << m_err;
    EXPECT_TRUE(filesOn("COPY2").empty());
}

TEST_F(DiskCommands, EraseInAnEnclosureWithTheStartupDiskIsRefused)
{
    std::swap(bay(0)["volumes"], m_machine["internalDisks"][0]["volumes"]);
    EXPECT_EQ(erase(), Refused);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
}

TEST_F(DiskCommands, EraseInAnEnclosureWithARaidSetIsRefused)
{
    bay(3) = {{"bay", "D"}, {"size", 1000}, {"raid", true}};
    EXPECT_EQ(erase(), Refused);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
}

TEST_F(DiskCommands, EraseWithABadNameTouchesNothing)
{
    m_disks.names = {"D=.."};
    EXPECT_EQ(erase(), Refused);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
}

TEST_F(DiskCommands, DiskWithoutAFileSystemNeedsAName)
{
    bay(3)["formatted"] = true;
    EXPECT_EQ(erase(), Refused);
    EXPECT_NE(m_err.find("Slot-D (None): this cannot be the name of a disk"), std::string::npos) << m_err;
    m_disks.names = {"D=New"};
    EXPECT_EQ(erase(), AllDone) << m_err;
    EXPECT_TRUE(isMounted("New"));
}

TEST_F(DiskCommands, WrongBaysAreWrongUsage)
{
    for (const std::vector<std::string> &bays : {Files{"E"}, Files{"B", "B"}, Files{""}, Files{"Slot-B"}}) {
        m_disks.bays = bays;
        EXPECT_EQ(erase(), WrongUsage);
    }
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
}

TEST_F(DiskCommands, BayThatIsNamedMustHoldADisk)
{
    bay(2)["attached"] = false;
    m_disks.bays = {"B", "C"};
    EXPECT_EQ(erase(), NotThere);
    EXPECT_NE(m_err.find("Slot-C holds no disk"), std::string::npos);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
}

TEST_F(DiskCommands, OfTwoEnclosuresOnlyTheOneThatIsNamedIsErased)
{
    auto other = m_machine["enclosures"][0];
    other["uid"] = 8;
    m_machine["enclosures"].push_back(other);
    m_disks.enclosure = 2;
    m_disks.bays = {"B"};
    EXPECT_EQ(erase(), AllDone) << m_err;
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
    EXPECT_TRUE(filesOn("COPY1 1").empty());
}

TEST_F(DiskCommands, EachOptionOfTheProgramTakesOneValue)
{
    EXPECT_EQ(program({"erase", "--enclosure", "1", "--yes", "--bay", "B", "C"}), WrongUsage);
    EXPECT_EQ(program({"erase", "--enclosure", "1", "--yes", "--name", "B=One", "C=Two"}), WrongUsage);
    EXPECT_FALSE(hasLog());
    EXPECT_EQ(
        program({"erase", "--enclosure", "1", "--yes", "--bay", "B", "--bay", "C", "--name", "B=New one"}),
        AllDone);
    EXPECT_TRUE(isMounted("New one"));
    EXPECT_FALSE(isMounted("Untitled"));
}

TEST_F(DiskCommands, ProgramNeedsTheEnclosureOfAnErase)
{
    EXPECT_EQ(program({"erase", "--yes"}), WrongUsage);
    EXPECT_EQ(program({"eject", "--yes"}), WrongUsage);
    EXPECT_FALSE(hasLog());
}

TEST_F(DiskCommands, IdentityOfAnEnclosureIsATextInJson)
{
    m_machine["enclosures"][0]["uid"] = 9'007'199'254'740'993; // more than many readers of JSON keep exactly
    ASSERT_EQ(program({"devices", "--json"}), AllDone);
    EXPECT_EQ(Json::parse(m_out)["enclosures"][0]["uid"], "9007199254740993");
    EXPECT_TRUE(Json::parse(m_out)["remarks"].empty());
}

TEST_F(DiskCommands, DiskInNoKnownBayIsNamedAmongTheDevices)
{
    m_machine["enclosures"][0]["bays"][1]["bridge"] = 5;
    ASSERT_EQ(program({"devices"}), AllDone);
    EXPECT_NE(m_out.find("Not used\n  "), std::string::npos) << m_out;
    ASSERT_EQ(program({"devices", "--json"}), AllDone);
    const auto remarks = Json::parse(m_out)["remarks"];
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_NE(remarks[0].get<std::string>().find("none of the bays"), std::string::npos);
}

TEST_F(DiskCommands, EjectTakesTheFormattedDisksBehindTheSource)
{
    EXPECT_EQ(eject(), AllDone) << m_err;
    EXPECT_TRUE(isMounted("Master"));
    EXPECT_FALSE(isMounted("COPY1"));
    EXPECT_FALSE(isMounted("COPY2"));
    EXPECT_TRUE(isAttached(1)) << "a disk in a bay stays there";
    EXPECT_NE(log().find("Eject /Volumes/COPY1"), std::string::npos);
}

TEST_F(DiskCommands, EjectTakesTheSourceWhenItsBayIsNamed)
{
    m_disks.bays = {"A"};
    EXPECT_EQ(eject(), AllDone) << m_err;
    EXPECT_FALSE(isMounted("Master"));
    EXPECT_TRUE(isMounted("COPY1"));
}

TEST_F(DiskCommands, EjectLeavesOtherEnclosuresAlone)
{
    auto other = m_machine["enclosures"][0];
    other["uid"] = 8;
    m_machine["enclosures"].push_back(other);
    m_disks.enclosure = 2;
    EXPECT_EQ(eject(), AllDone) << m_err;
    EXPECT_TRUE(isMounted("COPY1"));
    EXPECT_FALSE(isMounted("COPY1 1"));
}

TEST_F(DiskCommands, EjectOfTheStartupDiskIsRefused)
{
    std::swap(bay(1)["volumes"], m_machine["internalDisks"][0]["volumes"]);
    EXPECT_EQ(eject(), Refused);
    EXPECT_NE(m_err.find("Slot-B (anna): it is the start-up disk"), std::string::npos) << m_err;
    EXPECT_TRUE(isMounted("COPY2"));
}

TEST_F(DiskCommands, EjectThatFailsIsNamed)
{
    m_machine["failing"] = {"eject C"};
    EXPECT_EQ(eject(), SomethingFailed);
    EXPECT_NE(m_err.find("(COPY2): could not be ejected: Error: the disk is in use"), std::string::npos)
        << m_err;
    EXPECT_FALSE(isMounted("COPY1"));
    EXPECT_TRUE(isMounted("COPY2"));
}

TEST_F(DiskCommands, EjectOfNothingIsToldSo)
{
    m_disks.bays = {"D"};
    EXPECT_EQ(eject(), NotThere);
    EXPECT_NE(m_err.find("there is no disk to eject"), std::string::npos);
}

TEST_F(DiskCommands, EjectThatNobodyConfirmsIsRefused)
{
    m_disks.yes = false;
    EXPECT_EQ(eject(), Refused);
    EXPECT_TRUE(isAttached(1));
}

} // namespace orvana::cli
