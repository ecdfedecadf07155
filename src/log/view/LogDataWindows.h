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

/// The log viewer: lists the run logs of a folder, shows the selected log, and removes one log or all logs.
/// While a log is shown, the viewer follows its growth. Main thread only.
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

    /// Reads the folder again and opens the whole tree. The selected row stays selected if it is still there.
    void updateLogFileView();

    /// Shows the selected log; the folder's row shows an empty text. Called when a row is clicked.
    void SelectedItem();

    /// Shows the file, or an empty text if the file cannot be read or is not UTF-8.
    void updateLogFileTextView(const std::string &path);

    /// Removes the selected log and its reports, and selects the row above it. The shown text stays. A file
    /// that the user may not remove is left without a message. Other failures go to the system log.
    void DeleteItem();

    /// Removes all logs with their reports, without a question, and clears the text. Failures as in
    /// `DeleteItem`.
    void cleanAllItem();

    void refreshItem();

    /// Answers a key that went down and up in the list. Backspace and Delete remove the selected log; Up and
    /// Down show it.
    void keyUp(int key);

    /// Selects the log at the path and shows it. Without such a log the selection stays as it is.
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
    std::optional<LogReader> m_reader; // reads the shown log
    QTimer m_followTimer;
    int m_keyDown = 0; // the key that went down last in the list and is not up yet
};

} // namespace orvana
