// The end of the setup: what Done writes, and what keeps it from writing.

#include "app/BaySetupFixture.h"

namespace orvana
{

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

} // namespace orvana
