#include "app/MainMenu.h"

#include "app/BaySetupSheet.h"
#include "app/OrvanaAppDelegate.h"
#include "app/WindowFixture.h"

#include <QMenuBar>

namespace orvana
{

namespace
{

class MenuTest : public WindowTest
{
protected:
    void makeMenu()
    {
        m_delegate = std::make_unique<OrvanaAppDelegate>(context(), "Orvana");
        new MainMenu(window(), *m_delegate);
    }

    /// Returns the menu Run as it is when it opens.
    QMenu *runMenu()
    {
        for (auto *menu : window().menuBar()->findChildren<QMenu *>()) {
            if (menu->title() == QStringLiteral("&Run")) {
                Q_EMIT menu->aboutToShow();
                return menu;
            }
        }
        return nullptr;
    }

    QAction *entry(const QString &text)
    {
        for (auto *action : runMenu()->actions()) {
            if (action->text().remove(QLatin1Char('&')) == text)
                return action;
        }
        return nullptr;
    }

    QAction *setUpBays() { return entry(QStringLiteral("Set up bays...")); }
    QAction *mountDisks() { return entry(QStringLiteral("Mount disks")); }

    std::unique_ptr<OrvanaAppDelegate> m_delegate;
};

} // namespace

TEST_F(MenuTest, EntriesOfTheRunMenuHaveDifferentMnemonics)
{
    start();
    makeMenu();
    std::set<QChar> letters;
    for (const auto *action : runMenu()->actions()) {
        if (action->isSeparator())
            continue;
        const auto at = action->text().indexOf(QLatin1Char('&'));
        ASSERT_GE(at, 0) << action->text().toStdString();
        EXPECT_TRUE(letters.insert(action->text()[at + 1].toLower()).second) << action->text().toStdString();
    }
}

TEST_F(MenuTest, BaysAreSetUpFromTheMenu)
{
    start();
    makeMenu();
    ASSERT_TRUE(setUpBays()->isEnabled());
    setUpBays()->trigger();
    EXPECT_TRUE(window().baySetup());
}

TEST_F(MenuTest, DisksAreMountedFromTheMenuOnceAnEnclosureIsChosen)
{
    bay(1)["volumes"][0]["mounted"] = false;
    start();
    makeMenu();
    EXPECT_FALSE(mountDisks()->isEnabled());
    chooseEnclosure(1);
    untilCounted();
    ASSERT_TRUE(mountDisks()->isEnabled());
    mountDisks()->trigger();
    EXPECT_TRUE(isMounted("COPY1"));
}

TEST_F(MenuTest, NeitherWorksDuringARun)
{
    bay(3)["attached"] = false;
    bay(1)["volumes"][0]["faults"] = {{"delayMilliseconds", 40}};
    startWithEnclosure();
    makeMenu();
    EXPECT_TRUE(mountDisks()->isEnabled());
    pressStart();
    until([this] { return window().isBusy(); });
    EXPECT_FALSE(setUpBays()->isEnabled());
    EXPECT_FALSE(mountDisks()->isEnabled());
    pressStart();
    until([this] { return !window().isBusy(); });
    EXPECT_TRUE(setUpBays()->isEnabled());
    EXPECT_TRUE(mountDisks()->isEnabled());
}

} // namespace orvana
