#include "app/OrvanaAppDelegate.h"

#include "app/LineWindow.h"
#include "app/MainMenu.h"
#include "app/MainWindow.h"
#include "app/VerifyWindow.h"
#include "filetree/view/FileListViewController.h"
#include "foundation/NotificationCenter.h"
#include "log/view/LogDataWindows.h"
#include "platform/Account.h"
#include "platform/Host.h"
#include "platform/posix/PrivateFolder.h"
#include "ui/CoreWords.h"
#include "version/view/VersionWindow.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>

#include <utility>

namespace orvana
{

OrvanaAppDelegate::OrvanaAppDelegate(const AppContext &context, std::string edition)
    : m_context(context), m_edition(std::move(edition))
{
}

OrvanaAppDelegate::~OrvanaAppDelegate() = default;

void OrvanaAppDelegate::applicationDidFinishLaunching()
{
    mainWindow().show();
    mainWindow().setUIVersion(m_edition);
    mainWindow().startMainWindow();
    new MainMenu(mainWindow(), *this);
    mainWindow().displayDialog(0, false); // again, now with the menu's height
}

MainWindow &OrvanaAppDelegate::mainWindow()
{
    if (!m_mainWindow) {
        m_mainWindow = std::make_unique<MainWindow>(m_context);
        connect(m_mainWindow.get(), &MainWindow::closed, this, &OrvanaAppDelegate::closeOthers);
        connect(m_mainWindow.get(), &MainWindow::logWanted, this, [this](const QString &path) {
            showLogDataWindows();
            logDataWindow().showLog(QFile::encodeName(path).toStdString());
        });
    }
    return *m_mainWindow;
}

LogDataWindows &OrvanaAppDelegate::logDataWindow()
{
    if (!m_logDataWindow)
        m_logDataWindow = std::make_unique<LogDataWindows>(m_context.host, m_context.logFolder);
    return *m_logDataWindow;
}

VersionWindow &OrvanaAppDelegate::versionWindow()
{
    if (!m_versionWindow)
        m_versionWindow = std::make_unique<VersionWindow>(m_context.host);
    return *m_versionWindow;
}

void OrvanaAppDelegate::showLogDataWindows()
{
    auto &window = logDataWindow();
    window.show();
    window.raise();
    window.activateWindow();
}

VerifyWindow *OrvanaAppDelegate::verifyWindow() const
{
    return m_verifyWindow;
}

// The disks are those of the moment, so a window that is already open keeps its own.
void OrvanaAppDelegate::showVerifyWindow()
{
    if (!m_verifyWindow) {
        std::vector<BayVolume> disks;
        for (const auto &enclosure : scannedDevices(mainWindow().ScanDevice()).tbArray) {
            for (auto &volume : volumesInBays(*enclosure))
                disks.push_back(std::move(volume));
        }
        m_verifyWindow = new VerifyWindow(m_context.host.volumeFiles(), m_context.logFolder, disks);
    }
    m_verifyWindow->show();
    m_verifyWindow->raise();
    m_verifyWindow->activateWindow();
}

// A line goes on with what was ticked when its window was opened.
void OrvanaAppDelegate::showLineWindow()
{
    auto &window = mainWindow();
    if (!m_lineWindow) {
        if (!window.mayUseJobs())
            return;
        auto &files = window.myFileListViewController();
        const auto job = window.jobNow();
        if (!job || !files.waitForCount(std::chrono::milliseconds(0))) {
            const auto reason =
                job ? tr("The selected files are still being counted.") : coreWords(job.error());
            window.sheets().show(
                {.message = tr("Warning"), .text = reason, .buttons = {tr("OK")}, .completion = {}});
            return;
        }
        m_lineWindow = new LineWindow(m_context, platform::stateFolder(m_context.host.account().homeFolder()),
                                      {*job, window.chosenNow(), files.totalFiles(), files.totalSize(),
                                       [&window] { return window.isBusy(); }});
    }
    m_lineWindow->show();
    m_lineWindow->raise();
    m_lineWindow->activateWindow();
}

LineWindow *OrvanaAppDelegate::lineWindow() const
{
    return m_lineWindow;
}

void OrvanaAppDelegate::checkForUpdats()
{
    versionWindow().checkVersion();
}

void OrvanaAppDelegate::howToUse()
{
    mainWindow().Help();
}

void OrvanaAppDelegate::showAbout()
{
    auto *box = new QMessageBox(&mainWindow());
    connect(box, &QMessageBox::finished, box, &QObject::deleteLater);
    box->setWindowTitle(tr("About Orvana Plurimo"));
    box->setText(tr("Orvana Plurimo %1").arg(QStringLiteral(PLURIMO_VERSION)));
    box->setInformativeText(tr("Duplicates disks: one read, many writes, verified."));
    box->open();
}

void OrvanaAppDelegate::raiseMainWindow()
{
    auto &window = mainWindow();
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
}

void OrvanaAppDelegate::closeOthers()
{
    if (m_lineWindow)
        m_lineWindow->cancel();
    for (auto *window : QApplication::topLevelWidgets()) {
        if (window != m_mainWindow.get())
            window->close();
    }
}

void OrvanaAppDelegate::endNow()
{
    mainWindow().endNow();
}

} // namespace orvana
