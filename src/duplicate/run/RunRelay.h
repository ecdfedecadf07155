#pragma once

#include "foundation/NotificationCenter.h"

#include <mutex>
#include <string>
#include <vector>

namespace orvana
{

class LogData;

/// Shows how a run goes. Called on the thread that posts, which for a copy is the copy thread.
class RunDisplay
{
public:
    virtual ~RunDisplay() = default;

    virtual void setProgressMsg(const std::string &message) = 0;
    /// Percent of the present file, or -1.0 to hide the bar.
    virtual void setFileProgerss(float percent) = 0;
    /// Fraction of the files, or -1.0 to hide the bar.
    virtual void setTotalProgerss(float fraction) = 0;
    /// The run has come to its end.
    virtual void BackupFinish() = 0;
};

/// Passes a run's notifications on to its display and writes what belongs there into the run log. Nothing
/// else writes into the log. Callable from any thread, as far as the display is.
class RunRelay
{
public:
    RunRelay(LogData &log, RunDisplay &display) : m_log(log), m_display(display) {}

    /// Shows, logs and passes on a notification of the copy engine or the disk tool; ignores any other.
    void relay(const Notification &notification);

    /// A run begins: a new log, opened by two empty lines.
    void runStarts();

    /// The copy engine is given its job.
    void jobHandedOver(const std::string &source, const std::vector<std::string> &destinations);

    /// The last record of a run that the user ends; what the copy thread still posts is shown, and not
    /// logged.
    void userCancelled();
    void runFinished();

private:
    void relayFileCopyMessage(const std::string &message);

    LogData &m_log;
    RunDisplay &m_display;
    std::mutex m_mutex;
    bool m_isCancelled = false; // since the run began
};

} // namespace orvana
