#include "duplicate/run/RunRelay.h"

#include "foundation/DisplayPath.h"
#include "foundation/NotificationNames.h"
#include "log/LogData.h"

namespace orvana
{

void RunRelay::relay(const Notification &notification)
{
    const auto &name = notification.name;
    if (name == notification::FileCopyMessage)
        relayFileCopyMessage(notification.text(notification::key::MessageInfo));
    if (name == notification::FileProgress)
        m_display.setFileProgerss(notification.number(notification::key::FileProgress));
    if (name == notification::TotalProgress)
        m_display.setTotalProgerss(notification.number(notification::key::TotalProrgress));
    if (name == notification::DiskMessage) {
        const auto message = notification.text(notification::key::DiskMsgInfo);
        m_display.setProgressMsg(message);
        m_log.ToLogFile(message);
    }
    if (name == notification::BackupFinish)
        m_display.BackupFinish();
}

void RunRelay::relayFileCopyMessage(const std::string &message)
{
    if (message.find("Can`t Duplicate") == std::string::npos)
        m_display.setProgressMsg(message);
    // The copy thread may still be about to post when the user cancels. No message of the run may follow the
    // record of the cancel.
    const std::lock_guard lock(m_mutex);
    if (message != "Verifying File ..." && !m_isCancelled)
        m_log.ToLogFile(message);
}

void RunRelay::runStarts()
{
    const std::lock_guard lock(m_mutex);
    m_isCancelled = false;
    m_log.updataLogFileName();
    m_log.ToLogFile("\n\n");
}

void RunRelay::jobHandedOver(const std::string &source, const std::vector<std::string> &destinations)
{
    std::string message = "Start Duplicating Files from " + displayPath(source) + " to";
    for (const auto &destination : destinations)
        message += " " + displayPath(destination);
    m_log.ToLogFile(message);
}

void RunRelay::userCancelled()
{
    const std::lock_guard lock(m_mutex);
    m_isCancelled = true;
    m_log.ToLogFile("User Cancel");
}

void RunRelay::runFinished()
{
    m_log.ToLogFile("Finish !!!");
}

} // namespace orvana
