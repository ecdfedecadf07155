// The sheet asks for one bay after the other, and says what has come.

#include "app/BaySetupFixture.h"

namespace orvana
{

TEST_F(BaySetupTest, FourBaysBecomeAnEnclosureThatAppearsInThePicker)
{
    open();
    EXPECT_EQ(picker()->count(), 1);
    learnTwoAndName(QStringLiteral("Desk dock"));
    learn('C', "3");
    learn('D', "4");
    EXPECT_TRUE(definitions().empty()) << "nothing is written before Done";
    press(sheet()->doneButton);
    until([this] { return !sheet(); });
    ASSERT_EQ(definitions().size(), 1U);
    EXPECT_EQ(definitions()[0]["id"], "desk-dock");
    EXPECT_EQ(definitions()[0]["name"], "Desk dock");
    EXPECT_EQ(definitions()[0]["bays"].dump(),
              R"({"A":{"port":"1"},"B":{"port":"2"},"C":{"port":"3"},"D":{"port":"4"}})");
    until([this] { return picker()->count() == 2; });
    EXPECT_EQ(picker()->itemText(1), QStringLiteral("Desk dock"));
}

TEST_F(BaySetupTest, BayThatIsSkippedIsNotInTheDefinition)
{
    open();
    name(QStringLiteral("Two of three"));
    learn('A', "2");
    press(sheet()->skipButton);
    EXPECT_EQ(textOf('B'), "no such bay");
    learn('C', "1");
    press(sheet()->doneButton);
    until([this] { return !sheet(); });
    EXPECT_EQ(definitions()[0]["bays"].dump(), R"({"A":{"port":"2"},"C":{"port":"1"}})");
}

TEST_F(BaySetupTest, OneBayIsAskedForAfterTheOther)
{
    open();
    EXPECT_EQ(instruction(),
              "Put a disk into bay A. If one is there already, take it out and put it in again.");
    EXPECT_EQ(textOf('A'), "waiting for a disk");
    EXPECT_EQ(textOf('B'), "-");
    learn('A', "3");
    EXPECT_EQ(textOf('A').find("HD, serial number SN3, 8.79 KB, at pci-"), 0U) << textOf('A');
    EXPECT_EQ(textOf('B'), "waiting for a disk");
    EXPECT_TRUE(sheet()->captionB->font().bold());
    EXPECT_FALSE(sheet()->captionA->font().bold());
    EXPECT_EQ(sheet()->textB->accessibleName(), QStringLiteral("Bay B: waiting for a disk"));
    EXPECT_EQ(instruction().find("Put a disk into bay B."), 0U);
    for (int i = 0; i < 3; ++i)
        press(sheet()->skipButton);
    EXPECT_EQ(instruction(), "All bays have been asked for. Press Cancel and begin again.");
    EXPECT_FALSE(sheet()->skipButton->isEnabled());
}

TEST_F(BaySetupTest, DiskThatIsThereAtTheStartShowsNothingUntilItIsPutInAgain)
{
    m_machine["docks"][0]["disks"][0]["attached"] = true;
    open();
    pass(std::chrono::seconds(2));
    EXPECT_EQ(textOf('A'), "waiting for a disk");
    move("detach", "dock/1/1");
    pass(std::chrono::seconds(1));
    EXPECT_EQ(textOf('A'), "waiting for a disk");
    learn('A', "1");
}

TEST_F(BaySetupTest, DiskInAnEnclosureThatNeedsNoSetupIsToldAndTheBayIsStillAskedFor)
{
    m_machine["enclosures"] = Json::array(
        {{{"uid", 7},
          {"bays",
           Json::array(
               {{{"bay", "A"}, {"model", "M"}, {"serial", "M1"}, {"size", 9000}, {"attached", false}}})}}});
    open();
    EXPECT_TRUE(sheet()->problemText->isHidden());
    move("attach", "1/A");
    untilProblem(
        "M, serial number M1, 8.79 KB: it is in an enclosure that needs no setup; take another one.");
    EXPECT_TRUE(sheet()->problemText->isVisible());
    EXPECT_TRUE(sheet()->problemIcon->isVisible()) << "colour and words are not the only signs";
    EXPECT_EQ(textOf('A'), "waiting for a disk");
    learn('A', "1");
    EXPECT_TRUE(sheet()->problemText->isHidden()) << "it is over";
}

TEST_F(BaySetupTest, DiskWithTheRunningSystemIsRefused)
{
    m_machine["internalDisks"][0]["volumes"][0].erase("startup");
    m_machine["docks"][0]["disks"][0]["volumes"] =
        Json::array({{{"name", "Root"}, {"startup", true}, {"capacity", 9000}}});
    open();
    move("attach", "dock/1/1");
    untilProblem("SN1, 8.79 KB: it holds the running system; take another one.");
    EXPECT_EQ(textOf('A'), "waiting for a disk");
}

TEST_F(BaySetupTest, PortOfAnotherBayIsTold)
{
    open();
    learn('A', "1");
    move("detach", "dock/1/1");
    pass(std::chrono::seconds(1));
    move("attach", "dock/1/1");
    untilProblem("its port is the one of bay A.");
    EXPECT_EQ(textOf('B'), "waiting for a disk");
    press(sheet()->skipButton);
    EXPECT_TRUE(sheet()->problemText->isHidden()) << "it was about another bay";
}

TEST_F(BaySetupTest, PortOfAnotherEnclosureIsTold)
{
    m_machine["definitions"] =
        Json::parse(R"([{"id":"old","version":1,"name":"Old","anchor":{"usb":"2109:0817"},
        "bays":{"A":{"port":"1"},"B":{"port":"2"}}}])");
    open();
    move("attach", "dock/1/2");
    untilProblem("its port is Slot-B of Old already.");
}

