#include "log/view/LogDataWindows.h"

#include "foundation/SystemLog.h"
#include "platform/Host.h"
#include "platform/Workspace.h"
#include "ui/ShownText.h"
#include "ui_LogDataWindows.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QTextCursor>

#include <cerrno>
#include <chrono>

namespace orvana
{

namespace
{

constexpr std::chrono::milliseconds BetweenLooks{500};

// True if the user may not write to the folder, or the file is already gone.
bool isNotDeletable(const platform::FileError &error)
{
    return error.code == EACCES || error.code == EPERM || error.code == EROFS || error.code == ENOENT;
}

// The layout of a line with millions of characters takes seconds, so a longer line is continued on the next
// line.
constexpr qsizetype LongestLine = 10000;

QString withFoldedLines(const QString &text)
{
    QString folded;
    qsizetype copied = 0;
    qsizetype lineStart = 0;
    while (lineStart < text.size()) {
        const auto newline = text.indexOf(u'\n', lineStart);
        const auto end = newline < 0 ? text.size() : newline;
        if (end - lineStart <= LongestLine) {
            lineStart = end + 1;
            continue;
        }
        lineStart += LongestLine;
        folded += QStringView(text).mid(copied, lineStart - copied);
        folded += u'\n';
        copied = lineStart;
    }
    return copied == 0 ? text : folded + QStringView(text).mid(copied).toString();
}

} // namespace

LogDataWindows::LogDataWindows(platform::Host &host, std::string LogDirPath, QWidget *parent)
    : QWidget(parent, Qt::Window), m_host(host), m_logs(std::move(LogDirPath)),
      m_LogFileSysItem(m_logs.path()), m_ui(std::make_unique<Ui::LogDataWindows>())
{
    m_ui->setupUi(this);
    m_ui->splitter->setStretchFactor(1, 1);
    m_ui->splitter->setSizes({260, 620});
    m_ui->hintLabel->hide();
    m_ui->notFoundLabel->hide();
    m_ui->myLogFileView->setModel(&m_dataSource);
    m_ui->myLogFileView->installEventFilter(this);
    m_ui->myLogFileView->setFocus();
    m_followTimer.setInterval(BetweenLooks);
    connectControls();
    windowDidLoad();
}

LogDataWindows::~LogDataWindows() = default;

void LogDataWindows::connectControls()
{
    connect(m_ui->myLogFileView, &QTreeView::clicked, this, &LogDataWindows::SelectedItem);
    connect(m_ui->openFolderButton, &QPushButton::clicked, this, &LogDataWindows::openFolder);
    connect(m_ui->refreshButton, &QPushButton::clicked, this, &LogDataWindows::refreshItem);
    connect(m_ui->deleteAllButton, &QPushButton::clicked, this, &LogDataWindows::cleanAllItem);
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QWidget::close);
    connect(&m_followTimer, &QTimer::timeout, this, &LogDataWindows::followShownLog);
    const auto findNext = [this] { find(Direction::Forward); };
    const auto findPrevious = [this] { find(Direction::Backward); };
    connect(m_ui->findText, &QLineEdit::textEdited, m_ui->notFoundLabel, &QWidget::hide);
    connect(m_ui->findText, &QLineEdit::returnPressed, this, findNext);
    connect(m_ui->nextButton, &QPushButton::clicked, this, findNext);
    connect(m_ui->previousButton, &QPushButton::clicked, this, findPrevious);
    new QShortcut(QKeySequence::Find, this, this, &LogDataWindows::startFinding);
    new QShortcut(QKeySequence::FindNext, this, this, findNext);
    new QShortcut(QKeySequence::FindPrevious, this, this, findPrevious);
    new QShortcut(QKeySequence::Close, this, this, [this] { close(); });
}

QTreeView *LogDataWindows::myLogFileView() const
{
    return m_ui->myLogFileView;
}

QPlainTextEdit *LogDataWindows::myLogFileTextView() const
{
    return m_ui->myLogFileTextView;
}

void LogDataWindows::windowDidLoad()
{
    updateLogFileView();
    selectRow(0);
    SelectedItem();
}

void LogDataWindows::updateLogFileView()
{
    const auto *before = selectedItem();
    const auto path = before ? std::optional(before->fullPath()) : std::nullopt;
    // A new path object each time, so that the folder is read again.
    m_dataSource.setrepoRootPath(m_LogFileSysItem, std::make_shared<const std::string>(m_logs.path()));
    m_ui->myLogFileView->expandAll();
    if (path)
        selectPath(*path);
}

bool LogDataWindows::selectPath(const std::string &path)
{
    for (auto index = m_dataSource.index(0, 0); index.isValid();
         index = m_ui->myLogFileView->indexBelow(index)) {
        if (LogFileDataSource::item(index)->fullPath() != path)
            continue;
        m_ui->myLogFileView->setCurrentIndex(index);
        return true;
    }
    return false;
}

void LogDataWindows::showLog(const std::string &path)
{
    updateLogFileView();
    if (selectPath(path))
        SelectedItem();
}

LogFileSystemItem *LogDataWindows::selectedItem() const
{
    const auto rows = m_ui->myLogFileView->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? nullptr : LogFileDataSource::item(rows.front());
}

