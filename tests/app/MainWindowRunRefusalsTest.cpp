// Runs that do not start, or that start with fewer destinations.

#include "app/RunControlFixture.h"

#include "ui/SystemColor.h"

namespace orvana
{

TEST_F(RunTest, AllDestinationsTooSmallStartNothing)
{
    startWithEnclosure();
    for (const char *row : {"Slot-B", "Slot-C", "Slot-D"})
        slots().setTextColor(row, SystemColor::red());
    pressStart();
    EXPECT_EQ(sheetMessage(), "Insufficient Disk Space");
    EXPECT_EQ(sheetText(), "There is insufficient free disk space on the destination drive(s).");
    EXPECT_EQ(title(), "Start");
    pressSheet("OK");
    EXPECT_FALSE(window().isBusy());
    EXPECT_FALSE(hasLog());
}

TEST_F(RunTest, OneTooSmallIsNamedAndLeftOutAfterOk)
{
    startWithEnclosure();
    slots().setTextColor("Slot-C", SystemColor::red());
    pressStart();
    EXPECT_EQ(sheetText(), "There is insufficient free disk space on the destination drive(s) COPY2.\n\n"
                           "Press OK to continue duplicating to the remaining drive(s).");
    pressSheet("OK");
    untilCompleted();
    EXPECT_EQ(filesOn("COPY1").size(), 5U);
    EXPECT_EQ(filesOn("COPY2"), Files{"old2"});
}

TEST_F(RunTest, OneTooSmallAndCancelStartsNothing)
{
    startWithEnclosure();
    slots().setTextColor("Slot-C", SystemColor::red());
    pressStart();
    pressSheet("Cancel");
    pass(std::chrono::seconds(1));
    EXPECT_FALSE(window().isBusy());
    EXPECT_FALSE(hasLog());
    EXPECT_EQ(title(), "Start");
}

TEST_F(RunTest, EmptyFileListRestoresTheTitleAloneAndTheNextClickIsCancel)
{
    startWithEnclosure();
    files().showRoot(nullptr);
    pressStart();
    EXPECT_EQ(title(), "Start");
    EXPECT_TRUE(actions().isDuplicating());
    EXPECT_FALSE(window().isBusy());
    pressStart();
    EXPECT_FALSE(actions().isDuplicating());
    EXPECT_NE(log().find("User Cancel\n"), std::string::npos);
}

TEST_F(RunTest, PlaceholderLabelsAskForADeviceAndTheNextClickIsCancel)
{
    start();
    files().showRoot(std::make_shared<const std::string>(m_tree.folder("somewhere")));
    window().displayDialog(1, false);
    pressStart();
    EXPECT_EQ(sheetMessage(), "Infomation");
    EXPECT_EQ(sheetText(), "You must select a Orvana Storage Device first.");
    EXPECT_EQ(title(), "Start");
    EXPECT_TRUE(actions().isDuplicating());
    pressSheet("OK");
    pressStart();
    EXPECT_FALSE(actions().isDuplicating());
}

TEST_F(RunTest, EraseWithoutAnEnclosureTouchesNothingAndWarnsOfNothing)
{
    start();
    setErase(true);
    pressStart();
    until([this] { return !actions().isErasing(); });
    EXPECT_EQ(sheetMessage(), "");
    EXPECT_EQ(title(), "Start");
    EXPECT_TRUE(tools().empty());
}

TEST_F(RunTest, SlotThatIsStillUnformattedAfterTheEraseIsNoDestination)
{
    bay(3)["attached"] = true;
    m_machine["failing"] = Json::array({"eraseDisk D"});
    startWithEnclosure();
    startErase();
    untilCompleted();
    EXPECT_EQ(slots().SlotD(), "Unformatted");
    EXPECT_EQ(report()["destinations"].size(), 2U);
}

} // namespace orvana
