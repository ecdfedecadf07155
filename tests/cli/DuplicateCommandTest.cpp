// Whole duplications in the terminal, on a simulated machine.

#include "cli/MachineFixture.h"

#include <algorithm>

namespace orvana::cli
{

using Duplicate = SimulatedMachineTest;

TEST_F(Duplicate, TypicalRunCopiesTheSourceToEveryFormattedBay)
{
    m_options.verify = true;
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    const Files expected{"Footage/Folder 1/File 1.dat", "Footage/Folder 1/File 2.dat",
                         "Footage/Folder 1/File 3.dat", "Read me.txt", "old1"};
    EXPECT_EQ(filesOn("COPY1"), expected);
    EXPECT_EQ(read("COPY2", "Footage/Folder 1/File 3.dat"), read("Master", "Footage/Folder 1/File 3.dat"));
    EXPECT_EQ(report()["destinations"][1]["verified"], 4);
    EXPECT_EQ(m_err, "");
}

TEST_F(Duplicate, LogTellsTheRunFromItsStartToItsEnd)
{
    m_options.selection = {"Read me.txt"};
    ASSERT_EQ(duplicate(), AllDone) << m_err;
    const auto volumes = m_tree.path("machine.json.volumes/Volumes/");
    const auto start = log().find("Start Duplicating Files from " + volumes + "Master to " + volumes +
                                  "COPY1 " + volumes + "COPY2\n");
    EXPECT_NE(start, std::string::npos) << log();
    EXPECT_GT(log().find("Finish !!!"), start);
}

TEST_F(Duplicate, WithEraseEveryBayIsANewVolumeWithTheCopyAlone)
{
    m_options.erase = m_options.verify = m_options.yes = true;
    m_options.names = {"B=Backup"};
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    for (const char *name : {"Backup", "COPY2", "Untitled"})
        EXPECT_EQ(filesOn(name), filesOn("Master")) << name;
    EXPECT_FALSE(isMounted("COPY1"));
    EXPECT_EQ(report()["disks"].size(), 3U);
    EXPECT_EQ(report()["disks"][2]["outcome"], "erased");
    EXPECT_EQ(report()["destinations"].size(), 3U);
    const auto erase = log().find("Erasing /dev/disk");
    EXPECT_LT(erase, log().find("Start Duplicating Files"));
}

TEST_F(Duplicate, HomeFolderAsSourceMakesBayADestination)
{
    m_options.source = "anna";
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_EQ(read("Master", "Letters/Offer.txt").size(), 300U);
    EXPECT_EQ(read("COPY2", "Letters/Offer.txt"), read("Master", "Letters/Offer.txt"));
}

TEST_F(Duplicate, UsbDiskAsSourceErasesAllFourBays)
{
    m_options.source = "STICK";
    m_options.erase = m_options.yes = true;
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    for (const char *name : {"Master", "COPY1", "COPY2", "Untitled"})
        EXPECT_EQ(filesOn(name), (Files{"song.mp3"})) << name;
    EXPECT_EQ(read("STICK", "song.mp3").size(), 700U);
}

TEST_F(Duplicate, HomeFolderIsTheSourceWhenBayAIsEmpty)
{
    bay(0)["attached"] = false;
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_EQ(filesOn("COPY1"), (Files{"Letters/Offer.txt", "old1"}));
}

TEST_F(Duplicate, BayAOfTwoVolumesKeepsEveryByteThoughTheRowShowsTheLast)
{
    bay(0)["volumes"].push_back(
        {{"name", "Second"}, {"capacity", 90'000}, {"content", {{{"path", "two"}, {"bytes", 50}}}}});
    m_options.erase = m_options.yes = true;
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_EQ(filesOn("Master").size(), 4U);
    EXPECT_EQ(read("Second", "two").size(), 50U);
    EXPECT_EQ(filesOn("COPY1"), filesOn("Master"));
    EXPECT_NE(m_err.find("Slot-A (Master): it carries the source"), std::string::npos) << m_err;
}

TEST_F(Duplicate, EveryVolumeOfBayAMayBeTheSourceAndNoneIsErased)
{
    bay(0)["volumes"].push_back(
        {{"name", "Second"}, {"capacity", 90'000}, {"content", {{{"path", "two"}, {"bytes", 50}}}}});
    bay(0)["volumes"].push_back(
        {{"name", "Third"}, {"capacity", 90'000}, {"content", {{{"path", "three"}, {"bytes", 60}}}}});
    m_options.erase = m_options.yes = true;
    for (const char *name : {"Master", "Second", "Third"}) {
        m_options.source = name;
        EXPECT_EQ(duplicate(), AllDone) << m_err;
        EXPECT_EQ(filesOn("COPY1"), filesOn(name)) << name;
    }
    EXPECT_EQ(filesOn("Master").size(), 4U);
    EXPECT_EQ(filesOn("Second"), (Files{"two"}));
    EXPECT_EQ(filesOn("Third"), (Files{"three"}));
}

TEST_F(Duplicate, TwoDisksOfOneNewNameBothGetTheCopy)
{
    m_options.erase = m_options.yes = true;
    m_options.names = {"B=Twin", "C=Twin"};
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_EQ(filesOn("Twin"), filesOn("Master"));
    EXPECT_EQ(filesOn("Twin 1"), filesOn("Master"));
}

TEST_F(Duplicate, OnlyWhatIsSelectedIsCopied)
{
    m_options.selection = {"Footage/Folder 1/File 2.dat",
                           m_tree.path("machine.json.volumes/Volumes/Master/Read me.txt")};
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_EQ(filesOn("COPY1"), (Files{"Footage/Folder 1/File 2.dat", "Read me.txt", "old1"}));
}

TEST_F(Duplicate, BayThatIsTooSmallIsLeftOutOnceThatIsConfirmed)
{
    bay(1)["volumes"][0]["capacity"] = 1000;
    answer("y");
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    EXPECT_NE(m_err.find("There is insufficient free disk space on the destination drive(s) COPY1.\n"),
              std::string::npos)
        << m_err;
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
    EXPECT_EQ(filesOn("COPY2").size(), 5U);
    EXPECT_EQ(report()["disks"][0]["outcome"], "leftOut");
}

TEST_F(Duplicate, EraseThatFailsIsToldAndTheRestGoesOn)
{
    m_machine["failing"] = {"eraseDisk B"};
    m_options.erase = m_options.yes = true;
    EXPECT_EQ(duplicate(), SomethingFailed);
    EXPECT_NE(m_err.find("Slot-B (COPY1): could not be erased: Error: the disk could not be erased"),
              std::string::npos)
        << m_err;
    EXPECT_EQ(filesOn("COPY2"), filesOn("Master"));
    EXPECT_EQ(report()["disks"][0]["outcome"], "eraseFailed");
}

TEST_F(Duplicate, DiskThatCouldNotBeErasedKeepsWhatItHolds)
{
    m_machine["failing"] = {"eraseDisk B"};
    m_options.erase = m_options.yes = true;
    EXPECT_EQ(duplicate(), SomethingFailed);
    EXPECT_EQ(filesOn("COPY1"), (Files{"old1"}));
    EXPECT_EQ(report()["destinations"].size(), 2U) << "C and D";
}

TEST_F(Duplicate, BlankDiskWhoseEraseFailsIsNoDestination)
{
    m_machine["failing"] = {"eraseDisk D"};
    m_options.erase = m_options.yes = true;
    EXPECT_EQ(duplicate(), SomethingFailed);
    EXPECT_EQ(report()["destinations"].size(), 2U);
}

TEST_F(Duplicate, EnclosureThatIsPulledDuringTheEraseEndsTheRun)
{
    m_options.erase = m_options.yes = true;
    beforeEachTool([this](const Files &words) {
        if (words[2] == "COPY2")
            move("detach", "1");
    });
    EXPECT_EQ(duplicate(), NotThere);
    EXPECT_NE(m_err.find("The selected device is no longer there."), std::string::npos) << m_err;
    EXPECT_EQ(report()["note"], "The selected device is no longer there.");
    EXPECT_EQ(report()["disks"][2]["outcome"], "eraseFailed");
}

TEST_F(Duplicate, JsonIsOneObjectALineAndNamesTheDisks)
{
    m_options.erase = m_options.yes = m_options.json = true;
    EXPECT_EQ(duplicate(), AllDone) << m_err;
    std::vector<Json> events;
    std::istringstream lines(m_out);
    for (std::string line; std::getline(lines, line);)
        events.push_back(Json::parse(line));
    EXPECT_EQ(events.front()["text"].get<std::string>().substr(0, 7), "Erasing");
    EXPECT_EQ(events.back()["event"], "end");
    EXPECT_EQ(events.back()["disks"].size(), 3U);
}

TEST_F(Duplicate, SignalDuringAnEraseEndsTheRunAfterTheDiskInHand)
{
    m_machine["delays"] = {{"eraseDisk", 3000}};
    m_options.erase = m_options.yes = true;
    EXPECT_EQ(duplicateUntil("Erasing"), 130);
    EXPECT_TRUE(filesOn("COPY1").empty());
    EXPECT_FALSE(isMounted("Untitled"));
    EXPECT_NE(log().find("User Cancel"), std::string::npos);
    EXPECT_EQ(report()["outcome"], "cancelled");
    EXPECT_EQ(report()["disks"][2]["reason"], "the erase was stopped before it");
}

TEST_F(Duplicate, SignalDuringTheCopyEndsItAndTheDisksCanBeEjected)
{
    bay(0)["volumes"][0]["content"] = {{{"path", "Many"}, {"bytes", 60'000}, {"files", 300}}};
    bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 300}};
    EXPECT_EQ(duplicateUntil("Duplicating"), 130);
    EXPECT_LT(filesOn("COPY1").size(), 300U);
    EXPECT_NE(log().find("User Cancel"), std::string::npos);
    m_disks.yes = true;
    EXPECT_EQ(eject(), AllDone) << m_err;
    EXPECT_FALSE(isMounted("COPY1"));
}

TEST_F(Duplicate, SourceThatIsLostDuringTheEraseIsNotSaidToHaveLeftAllUntouched)
{
    m_options.source = "STICK";
    m_options.erase = m_options.yes = true;
    beforeEachTool([this](const Files &words) {
        if (std::find(words.begin(), words.end(), "eraseDisk") != words.end() && isMounted("STICK"))
            move("unmount", "STICK");
    });
    EXPECT_EQ(duplicate(), NotThere);
    EXPECT_EQ(m_err.find("nothing was touched"), std::string::npos) << m_err;
    EXPECT_NE(m_err.find("nothing was copied, and the report says which disks were erased"),
              std::string::npos)
        << m_err;
    EXPECT_TRUE(filesOn("COPY1").empty());
}

} // namespace orvana::cli
