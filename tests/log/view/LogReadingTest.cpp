#include "log/view/LogViewerFixture.h"

namespace orvana
{

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
    EXPECT_EQ(m_host.openedFolders(), std::vector<std::string>{m_tree.path("Grö\xDF"
                                                                           "e 1")});
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
