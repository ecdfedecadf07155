// The window without a mouse.

#include "app/WindowFixture.h"

#include <QApplication>
#include <QMessageBox>
#include <QtTest/QTest>

#include <set>

namespace orvana
{

namespace
{

class KeyboardTest : public WindowTest
{
protected:
    KeyboardTest() { bay(3)["attached"] = false; } // a blank disk would turn erase on

    void startActive()
    {
        start();
        QApplication::setActiveWindow(&window());
    }

    /// Presses Tab until the widget has the keyboard. Fails when it never gets it.
    void tabTo(QWidget *wanted)
    {
        for (int i = 0; i < 40 && window().focusWidget() != wanted; ++i)
            QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(window().focusWidget(), wanted);
    }

    void chooseByKeys()
    {
        auto *picker = window().myTBDeviceViewController().tbDevicePopup;
        tabTo(picker);
        QTest::keyClick(picker, Qt::Key_Down);
        untilCounted();
    }
};

TEST_F(KeyboardTest, TabReachesEveryControl)
{
    startActive();
    chooseByKeys();
    std::set<QWidget *> reached;
    while (reached.insert(window().focusWidget()).second)
        QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
    for (auto *widget : window().findChildren<QWidget *>()) {
        const bool isControl = (widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->focusProxy();
        if (isControl && widget->isVisible() && widget->isEnabled() && !widget->inherits("QScrollArea")) {
            EXPECT_TRUE(reached.contains(widget)) << widget->objectName().toStdString();
        }
    }
    EXPECT_GT(reached.size(), 6U);
}

TEST_F(KeyboardTest, WholeRunGoesWithoutAMouse)
{
    startActive();
    chooseByKeys();
    auto *tree = files().findChild<QWidget *>(QStringLiteral("sourceFileListView"));
    ASSERT_TRUE(tree);
    tabTo(tree);
    QTest::keyClick(tree, Qt::Key_Home);
    QTest::keyClick(tree, Qt::Key_Space); // unticks the root, and ticks it again
    untilCounted();
    QTest::keyClick(tree, Qt::Key_Space);
    untilCounted();
    tabTo(actions().VerrifyFileCheckBox);
    QTest::keyClick(actions().VerrifyFileCheckBox, Qt::Key_Space);
    EXPECT_TRUE(actions().VerrifyFileCheckBox->isChecked());
    tabTo(actions().StartBtn);
    QTest::keyClick(actions().StartBtn, Qt::Key_Space);
    untilSheet("File Copy Completed");
    QTest::keyClick(window().sheets().current(), Qt::Key_Return);
    until([&] { return !window().sheets().current(); });
    auto expected = filesOn("Master");
    expected.emplace_back("old1"); // was there before
    EXPECT_EQ(filesOn("COPY1"), expected);
}

} // namespace

} // namespace orvana
