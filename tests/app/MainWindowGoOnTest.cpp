// Going on, in the window, with a run that was broken off.

#include "app/WindowFixture.h"

namespace orvana
{

namespace
{

class GoOnTest : public WindowTest
{
protected:
    GoOnTest()
    {
        bay(0)["volumes"][0]["id"] = "MASTER-ID";
        bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 40}};
        bay(3)["attached"] = false; // a blank disk would turn erase on
    }

    /// Starts a run and cancels it before its last file.
    void breakOff()
    {
        startWithEnclosure();
        pressStart();
        until([this] { return filesOn("COPY1").size() > 1; });
        pressStart();
        until([this] { return !window().isBusy(); });
        pass(std::chrono::seconds(1));
    }

    void chooseAgain()
    {
        window().rescanDevice();
        chooseEnclosure(1);
        pass(std::chrono::milliseconds(10));
    }

    Files whole() const { return filesOn("Master"); }
};

} // namespace

TEST_F(GoOnTest, ChoosingTheEnclosureOffersIt)
{
    breakOff();
    ASSERT_NE(filesOn("COPY1"), whole());
    chooseAgain();
    ASSERT_EQ(sheetMessage(), "The last run was broken off");
    EXPECT_NE(sheetText().find("Slot-B: COPY1"), std::string::npos) << sheetText();
    EXPECT_NE(sheetText().find("Slot-C: COPY2"), std::string::npos);
    pressSheet("Go on");
    untilSheet("File Copy Completed");
    for (const auto &file : whole())
        EXPECT_EQ(m_tree.read("machine.json.volumes/Volumes/COPY1/" + file),
                  m_tree.read("machine.json.volumes/Volumes/Master/" + file));
    EXPECT_EQ(window().settings(), RunSettings()) << "options hold for one run";
    EXPECT_FALSE(window().mayGoOn()) << "nothing is left";
}

TEST_F(GoOnTest, WhoDoesNotWantToIsNotAskedAgainAndFindsItInTheMenu)
{
    breakOff();
    chooseAgain();
    pressSheet("Not now");
    chooseAgain();
    EXPECT_EQ(sheetMessage(), "");
    EXPECT_TRUE(window().mayGoOn());
    window().goOn();
    untilSheet("File Copy Completed");
    EXPECT_FALSE(window().mayGoOn());
}

TEST_F(GoOnTest, EraseIsSwitchedOff)
{
    breakOff();
    setErase(true);
    window().goOn();
    EXPECT_FALSE(actions().EraseDiskCheckBox->isChecked());
    untilSheet("File Copy Completed");
    EXPECT_TRUE(tools().empty()) << "no disk was touched by the utility";
}

TEST_F(GoOnTest, DisksThatAreGoneAreNotOffered)
{
    breakOff();
    move("detach", "1/B");
    move("detach", "1/C");
    pass(std::chrono::seconds(1));
    chooseAgain();
    EXPECT_EQ(sheetMessage(), "");
    EXPECT_FALSE(window().mayGoOn());
}

TEST_F(GoOnTest, NothingIsOfferedAfterAWholeRun)
{
    startWithEnclosure();
    pressStart();
    untilSheet("File Copy Completed");
    pressSheet("Done");
    chooseAgain();
    EXPECT_EQ(sheetMessage(), "");
    EXPECT_FALSE(window().mayGoOn());
}

TEST_F(GoOnTest, DiskThatIsFullOfTheCopyIsNotTooSmallForIt)
{
    bay(1)["volumes"][0]["content"][0]["bytes"] = 896'000;
    startWithEnclosure();
    EXPECT_TRUE(slots().isOverSize_SlotB());
    RunSettings settings;
    settings.manner.update = true;
    window().setSettings(settings);
    pass(std::chrono::milliseconds(10));
    EXPECT_FALSE(slots().isOverSize_SlotB());
    window().setSettings({});
    pass(std::chrono::milliseconds(10));
    EXPECT_TRUE(slots().isOverSize_SlotB());
}

} // namespace orvana