int LogDataWindows::selectedRow() const
{
    const auto rows = m_ui->myLogFileView->selectionModel()->selectedIndexes();
    if (rows.isEmpty())
        return -1;
    int row = 0;
    for (auto above = m_ui->myLogFileView->indexAbove(rows.front()); above.isValid();
         above = m_ui->myLogFileView->indexAbove(above))
        ++row;
    return row;
}

void LogDataWindows::selectRow(int row)
{
    if (row < 0)
        return;
    auto index = m_dataSource.index(0, 0);
    for (int i = 0; i < row && index.isValid(); ++i)
        index = m_ui->myLogFileView->indexBelow(index);
    m_ui->myLogFileView->setCurrentIndex(index);
}

void LogDataWindows::SelectedItem()
{
    const auto *item = selectedItem();
    if (!item)
        return;
    if (!item->parent())
        clearText();
    else
        updateLogFileTextView(item->fullPath());
}

void LogDataWindows::updateLogFileTextView(const std::string &path)
{
    m_reader.emplace(path);
    followShownLog();
}

void LogDataWindows::followShownLog()
{
    if (!m_reader)
        return;
    if (const auto reading = m_reader->readOn())
        showReading(*reading);
}

void LogDataWindows::showReading(const LogReading &reading)
{
    const auto text = withFoldedLines(QString::fromStdString(reading.text));
    if (reading.place == LogReading::Place::AtEnd)
        appendAtEnd(text);
    else
        m_ui->myLogFileTextView->setPlainText(text);
    m_ui->hintLabel->setText(tr("This log is long. Only its end is shown, at most the last 10 MB."));
    m_ui->hintLabel->setVisible(reading.isCut);
}

void LogDataWindows::appendAtEnd(const QString &text)
{
    auto *bar = m_ui->myLogFileTextView->verticalScrollBar();
    const bool wasAtEnd = bar->value() == bar->maximum();
    QTextCursor cursor(m_ui->myLogFileTextView->document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text);
    if (wasAtEnd)
        bar->setValue(bar->maximum());
}

void LogDataWindows::clearText()
{
    m_reader.reset();
    m_ui->myLogFileTextView->clear();
    m_ui->hintLabel->hide();
}

void LogDataWindows::DeleteItem()
{
    const auto *item = selectedItem();
    if (item && !item->parent())
        return;
    const int row = selectedRow();
    // A folder may have a log's name. A row in such a folder is not in the folder of the logs.
    if (item && !item->parent()->parent())
        removeLog(item->relativePath());
    updateLogFileView();
    if (!selectedItem())
        selectRow(row - 1);
}

void LogDataWindows::removeLog(const std::string &name)
{
    if (m_reader && m_reader->path() == m_logs.path() + "/" + name)
        m_reader.reset();
    const auto removed = m_logs.remove(name);
    if (!removed && !isNotDeletable(removed.error()))
        systemLog("Error removing file at path: " + removed.error().reason());
}

void LogDataWindows::cleanAllItem()
{
    const auto names = m_logs.names().value_or(std::vector<std::string>());
    for (const auto &name : names)
        removeLog(name);
    if (!names.empty()) {
        updateLogFileView();
        selectRow(0);
    }
    clearText();
}

void LogDataWindows::refreshItem()
{
    updateLogFileView();
}

void LogDataWindows::keyUp(int key)
{
    if (key == Qt::Key_Backspace || key == Qt::Key_Delete)
        DeleteItem();
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        SelectedItem();
}

bool LogDataWindows::eventFilter(QObject *watched, QEvent *event)
{
    // A key that went down elsewhere, for example in a dialog, and comes up here was not meant for the list.
    if (event->type() == QEvent::KeyPress)
        m_keyDown = static_cast<QKeyEvent *>(event)->key();
    if (event->type() == QEvent::FocusOut)
        m_keyDown = 0;
    if (event->type() == QEvent::KeyRelease) {
        const auto *keyEvent = static_cast<QKeyEvent *>(event);
        if (!keyEvent->isAutoRepeat() && keyEvent->key() == m_keyDown) {
            m_keyDown = 0;
            keyUp(keyEvent->key());
        }
    }
    return QWidget::eventFilter(watched, event);
}

void LogDataWindows::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    updateLogFileView();
    followShownLog();
    m_followTimer.start();
}

void LogDataWindows::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        m_followTimer.stop();
}

void LogDataWindows::startFinding()
{
    m_ui->findText->setFocus(Qt::ShortcutFocusReason);
    m_ui->findText->selectAll();
}

void LogDataWindows::find(Direction direction)
{
    const auto wanted = m_ui->findText->text();
    if (wanted.isEmpty())
        return startFinding();
    const auto flags =
        direction == Direction::Backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    auto *view = m_ui->myLogFileTextView;
    bool isFound = view->find(wanted, flags);
    if (!isFound) {
        // Search once more from the other end.
        const auto cursor = view->textCursor();
        view->moveCursor(direction == Direction::Backward ? QTextCursor::End : QTextCursor::Start);
        isFound = view->find(wanted, flags);
        if (!isFound)
            view->setTextCursor(cursor);
    }
    m_ui->notFoundLabel->setHidden(isFound);
}

void LogDataWindows::openFolder()
{
    m_host.workspace().openFolder(m_logs.path());
}

} // namespace orvana
