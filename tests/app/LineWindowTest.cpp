// The production line in its window, on the simulated machine.

#include "app/LineWindow.h"

#include "app/WindowFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest/QTest>

namespace orvana
{

namespace
{

class LineWindowTest : public WindowTest
{
protected:
    LineWindowTest()
    {
        bay(0)["volumes"][0]["id"] = "MASTER-ID";
        bay(1)["attached"] = false;
    }
    ~LineWindowTest() override { delete m_line; }

    LineWindow &open()
    {
        startWithEnclosure();
        setVerify(true);
        setErase(true);
        untilCounted();
        return openAgain();
    }

    LineWindow &openAgain()
    {
        delete m_line;
        m_line = new LineWindow(
            context(), m_tree.path("state"),
            {window().jobNow().value(), window().chosenNow(), files().totalFiles(), files().totalSize()});
        m_line->show();
        return *m_line;
    }

    void sayYes()
    {
        QTest::qWait(800); // a click that comes sooner belongs to a double click
        button(QStringLiteral("Yes, write this disk")).click();
    }

    QPushButton &button(const QString &text) const
    {
        for (auto *one : m_line->findChildren<QPushButton *>()) {
            if (one->text().remove(QChar(u'&')) == text &&
                (one->isVisible() || text == QStringLiteral("Arm")))
                return *one;
        }
        ADD_FAILURE() << "no button " << text.toStdString();
        std::abort();
    }

    bool isShown(const QString &text) const
    {
        for (const auto *label : m_line->findChildren<QLabel *>()) {
            if (label->isVisible() && label->text().contains(text))
                return true;
        }
        return false;
    }

    void arm(int wanted = 2)
    {
        m_line->findChild<QSpinBox *>()->setValue(wanted);
        button(QStringLiteral("Arm")).click();
    }

    void insert()
    {
        move("attach", "1/B");
        pass(std::chrono::seconds(1));
    }

    LineBayState state(Bay bay) const { return m_line->line()->bay(bay).state; }

    QPointer<LineWindow> m_line;
};

} // namespace

TEST_F(LineWindowTest, DisksThatAreThereAskAndAreWrittenAfterAYes)
{
    bay(2)["attached"] = false;
    open();
    arm(1);
    ASSERT_TRUE(m_line->line());
    until([this] { return state(Bay::D) == LineBayState::Asking; });
    EXPECT_TRUE(isShown(QStringLiteral("? Asking")));
    EXPECT_TRUE(isShown(QStringLiteral("0 of 1")));
    EXPECT_TRUE(tools().empty());
    sayYes();
    until([this] { return state(Bay::D) == LineBayState::Passed; });
    EXPECT_TRUE(isShown(QStringLiteral("\u2713 Passed  #1")));
    EXPECT_TRUE(isShown(QStringLiteral("1 of 1")));
}

TEST_F(LineWindowTest, AnyKeyAndAnyClickStopACountdown)
{
    bay(1) = {{"bay", "B"},        {"model", "M"},       {"serial", "N1"},
              {"size", 1'000'000}, {"formatted", false}, {"attached", false}};
    open();
    arm();
    insert();
    until([this] { return state(Bay::B) == LineBayState::CountingDown; });
    QTest::keyClick(m_line, Qt::Key_Tab);
    EXPECT_EQ(state(Bay::B), LineBayState::Asking);
    button(QStringLiteral("Yes, write this disk")).click();
    EXPECT_EQ(state(Bay::B), LineBayState::Asking) << "the second half of a double click";
    sayYes();
    EXPECT_EQ(state(Bay::B), LineBayState::CountingDown);
    QTest::mouseClick(m_line, Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(state(Bay::B), LineBayState::Asking);
    EXPECT_TRUE(tools().empty());
}

TEST_F(LineWindowTest, StartIsRefusedWhileALineIsArmed)
{
    open();
    arm();
    pressStart();
    EXPECT_EQ(sheetText(), "A production line is armed. Disarm it first.");
    pressSheet("OK");
    button(QStringLiteral("No more disks")).click();
    EXPECT_TRUE(isShown(QStringLiteral("No more disks are taken")));
    pressStart();
    EXPECT_NE(sheetText(), "A production line is armed. Disarm it first.");
    EXPECT_TRUE(tools().empty());
}

TEST_F(LineWindowTest, WordsThatAreNotTheConsentArmNothing)
{
    open();
    m_line->findChildren<QLineEdit *>().last()->setText(QStringLiteral("erase everything"));
    arm();
    EXPECT_FALSE(m_line->line());
    EXPECT_TRUE(isShown(QStringLiteral("The words are")));
}

TEST_F(LineWindowTest, PatternIsCheckedBeforeTheFirstDisk)
{
    open();
    for (auto *field : m_line->findChildren<QLineEdit *>()) {
        if (field->placeholderText().startsWith(QStringLiteral("REEL")))
            field->setText(QStringLiteral("REEL {number}"));
    }
    arm();
    EXPECT_FALSE(m_line->line());
    EXPECT_TRUE(isShown(QStringLiteral("{number}: no field")));
}

TEST_F(LineWindowTest, LineWithoutVerifyingIsRefused)
{
    open();
    setVerify(false);
    openAgain();
    arm();
    EXPECT_FALSE(m_line->line());
    EXPECT_TRUE(isShown(QStringLiteral("does not verify")));
}

TEST_F(LineWindowTest, LineThatWasLeftIsOfferedAgain)
{
    open();
    arm(7);
    button(QStringLiteral("No more disks")).click();
    openAgain();
    auto *lines = m_line->findChild<QComboBox *>();
    ASSERT_EQ(lines->count(), 2);
    EXPECT_TRUE(lines->itemText(1).endsWith(QStringLiteral("0 of 7")));
    lines->setCurrentIndex(1);
    EXPECT_FALSE(m_line->findChild<QSpinBox *>()->isEnabled());
    button(QStringLiteral("Arm")).click();
    ASSERT_TRUE(m_line->line());
    EXPECT_EQ(m_line->line()->store().head().wanted, 7);
    EXPECT_TRUE(m_line->line()->isArmed());
}

TEST_F(LineWindowTest, WindowThatIsClosedTakesNoMoreDisks)
{
    open();
    arm();
    m_line->close();
    insert();
    pass(std::chrono::seconds(60));
    EXPECT_TRUE(tools().empty());
}

} // namespace orvana
