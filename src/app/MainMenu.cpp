#include "app/MainMenu.h"

#include "app/MainWindow.h"
#include "app/OrvanaAppDelegate.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "version/view/WebFetch.h"

#include <QAbstractButton>
#include <QMenuBar>

#include <utility>

namespace orvana
{

MainMenu::MainMenu(MainWindow &window, OrvanaAppDelegate &delegate)
    : QObject(&window), m_window(window), m_delegate(delegate)
{
    makeFileMenu();
    makeRunMenu();
    makeHelpMenu();
}

QAction *MainMenu::add(QMenu *menu, const QString &text, const QKeySequence &keys, std::function<void()> work)
{
    auto *action = menu->addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, std::move(work));
    return action;
}

void MainMenu::press(QMenu *menu, const QString &text, const QKeySequence &keys, QAbstractButton *button)
{
    auto *action = add(menu, text, keys, [button] {
        if (button->isVisible())
            button->click();
    });
    if (button->isCheckable())
        action->setCheckable(true);
    m_mirrored.append({action, button});
}

void MainMenu::makeFileMenu()
{
    auto *menu = m_window.menuBar()->addMenu(tr("&File"));
    m_rescan = add(menu, tr("&Rescan"), QKeySequence::Refresh, [this] {
        if (!m_window.isBusy())
            m_window.rescanDevice();
    });
    add(menu, tr("&Logs"), QKeySequence(Qt::CTRL | Qt::Key_L), [this] { m_delegate.showLogDataWindows(); });
    menu->addSeparator();
    m_openJob = add(menu, tr("&Open job..."), QKeySequence::Open, [this] { m_window.askForJob(false); });
    m_saveJob = add(menu, tr("&Save job..."), QKeySequence::Save, [this] { m_window.askForJob(true); });
    menu->addSeparator();
    add(menu, tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { m_window.close(); });
    connect(menu, &QMenu::aboutToShow, this, &MainMenu::update);
}

void MainMenu::makeRunMenu()
{
    auto &actions = m_window.myCopyActionViewController();
    auto &slots = m_window.myDiskInfoViewController();
    auto *menu = m_window.menuBar()->addMenu(tr("&Run"));
    press(menu, tr("&Start"), QKeySequence(Qt::CTRL | Qt::Key_Return), actions.StartBtn);
    menu->addSeparator();
    press(menu, tr("&Verify"), QKeySequence(Qt::CTRL | Qt::Key_Y), actions.VerrifyFileCheckBox);
    press(menu, tr("&Erase Destination Disks"), {}, actions.EraseDiskCheckBox);
    m_options = add(menu, tr("&Options for this run..."), {}, [this] { m_window.chooseOptions(); });
    m_goOn = add(menu, tr("&Go on with the last run"), {}, [this] { m_window.goOn(); });
    menu->addSeparator();
    press(menu, tr("E&ject Source"), QKeySequence(Qt::CTRL | Qt::Key_E), slots.EjectSourceDiskBtn);
    press(menu, tr("Eject &Destinations"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E),
          slots.EjectTargetDiskBtn);
    m_mountDisks = add(menu, tr("&Mount disks"), {}, [this] { m_window.mountDisks(); });
    menu->addSeparator();
    m_setUpBays = add(menu, tr("Set up &bays..."), {}, [this] { m_window.setUpBays(); });
    menu->addSeparator();
    add(menu, tr("Verify dis&ks..."), {}, [this] { m_delegate.showVerifyWindow(); });
    m_line = add(menu, tr("&Production line..."), {}, [this] { m_delegate.showLineWindow(); });
    m_lastReport = add(menu, tr("&Last Report"), QKeySequence(Qt::CTRL | Qt::Key_R),
                       [this] { m_window.showLastReport(); });
    connect(menu, &QMenu::aboutToShow, this, &MainMenu::update);
}

void MainMenu::makeHelpMenu()
{
    auto *menu = m_window.menuBar()->addMenu(tr("&Help"));
    add(menu, tr("&How to Use"), QKeySequence::HelpContents, [this] { m_delegate.howToUse(); });
    if (mayFetchFromWeb())
        add(menu, tr("&Check for Updates"), {}, [this] { m_delegate.checkForUpdats(); });
    menu->addSeparator();
    add(menu, tr("&About Orvana Plurimo"), {}, [this] { m_delegate.showAbout(); });
}

void MainMenu::update()
{
    for (const auto &[action, button] : m_mirrored) {
        action->setEnabled(button->isVisible() && button->isEnabled());
        action->setChecked(button->isChecked());
    }
    m_mirrored.front().action->setText(m_window.myCopyActionViewController().StartBtn->text());
    m_rescan->setEnabled(!m_window.isBusy());
    m_mountDisks->setEnabled(m_window.mayMountDisks());
    m_setUpBays->setEnabled(!m_window.isBusy());
    for (auto *action : {m_openJob, m_saveJob, m_options})
        action->setEnabled(m_window.mayUseJobs());
    m_goOn->setEnabled(m_window.mayGoOn());
    m_line->setEnabled(m_window.mayUseJobs() || m_delegate.lineWindow());
    m_lastReport->setEnabled(m_window.hasReport());
}

} // namespace orvana
