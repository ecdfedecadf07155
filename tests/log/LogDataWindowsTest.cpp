#include "log/LogDataWindows.h"

#include "support/Recorder.h"
#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace orvana
{

class LogViewer : public testing::Test
{
protected:
    static constexpr const char *Older = "20261121-102030-Log.txt";
    static constexpr const char *Newer = "20261122-090000-Log.txt";

    LogViewer() { m_tree.folder("Documents"); }

    void makeTwoLogs()
    {
        log(Older, "older run\n");
        log(Newer, "newer run\n");
    }

    std::string log(const std::string &name, const std::string &content)
    {
        return m_tree.file("Documents/" + name, content);
    }

    void append(const std::string &name, const std::string &content) const
    {
        std::ofstream(m_tree.path("Documents/" + name), std::ios::binary | std::ios::app) << content;
    }

    LogDataWindows &open()
    {
        m_window = std::make_unique<LogDataWindows>(m_host, m_tree.path("Documents"));
        m_window->show();
        return *m_window;
    }

    QTreeView *list() { return m_window->myLogFileView(); }

    // All rows as they are shown, from the top.
    QStringList rows()
    {
        QStringList rows;
        for (auto index = list()->model()->index(0, 0); index.isValid(); index = list()->indexBelow(index))
            rows << index.data().toString();
        return rows;
    }

    QModelIndex rowOf(const std::string &name)
    {
        auto index = list()->model()->index(0, 0);
        while (index.isValid() && index.data().toString() != QString::fromStdString(name))
            index = list()->indexBelow(index);
        EXPECT_TRUE(index.isValid()) << name << " is not in the list";
        return index;
    }

    void click(const std::string &name)
    {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, list()->visualRect(rowOf(name)).center());
    }

    void press(Qt::Key key) { QTest::keyClick(list(), key); }
    void press(const char *button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }

    std::string selected()
    {
        const auto indexes = list()->selectionModel()->selectedIndexes();
        return indexes.isEmpty() ? "" : indexes.front().data().toString().toStdString();
    }

    std::string text() { return m_window->myLogFileTextView()->toPlainText().toStdString(); }

    template <class T>
    T *find(const char *name)
    {
        return m_window->findChild<T *>(QString::fromLatin1(name));
    }

    test::TemporaryTree m_tree;
    test::TestHost m_host{m_tree.root()};
    std::unique_ptr<LogDataWindows> m_window;
};

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

TEST_F(LogViewer, RefreshFindsNewLogsAndKeepsTheSelection)
{
    makeTwoLogs();
    open();
    click(Older);
    log("20261123-000000-Log.txt", "new");
    press("refreshButton");
    EXPECT_EQ(rows().size(), 4);
    EXPECT_EQ(selected(), Older);
    EXPECT_EQ(text(), "older run\n");
}

TEST_F(LogViewer, WindowThatIsShownAgainListsWhatIsNew)
{
    open();
    m_window->hide();
    log(Older, "older run\n");
    m_window->show();
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(LogViewer, RunningLogIsFollowed)
{
    log(Newer, "[2026/11/22 09:00:00]: one\n");
    open();
    click(Newer);
    append(Newer, "[2026/11/22 09:00:01]: two\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return text().ends_with("two\n"); }, 30000));
    EXPECT_EQ(text(), "[2026/11/22 09:00:00]: one\n[2026/11/22 09:00:01]: two\n");
}

TEST_F(LogViewer, FollowingStaysAtTheEndOnlyIfTheUserIsThere)
{
    std::string lines;
    for (int i = 0; i < 500; ++i)
        lines += "line\n";
    log(Newer, lines);
    open();
    click(Newer);
    auto *bar = m_window->myLogFileTextView()->verticalScrollBar();
    EXPECT_EQ(bar->value(), 0);
    append(Newer, lines);
    m_window->followShownLog();
    EXPECT_EQ(bar->value(), 0);
    bar->setValue(bar->maximum());
    append(Newer, lines);
    m_window->followShownLog();
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(LogViewer, LongLogShowsItsEndAndSaysSo)
{
    std::string lines;
    while (lines.size() < LogReader::ShownBytes)
        lines += std::string(999, 'x') + "\n";
    log(Older, lines + "the end\n");
    log(Newer, "short\n");
    open();
    click(Older);
    EXPECT_TRUE(text().ends_with("the end\n"));
    EXPECT_LT(text().size(), LogReader::ShownBytes);
    EXPECT_TRUE(find<QLabel>("hintLabel")->isVisible());
    click(Newer);
    EXPECT_FALSE(find<QLabel>("hintLabel")->isVisible());
}

TEST_F(LogViewer, EndlessLineIsFoldedAndNothingOfItIsLost)
{
    const std::string line = "[" + std::string(25000, 'x') + "]";
    log(Newer, "short\n" + line + "\nshort\n");
    open();
    click(Newer);
    EXPECT_EQ(m_window->myLogFileTextView()->blockCount(), 6);
    auto shown = text();
    shown.erase(std::remove(shown.begin(), shown.end(), '\n'), shown.end());
    EXPECT_EQ(shown, "short" + line + "short");
}

TEST_F(LogViewer, FindGoesOnFromMatchToMatchAndRoundTheEnd)
{
    log(Newer, "disk one\ndisk two\n");
    open();
    click(Newer);
    auto *field = find<QLineEdit>("findText");
    QTest::keyClicks(field, QStringLiteral("DISK"));
    const auto *view = m_window->myLogFileTextView();
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(view->textCursor().blockNumber(), 0);
    press("nextButton");
    EXPECT_EQ(view->textCursor().blockNumber(), 1);
    press("nextButton");
    EXPECT_EQ(view->textCursor().blockNumber(), 0);
    press("previousButton");
    EXPECT_EQ(view->textCursor().blockNumber(), 1);
    EXPECT_EQ(view->textCursor().selectedText(), QStringLiteral("disk"));
}

TEST_F(LogViewer, FindSaysWhenThereIsNothing)
{
    log(Newer, "disk one\n");
    open();
    click(Newer);
    QTest::keyClicks(find<QLineEdit>("findText"), QStringLiteral("tape"));
    press("nextButton");
    EXPECT_TRUE(find<QLabel>("notFoundLabel")->isVisible());
    QTest::keyClick(find<QLineEdit>("findText"), Qt::Key_Backspace);
    EXPECT_FALSE(find<QLabel>("notFoundLabel")->isVisible());
}

TEST_F(LogViewer, ControlFPutsTheCursorIntoTheSearchField)
{
    open();
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(find<QLineEdit>("findText")->hasFocus());
}

TEST_F(LogViewer, OpenFolderGoesThroughTheHostWithTheBytesOfThePath)
{
    m_window = std::make_unique<LogDataWindows>(m_host, m_tree.folder("Grö\xDF"
                                                                      "e 1"));
    press("openFolderButton");
    EXPECT_EQ(m_host.openedPages(), std::vector<std::string>{"file://" + m_tree.path("Gr%C3%B6%DFe%201")});
}

TEST_F(LogViewer, EveryControlHasAnAccessibleName)
{
    open();
    for (const auto *control : m_window->findChildren<QPushButton *>())
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
    EXPECT_FALSE(list()->accessibleName().isEmpty());
    EXPECT_FALSE(m_window->myLogFileTextView()->accessibleName().isEmpty());
    EXPECT_FALSE(find<QLineEdit>("findText")->accessibleName().isEmpty());
}

} // namespace orvana
