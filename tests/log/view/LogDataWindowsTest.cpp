#include "log/view/LogViewerFixture.h"

namespace orvana
{

TEST_F(LogViewer, WithoutLogsOnlyTheFolderIsListedAndTheTextIsEmpty)
{
    open();
    EXPECT_EQ(rows(), QStringList{QStringLiteral("Documents")});
    EXPECT_EQ(selected(), "Documents");
    EXPECT_EQ(text(), "");
}

TEST_F(LogViewer, ListsNewestLogFirstWithTheFolderSelected)
{
    makeTwoLogs();
    open();
    const QStringList expected{QStringLiteral("Documents"), QString::fromLatin1(Newer),
                               QString::fromLatin1(Older)};
    EXPECT_EQ(rows(), expected);
    EXPECT_EQ(selected(), "Documents");
}

TEST_F(LogViewer, ListDoesNotDependOnTheWorkingFolder)
{
    makeTwoLogs();
    const test::TemporaryTree elsewhere;
    const auto before = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(elsewhere.root()));
    open();
    QDir::setCurrent(before);
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(LogViewer, ClickShowsALogAndTheFolderClearsTheText)
{
    makeTwoLogs();
    open();
    click(Older);
    EXPECT_EQ(text(), "older run\n");
    click("Documents");
    EXPECT_EQ(text(), "");
}

TEST_F(LogViewer, LogThatIsAskedForIsSelectedAndShown)
{
    open();
    makeTwoLogs(); // since the list was read
    m_window->showLog(m_window->LogDirPath() + "/" + Older);
    EXPECT_EQ(selected(), Older);
    EXPECT_EQ(text(), "older run\n");
    m_window->showLog(m_window->LogDirPath() + "/none-Log.txt");
    EXPECT_EQ(selected(), Older);
}

TEST_F(LogViewer, ArrowKeysShowWhatTheySelect)
{
    makeTwoLogs();
    open();
    press(Qt::Key_Down);
    EXPECT_EQ(text(), "newer run\n");
    press(Qt::Key_Down);
    EXPECT_EQ(text(), "older run\n");
    press(Qt::Key_Up);
    EXPECT_EQ(text(), "newer run\n");
}

TEST_F(LogViewer, KeysThatOverlapShowWhatIsSelectedInTheEnd)
{
    makeTwoLogs();
    open();
    press(Qt::Key_Down);
    QTest::keyPress(list(), Qt::Key_Down);
    QTest::keyPress(list(), Qt::Key_Up);
    QTest::keyRelease(list(), Qt::Key_Down);
    QTest::keyRelease(list(), Qt::Key_Up);
    EXPECT_EQ(selected(), Newer);
    EXPECT_EQ(text(), "newer run\n");
}

TEST_F(LogViewer, HeldDeleteKeyRemovesOneLog)
{
    makeTwoLogs();
    log("20261123-000000-Log.txt", "newest run\n");
    open();
    click(Older);
    QTest::keyPress(list(), Qt::Key_Delete);
    for (int i = 0; i < 3; ++i) {
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier, {}, true);
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, true);
        QApplication::sendEvent(list(), &up);
        QApplication::sendEvent(list(), &down);
    }
    QTest::keyRelease(list(), Qt::Key_Delete);
    EXPECT_EQ(test::treeOf(m_tree.path("Documents")).size(), 2U);
}

TEST_F(LogViewer, ListHasTheKeyboardAtFirst)
{
    open();
    EXPECT_EQ(m_window->focusWidget(), list());
}

TEST_F(LogViewer, OtherKeysLeaveTheTextAlone)
{
    makeTwoLogs();
    open();
    press(Qt::Key_End);
    EXPECT_EQ(selected(), Older);
    EXPECT_EQ(text(), "");
}

TEST_F(LogViewer, LogThatIsNotUtf8ShowsAnEmptyText)
{
    log(Older, "older run\n");
    log(Newer, "\xFF\xFE");
    open();
    click(Older);
    click(Newer);
    EXPECT_EQ(text(), "");
}

TEST_F(LogViewer, LogThatVanishedShowsAnEmptyText)
{
    const auto path = log(Older, "older run\n");
    open();
    ::unlink(path.c_str());
    click(Older);
    EXPECT_EQ(text(), "");
}

TEST_F(LogViewer, BackspaceAndDeleteBothRemoveTheSelectedLog)
{
    makeTwoLogs();
    open();
    click(Newer);
    press(Qt::Key_Backspace);
    EXPECT_FALSE(m_tree.exists(std::string("Documents/") + Newer));
    click(Older);
    press(Qt::Key_Delete);
    EXPECT_TRUE(test::treeOf(m_tree.path("Documents")).empty());
}

TEST_F(LogViewer, ReportGoesWithItsLog)
{
    makeTwoLogs();
    log("20261121-102030-Report.json", "{}");
    log("20261122-090000-Report.json", "{}");
    open();
    click(Older);
    press(Qt::Key_Delete);
    const std::vector<std::string> expected{Newer, "20261122-090000-Report.json"};
    EXPECT_EQ(test::treeOf(m_tree.path("Documents")), expected);
}

TEST_F(LogViewer, DeletingTheLastRowSelectsTheRowAbove)
{
    makeTwoLogs();
    open();
    click(Older);
    press(Qt::Key_Delete);
    EXPECT_EQ(selected(), Newer);
    EXPECT_EQ(text(), "older run\n") << "the text is not refreshed";
}

