#pragma once

#include <QAction>
#include <QMenu>

#include <functional>

class QAbstractButton;

namespace orvana
{

class MainWindow;
class OrvanaAppDelegate;

/// The menu bar. An action that stands for a control of the window does what the control does, and works
/// exactly while the control does.
class MainMenu : public QObject
{
    Q_OBJECT

public:
    /// The window owns the menu.
    MainMenu(MainWindow &window, OrvanaAppDelegate &delegate);

private:
    void makeFileMenu();
    void makeRunMenu();
    void makeHelpMenu();
    QAction *add(QMenu *menu, const QString &text, const QKeySequence &keys, std::function<void()> work);
    void press(QMenu *menu, const QString &text, const QKeySequence &keys, QAbstractButton *button);
    void update();

    struct Mirrored
    {
        QAction *action;
        QAbstractButton *button;
    };

    MainWindow &m_window;
    OrvanaAppDelegate &m_delegate;
    QList<Mirrored> m_mirrored;
    QAction *m_openJob = nullptr;
    QAction *m_saveJob = nullptr;
    QAction *m_options = nullptr;
    QAction *m_goOn = nullptr;
    QAction *m_line = nullptr;
    QAction *m_rescan = nullptr;
    QAction *m_mountDisks = nullptr;
    QAction *m_setUpBays = nullptr;
    QAction *m_lastReport = nullptr;
};

} // namespace orvana
