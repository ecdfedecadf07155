#pragma once

#include "app/AppContext.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <string>

namespace orvana
{

class LogDataWindows;
class MainMenu;
class MainWindow;
class LineWindow;
class VerifyWindow;
class VersionWindow;

/// Owns the program's windows. Each window is made when it is first needed. Main thread only.
class OrvanaAppDelegate : public QObject
{
    Q_OBJECT

public:
    /// `edition` is "Orvana", or "Obsidio" for the partner edition.
    OrvanaAppDelegate(const AppContext &context, std::string edition);
    ~OrvanaAppDelegate() override;

    /// Shows the main window and starts it.
    void applicationDidFinishLaunching();

    /// Closing the main window closes the other windows and ends the program.
    static bool applicationShouldTerminateAfterLastWindowClosed() { return true; }

    MainWindow &mainWindow();
    LogDataWindows &logDataWindow();

    /// The open window of `showVerifyWindow`, or null.
    VerifyWindow *verifyWindow() const;

    /// The open window of `showLineWindow`, or null.
    LineWindow *lineWindow() const;
    VersionWindow &versionWindow();

    // The actions of the menu.
    void showLogDataWindows();
    void showVerifyWindow();

    /// Opens the production line for what the main window shows. Says why it cannot.
    void showLineWindow();
    void checkForUpdats();
    void howToUse();
    void showAbout();

    /// Brings the main window to the front.
    void raiseMainWindow();

    /// Cancels a run and ends the program without a question.
    void endNow();

private:
    void closeOthers();

    AppContext m_context;
    std::string m_edition;
    std::unique_ptr<MainWindow> m_mainWindow;
    std::unique_ptr<LogDataWindows> m_logDataWindow;
    std::unique_ptr<VersionWindow> m_versionWindow;
    QPointer<VerifyWindow> m_verifyWindow;
    QPointer<LineWindow> m_lineWindow;
};

} // namespace orvana
