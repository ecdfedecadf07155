#pragma once

#include "foundation/NotificationCenter.h"

#include <mutex>
#include <string>
#include <vector>

namespace orvana
{

class LogData;

/// Shows the progress of a run. Called on the thread that posts; for a copy this is the copy thread.
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

/// Passes a run's notifications on to its display, and writes the run log. Nothing else writes into the log.
/// Callable from any thread if the display is.
class RunRelay
{
public:
    RunRelay(LogData &log, RunDisplay &display) : m_log(log), m_display(display) {}

    /// Shows, logs and passes on a notification of the copy engine or the disk tool; ignores any other.
    void relay(const Notification &notification);

    /// Begins a run: starts a new log, with two empty lines.
    void runStarts();

    /// Logs that the copy engine is given its job.
    void jobHandedOver(const std::string &source, const std::vector<std::string> &destinations);

    /// Writes the last record of a run that the user ends. Later messages of the copy thread are shown, but
    /// not logged.
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
