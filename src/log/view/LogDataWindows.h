#pragma once

#include "log/LogFolder.h"
#include "log/LogReader.h"
#include "log/view/LogFileDataSource.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>
#include <string>

class QPlainTextEdit;
class QTreeView;

namespace Ui
{
class LogDataWindows;
}

namespace orvana
{

namespace platform
{
class Host;
}

/// The log viewer: lists the run logs of a folder, shows the selected one, and removes one or all of them.
/// A log that grows while it is shown is followed. On the main thread.
class LogDataWindows : public QWidget
{
    Q_OBJECT

public:
    /// `LogDirPath` is the folder of the logs, an absolute path. The host must outlive the window.
    LogDataWindows(platform::Host &host, std::string LogDirPath, QWidget *parent = nullptr);
    ~LogDataWindows() override;

    const std::string &LogDirPath() const { return m_logs.path(); }
    LogFileSystemItem &LogFileSysItem() { return m_LogFileSysItem; }
    QTreeView *myLogFileView() const;
    QPlainTextEdit *myLogFileTextView() const;

    /// Fills the list and selects the folder's row; called once by the constructor.
    void windowDidLoad();

    /// Reads the folder again and opens the whole tree. A row that is still there stays selected.
    void updateLogFileView();

    /// Shows the selected log; the folder's row shows an empty text. Called when a row is clicked.
    void SelectedItem();

    /// Shows the file; an empty text when it cannot be read or is not UTF-8.
    void updateLogFileTextView(const std::string &path);

    /// Removes the selected log and its report, and selects the row above it. The text stays. A file that the
    /// user may not remove is left alone silently; other failures go to the system log.
    void DeleteItem();

    /// Removes all logs with their reports, without asking, and clears the text. Failures as in `DeleteItem`.
    void cleanAllItem();

    void refreshItem();

    /// A key that went down and up again in the list: Backspace and Delete remove, Up and Down show.
    void keyUp(int key);

    /// Selects the log at the path and shows it; one that is not there leaves the list as it is.
    void showLog(const std::string &path);

    /// Shows what was appended to the shown log, if anything was.
    void followShownLog();

    /// Puts the cursor into the field for the text to find.
    void startFinding();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    enum class Direction { Forward, Backward };

    void connectControls();
    LogFileSystemItem *selectedItem() const;
    int selectedRow() const;
    void selectRow(int row);
    bool selectPath(const std::string &path);
    void removeLog(const std::string &name);
    void clearText();
    void showReading(const LogReading &reading);
    void appendAtEnd(const QString &text);
    void find(Direction direction);
    void openFolder();

    platform::Host &m_host;
    LogFolder m_logs;
    LogFileSystemItem m_LogFileSysItem;
    LogFileDataSource m_dataSource;
    std::unique_ptr<Ui::LogDataWindows> m_ui;
    std::optional<LogReader> m_reader; // of the shown log
    QTimer m_followTimer;
    int m_keyDown = 0; // the key that went down last in the list, and is not up yet
};

} // namespace orvana