TEST_F(BaySetupTest, TwoDisksAtOnceAreTold)
{
    open();
    move("attach", "dock/1/1");
    move("attach", "dock/1/2");
    untilProblem("Several disks came at once: HD, serial number SN1, 8.79 KB; HD, serial number SN2");
    EXPECT_EQ(textOf('A'), "waiting for a disk");
}

TEST_F(BaySetupTest, KeyboardGoesFromTheNameToTheButtons)
{
    open();
    EXPECT_EQ(sheet()->focusWidget(), sheet()->nameField);
    learnTwoAndName(QStringLiteral("Dock"));
    for (auto *next : std::initializer_list<QWidget *>{sheet()->skipButton, sheet()->doneButton,
                                                       sheet()->cancelButton, sheet()->nameField}) {
        QTest::keyClick(sheet()->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(sheet()->focusWidget(), next);
    }
    EXPECT_FALSE(sheet()->nameField->accessibleName().isEmpty());
    EXPECT_EQ(sheet()->nameLabel->buddy(), sheet()->nameField);
}

TEST_F(BaySetupTest, MachineIsLookedAtOnlyWhileTheSheetIsOpen)
{
    open();
    const int atTheStart = m_looksAtPorts;
    for (int i = 0; i < 80; ++i)
        pass(std::chrono::milliseconds(25));
    EXPECT_EQ(m_looksAtPorts - atTheStart, 8);
    sheet()->reject();
    const int atTheEnd = m_looksAtPorts;
    pass(std::chrono::seconds(2));
    EXPECT_EQ(m_looksAtPorts, atTheEnd);
}

TEST_F(BaySetupTest, LongTextsAreNeitherCutNorMakeTheSheetWide)
{
    m_machine["docks"][0]["disks"][0]["serial"] = std::string(400, 's');
    open();
    const int width = sheet()->width();
    move("attach", "dock/1/1");
    until([this] { return textOf('A') != "waiting for a disk"; });
    name(QString(64, QLatin1Char('w')));
    pass(std::chrono::seconds(1));
    EXPECT_EQ(sheet()->width(), width);
    for (const int wide : {width, width / 2 + 100}) {
        sheet()->resize(wide, 10);
        pass(std::chrono::milliseconds(10));
        for (const auto *label : sheet()->findChildren<QLabel *>()) {
            const bool isText = label->isVisible() && label->wordWrap();
            EXPECT_TRUE(!isText || label->height() >= label->heightForWidth(label->width()))
                << label->text().toStdString();
        }
    }
}

TEST_F(BaySetupTest, SecondWishShowsTheSheetThatIsOpen)
{
    open();
    const auto *first = sheet();
    window().setUpBays();
    EXPECT_EQ(sheet(), first);
    EXPECT_TRUE(sheet()->isModal());
    EXPECT_EQ(sheet()->windowModality(), Qt::WindowModal);
}

} // namespace orvana