TEST_F(LogViewer, DeletingTheOnlyLogLeavesTheFolderSelected)
{
    log(Older, "older run\n");
    open();
    click(Older);
    press(Qt::Key_Delete);
    EXPECT_EQ(rows(), QStringList{QStringLiteral("Documents")});
    EXPECT_EQ(selected(), "Documents");
}

TEST_F(LogViewer, DeleteOnTheFoldersRowDoesNothing)
{
    makeTwoLogs();
    open();
    log("20261123-000000-Log.txt", "not listed yet");
    press(Qt::Key_Delete);
    EXPECT_EQ(rows().size(), 3);
    EXPECT_EQ(test::treeOf(m_tree.path("Documents")).size(), 3U);
}

TEST_F(LogViewer, DeleteWithNothingSelectedRemovesNothingAndRefreshesTheList)
{
    makeTwoLogs();
    open();
    list()->selectionModel()->clear();
    log("20261123-000000-Log.txt", "new");
    press(Qt::Key_Delete);
    EXPECT_EQ(rows().size(), 4);
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(test::treeOf(m_tree.path("Documents")).size(), 3U);
}

TEST_F(LogViewer, KeyThatWentDownElsewhereRemovesNothing)
{
    makeTwoLogs();
    open();
    click(Newer);
    QTest::keyRelease(list(), Qt::Key_Delete);
    EXPECT_TRUE(m_tree.exists(std::string("Documents/") + Newer));
}

TEST_F(LogViewer, BackspaceInTheSearchFieldRemovesNothing)
{
    makeTwoLogs();
    open();
    click(Newer);
    QTest::keyClick(find<QLineEdit>("findText"), Qt::Key_Backspace);
    EXPECT_TRUE(m_tree.exists(std::string("Documents/") + Newer));
}

TEST_F(LogViewer, FolderWithALogsNameStaysAndTheFailureIsInTheSystemLog)
{
    m_tree.folder(std::string("Documents/") + Older);
    open();
    click(Older);
    const test::LogLines systemLog;
    press(Qt::Key_Delete);
    EXPECT_EQ(systemLog.all(), std::vector<std::string>{"Error removing file at path: Not a regular file"});
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(LogViewer, LogBelowAFolderIsNotTakenForOneOfTheSameNameAbove)
{
    log(Older, "above");
    m_tree.file(std::string("Documents/9 Log.txt/") + Older, "below");
    open();
    list()->setCurrentIndex(list()->indexBelow(rowOf("9 Log.txt")));
    ASSERT_EQ(selected(), Older);
    press(Qt::Key_Delete);
    EXPECT_EQ(test::treeOf(m_tree.path("Documents")).size(), 3U);
}

TEST_F(LogViewer, FileThatTheUserMayNotRemoveIsLeftAloneSilently)
{
    makeTwoLogs();
    open();
    click(Newer);
    ASSERT_EQ(::chmod(m_tree.path("Documents").c_str(), 0555), 0);
    ASSERT_EQ(::chmod(m_tree.root().c_str(), 0755), 0);
    const test::LogLines systemLog;
    // The rights of this one thread: root may remove what an ordinary user may not.
    const bool isRoot = ::geteuid() == 0;
    constexpr long Unchanged = -1;
    if (isRoot) {
        ASSERT_EQ(::syscall(SYS_setresuid, Unchanged, 65534L, Unchanged), 0);
    }
    press(Qt::Key_Delete);
    if (isRoot) {
        ASSERT_EQ(::syscall(SYS_setresuid, Unchanged, 0L, Unchanged), 0);
    }
    EXPECT_TRUE(systemLog.all().empty());
    EXPECT_TRUE(m_tree.exists(std::string("Documents/") + Newer));
    EXPECT_EQ(selected(), Newer);
}

TEST_F(LogViewer, DeleteAllLogsRemovesEveryLogAndNothingElse)
{
    makeTwoLogs();
    log("my Log.txt notes", "counts as one");
    log("thesis.txt", "does not");
    log(".hidden-Log.txt", "does not");
    open();
    click(Older);
    press("deleteAllButton");
    const std::vector<std::string> expected{".hidden-Log.txt", "thesis.txt"};
    EXPECT_EQ(test::treeOf(m_tree.path("Documents")), expected);
    EXPECT_EQ(selected(), "Documents");
    EXPECT_EQ(text(), "");
}

TEST_F(LogViewer, DeleteAllLogsWithoutAnyClearsTheText)
{
    const auto path = log(Older, "older run\n");
    open();
    click(Older);
    ::unlink(path.c_str());
    press("deleteAllButton");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(rows().size(), 2) << "nothing was removed, so nothing was read again";
}

TEST_F(LogViewer, EnterNeverPressesDeleteAllLogs)
{
    makeTwoLogs();
    open();
    auto *button = find<QPushButton>("deleteAllButton");
    EXPECT_FALSE(button->isDefault());
    for (QWidget *widget : std::initializer_list<QWidget *>{list(), m_window.get(), button}) {
        QTest::keyClick(widget, Qt::Key_Return);
        QTest::keyClick(widget, Qt::Key_Enter);
    }
    EXPECT_EQ(test::treeOf(m_tree.path("Documents")).size(), 2U);
}

} // namespace orvana
