#include "app/BaySetupSheet.h"
#include "app/WindowFixture.h"

#include <QtTest/QTest>

#include <atomic>
#include <semaphore>
#include <thread>

namespace orvana
{

namespace
{

/// A machine without enclosures, but with a dock whose four disks are not in yet.
class BaySetupTest : public WindowTest
{
protected:
    BaySetupTest()
    {
        m_machine["enclosures"] = Json::array();
        m_machine["docks"] = Json::array({{{"usb", "2109:0817"}, {"disks", Json::array()}}});
        for (const char *port : {"1", "2", "3", "4"})
            m_machine["docks"][0]["disks"].push_back({{"port", port},
                                                      {"model", "HD"},
                                                      {"serial", std::string("SN") + port},
                                                      {"size", 9000},
                                                      {"attached", false}});
    }

    // A thread that still waits must end before the window's destructor waits for it.
    ~BaySetupTest() override { m_permission.release(AtMost); }

    void open()
    {
        start();
        window().setUpBays();
        ASSERT_TRUE(sheet());
    }

    BaySetupSheet *sheet() { return window().baySetup(); }
    std::string instruction() { return sheet()->instruction->text().toStdString(); }
    std::string reason() { return sheet()->reasonText->text().toStdString(); }
    std::string problem() { return sheet()->problemText->text().toStdString(); }
    std::string textOf(char bay) { return sheet()->textOf(bay)->text().toStdString(); }
    void name(const QString &text) { QTest::keyClicks(sheet()->nameField, text); }
    static void press(QPushButton *button) { QTest::mouseClick(button, Qt::LeftButton); }

    /// Puts the disk of that port in, and waits until the bay shows it.
    void learn(char bay, const std::string &port)
    {
        move("attach", "dock/1/" + port);
        until([&] { return textOf(bay).find("SN" + port) != std::string::npos; });
    }

    void untilProblem(const std::string &text)
    {
        until([&] { return problem().find(text) != std::string::npos; });
    }

    void learnTwoAndName(const QString &text)
    {
        name(text);
        learn('A', "1");
        learn('B', "2");
    }

    /// Lets each write wait until the test gives the permission.
    void holdBackWrites()
    {
        m_addDefinition = [this](auto &machine, const auto &definition) {
            m_isAsking = true;
            m_permission.acquire();
            return machine.add(definition);
        };
    }

    Json definitions() const
    {
        return Json::parse(m_tree.read("machine.json")).value("definitions", Json::array());
    }

    QComboBox *picker() { return window().myTBDeviceViewController().tbDevicePopup; }

