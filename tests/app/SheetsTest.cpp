#include "app/Sheets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

void press(const Sheets &sheets, const QString &text)
{
    for (auto *button : sheets.current()->buttons()) {
        if (button->text().remove(QLatin1Char('&')) == text) {
            button->click();
            QApplication::processEvents();
            return;
        }
    }
    FAIL() << "no button " << text.toStdString();
}

} // namespace

TEST(Sheets, ComeOneAfterTheOtherAndTellTheirAnswer)
{
    QWidget window;
    window.show();
    Sheets sheets(window);
    std::vector<int> answers;
    sheets.show({.message = QStringLiteral("One"),
                 .text = {},
                 .buttons = {QStringLiteral("OK"), QStringLiteral("Cancel")},
                 .completion = [&](int button) { answers.push_back(button); }});
    sheets.show({.message = QStringLiteral("Two"), .text = {}});
    ASSERT_NE(sheets.current(), nullptr);
    EXPECT_EQ(sheets.current()->text(), QStringLiteral("One"));
    press(sheets, QStringLiteral("Cancel"));
    EXPECT_EQ(answers, std::vector{1});
    ASSERT_NE(sheets.current(), nullptr);
    EXPECT_EQ(sheets.current()->text(), QStringLiteral("Two"));
    press(sheets, QStringLiteral("OK"));
    EXPECT_EQ(sheets.current(), nullptr);
}

TEST(Sheets, WithdrawnOneIsGoneWithoutAnAnswerAndTheNextComes)
{
    QWidget window;
    window.show();
    Sheets sheets(window);
    int answers = 0;
    const auto shown =
        sheets.show({.message = QStringLiteral("One"), .text = {}, .completion = [&](int) { ++answers; }});
    const auto waiting = sheets.show({.message = QStringLiteral("Two"), .text = {}});
    sheets.show({.message = QStringLiteral("Three"), .text = {}});
    sheets.withdraw(waiting);
    sheets.withdraw(shown);
    QApplication::processEvents();
    ASSERT_NE(sheets.current(), nullptr);
    EXPECT_EQ(sheets.current()->text(), QStringLiteral("Three"));
    EXPECT_EQ(answers, 0);
    sheets.withdraw(shown);
}

} // namespace orvana
