#include "app/MainWindow.h"
#include "app/RunReportWindow.h"
#include "panels/CopyActionViewController.h"
#include "platform/Host.h"
#include "platform/Workspace.h"
#include "ui/CoreWords.h"

#include <QCloseEvent>
#include <QFile>
#include <QThread>

namespace orvana
{

void MainWindow::showLastReport()
{
    if (!m_run->hasStarted())
        return;
    if (m_reportWindow)
        m_reportWindow->close();
    // The copy thread of a cancelled run may write its report later.
    auto *window = new RunReportWindow(m_run->summary(), m_run->problems().groups(),
                                       [report = m_run->sharedReport()] { return report->path(); });
    m_reportWindow = window;
    connect(window, &RunReportWindow::logWanted, this, logOpener());
    connect(this, &QObject::destroyed, window, &QWidget::close);
    window->show();
}

void MainWindow::setProgressMsg(const std::string &message)
{
    m_progress.change([&](auto &values) { values.message = message; });
    requestProgress();
}

void MainWindow::setFileProgerss(float percent)
{
    m_progress.change([&](auto &values) { values.file = percent; });
    requestProgress();
}

void MainWindow::setTotalProgerss(float fraction)
{
    m_progress.change([&](auto &values) { values.total = fraction; });
    requestProgress();
}

void MainWindow::requestProgress()
{
    if (QThread::currentThread() == thread())
        showProgress();
    else
        m_progressUpdate.request();
}

// The message and the bars belong to a run. In any state but 2 they are not shown.
void MainWindow::showProgress()
{
    const auto shown = m_progress.values();
    const bool isShown = m_layoutState == 2;
    messageText->setText(isShown ? runMessage(shown.message) : QString());
    fileProgress->showValue(isShown ? shown.file : ProgressIndicator::Hidden);
    totalProgress->showValue(isShown ? shown.total : ProgressIndicator::Hidden);
    for (auto *label : {static_cast<QLabel *>(totalText), totalCaption})
        label->setHidden(totalProgress->isHidden());
    for (auto *label : {static_cast<QLabel *>(fileText), fileCaption})
        label->setHidden(fileProgress->isHidden());
    const bool hasTotal = isShown && shown.total >= 0;
    m_context.host.workspace().showProgress(hasTotal ? std::optional<double>(shown.total) : std::nullopt);
}

// A run takes hours, and its user may be elsewhere when it ends.
void MainWindow::tellDesktop(const QString &title, const QString &text)
{
    m_context.host.workspace().notify(
        {title.toStdString(), text.toStdString(), tr("Open log").toStdString(), logOpener()});
}

// Returns a function that asks for the log of this run, even if there is a newer log by then.
std::function<void()> MainWindow::logOpener()
{
    return [window = QPointer(this), log = QFile::decodeName(m_logData->logFilePath().c_str())] {
        if (window)
            Q_EMIT window->logWanted(log);
    };
}

bool MainWindow::isBusy() const
{
    return m_context.line->isAtWork || (m_run && m_run->isAtWork());
}

void MainWindow::holdOffSleepWhileBusy()
{
    constexpr std::chrono::milliseconds BetweenLooks{500};
    if (!isBusy()) {
        m_wakefulness.reset();
        return;
    }
    if (!m_wakefulness)
        m_wakefulness = m_context.host.workspace().holdOffSleep("Disks are being duplicated");
    later(BetweenLooks, [this] { holdOffSleepWhileBusy(); });
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (isBusy() && !m_isClosing) {
        event->ignore();
        askBeforeClosing();
        return;
    }
    QMainWindow::closeEvent(event);
    Q_EMIT closed();
}

void MainWindow::askBeforeClosing()
{
    m_sheets.show({.message = tr("Warning"),
                   .text = tr("Disks are being duplicated. If you quit now, the copies are not complete."),
                   .buttons = {tr("Quit"), tr("Go On")},
                   .completion = [this](int button) {
                       if (button != 0)
                           return;
                       endNow();
                   }});
}

void MainWindow::endNow()
{
    m_isClosing = true;
    if (m_action->isDuplicating() || m_action->isErasing())
        StopDuplicate();
    close();
}

} // namespace orvana