    static constexpr int AtMost = 100;
    std::counting_semaphore<AtMost> m_permission{0};
    std::atomic<bool> m_isAsking{false};
};

} // namespace

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

TEST_F(BaySetupTest, DoneSaysWhyItIsOff)
{
    m_machine["definitions"] = Json::parse(
        R"([{"id":"dock","version":1,"name":"Dock","bays":{"A":{"path":"a"},"B":{"path":"b"}}}])");
    open();
    EXPECT_EQ(reason(), "Type a name for the enclosure.");
    EXPECT_FALSE(sheet()->doneButton->isEnabled());
    name(QStringLiteral(" - "));
    EXPECT_EQ(reason(), "The name \"-\" needs a letter or a digit.");
    name(QStringLiteral("2"));
    EXPECT_EQ(reason(), "An enclosure needs two to four bays.");
    learn('A', "1");
    EXPECT_EQ(reason(), "An enclosure needs two to four bays.");
    EXPECT_FALSE(sheet()->doneButton->isEnabled());
    learn('B', "2");
    EXPECT_EQ(reason(), "Done writes an enclosure with 2 bays.");
    EXPECT_TRUE(sheet()->doneButton->isEnabled());
    sheet()->nameField->setText(QStringLiteral("DOCK"));
    EXPECT_EQ(reason(), "There is an enclosure \"Dock\" (dock.json) already.");
    EXPECT_FALSE(sheet()->doneButton->isEnabled());
    sheet()->nameField->clear();
    EXPECT_FALSE(sheet()->doneButton->isEnabled());
}

TEST_F(BaySetupTest, NameThatAnotherProgramTookMeanwhileIsToldAtDone)
{
    open();
    learnTwoAndName(QStringLiteral("Dock"));
    auto machine = Json::parse(m_tree.read("machine.json"));
    machine["definitions"] = Json::parse(
        R"([{"id":"dock","version":1,"name":"Dock","bays":{"A":{"path":"a"},"B":{"path":"b"}}}])");
    m_tree.file("machine.json", machine.dump());
    press(sheet()->doneButton);
    pass(std::chrono::seconds(1));
    ASSERT_TRUE(sheet());
    EXPECT_EQ(reason(), "There is an enclosure \"Dock\" (dock.json) already.");
    EXPECT_EQ(definitions().size(), 1U);
}

TEST_F(BaySetupTest, CancelAndEscapeWriteNothing)
{
    open();
    learnTwoAndName(QStringLiteral("Dock"));
    press(sheet()->cancelButton);
    until([this] { return !sheet(); });
    window().setUpBays();
    EXPECT_EQ(textOf('A'), "waiting for a disk") << "it begins anew";
    QTest::keyClick(sheet(), Qt::Key_Escape);
    until([this] { return !sheet(); });
    EXPECT_TRUE(definitions().empty());
}

TEST_F(BaySetupTest, ReturnNeverPressesDone)
{
    open();
    learnTwoAndName(QStringLiteral("Dock"));
    ASSERT_TRUE(sheet()->doneButton->isEnabled());
    for (auto *control : std::initializer_list<QWidget *>{sheet()->nameField, sheet()->skipButton, sheet()}) {
        QTest::keyClick(control, Qt::Key_Return);
        pass(std::chrono::milliseconds(100));
        ASSERT_TRUE(sheet());
    }
    EXPECT_EQ(textOf('C'), "waiting for a disk") << "nor \"No such bay\"";
    EXPECT_TRUE(definitions().empty());
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

TEST_F(BaySetupTest, WindowLivesWhileThePermissionIsAwaited)
{
    open();
    learnTwoAndName(QStringLiteral("Dock"));
    holdBackWrites();
    press(sheet()->doneButton);
    until([this] { return m_isAsking.load(); });
    EXPECT_EQ(reason(), "Waiting for the permission to write it ...");
    for (auto *control : std::initializer_list<QWidget *>{sheet()->nameField, sheet()->skipButton,
                                                          sheet()->doneButton, sheet()->cancelButton})
        EXPECT_FALSE(control->isEnabled());
    QTest::keyClick(sheet(), Qt::Key_Escape);
    sheet()->close();
    pass(std::chrono::seconds(1));
    ASSERT_TRUE(sheet()) << "it cannot say any more that nothing is written";
    m_permission.release();
    until([this] { return !sheet(); });
    EXPECT_EQ(definitions().size(), 1U);
}

TEST_F(BaySetupTest, FailureIsToldAndCanBeTriedAgain)
{
    open();
    learnTwoAndName(QStringLiteral("Dock"));
    const auto write = m_addDefinition;
    m_addDefinition = [](auto &, const auto &) {
        return tl::unexpected(
            std::string("the question for the password was dismissed; nothing was written"));
    };
    press(sheet()->doneButton);
    untilProblem("The question for the password was dismissed; nothing was written.");
    EXPECT_TRUE(sheet()->cancelButton->isEnabled());
    EXPECT_EQ(sheet()->focusWidget(), sheet()->doneButton);
    EXPECT_EQ(textOf('C'), "waiting for a disk") << "more can still be learned";
    m_addDefinition = write;
    press(sheet()->doneButton);
    until([this] { return !sheet(); });
    EXPECT_EQ(definitions().size(), 1U);
}

TEST_F(BaySetupTest, DiskThatComesDuringAFailedWriteIsLearnedAfterIt)
{
    open();
    learnTwoAndName(QStringLiteral("Dock"));
    m_addDefinition = [this](auto &, const auto &) {
        m_isAsking = true;
        m_permission.acquire();
        return tl::unexpected(std::string("no"));
    };
    press(sheet()->doneButton);
    until([this] { return m_isAsking.load(); });
    move("attach", "dock/1/3");
    pass(std::chrono::seconds(2));
    EXPECT_EQ(textOf('C'), "waiting for a disk");
    m_permission.release();
    until([this] { return textOf('C').find("SN3") != std::string::npos; });
}

TEST_F(BaySetupTest, SheetMayGoWhileTheDefinitionIsWritten)
{
    open();
    learnTwoAndName(QStringLiteral("Dock"));
    holdBackWrites();
    press(sheet()->doneButton);
    until([this] { return m_isAsking.load(); });
    delete sheet();
    m_permission.release();
    until([this] { return definitions().size() == 1; });
    until([this] { return picker()->count() == 2; });
}

TEST_F(BaySetupTest, WindowThatIsClosedMeanwhileWaitsForTheWrite)
{
    open();
    learnTwoAndName(QStringLiteral("Dock"));
    holdBackWrites();
    press(sheet()->doneButton);
    until([this] { return m_isAsking.load(); });
    std::thread user([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        m_permission.release();
    });
    closeWindow();
    EXPECT_EQ(definitions().size(), 1U) << "nothing that it uses was destroyed before";
    user.join();
    m_queue.runDue(); // the outcome reaches nobody any more
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
