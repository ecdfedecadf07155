#pragma once

#include "foundation/Clock.h"
#include "platform/posix/Descriptor.h"

#include <mutex>
#include <string>

namespace orvana
{

/// Writes the run log: one text file for each run, one record with a time stamp for each event.
///
/// The file is opened and closed for every record, and every record is written as a whole. A record that
/// cannot be written is lost silently. From its first record on the log is held against other processes,
/// until the next one is named: a log that another process holds is not written to, and this one gets "-2"
/// (or the next number) at the end of its name. All functions may be called from any thread.
class LogData
{
public:
    /// `folder` is where the logs stand, the user's Documents folder.
    LogData(std::string folder, const Clock &clock);

    /// The folder of `home` in which logs stand unless the user says otherwise.
    static std::string documentsFolder(const std::string &home) { return home + "/Documents"; }

    /// Names the first log; called once at the start of the program.
    void initLogFile();

    /// Names a new log after the present second. Makes no file.
    void updataLogFileName();

    /// Appends the record "[yyyy/MM/dd HH:mm:ss]: message" and a newline; makes the file if it is missing.
    void ToLogFile(const std::string &message);

    /// File name and path of the present log; empty until it is named.
    std::string logFile() const;
    std::string logFilePath() const;

    std::string folder() const { return m_folder; }

    /// The part of the file name that a run's other files share: "yyyyMMdd-HHmmss".
    std::string stamp() const;

    /// 1, or the number at the end of the log's name.
    int number() const;

    /// True when a record could not be written since the log was named.
    bool hasLostRecords() const;

private:
    void holdFile();
    bool append(const std::string &record) const;

    const std::string m_folder;
    const Clock &m_clock;
    mutable std::mutex m_mutex;
    std::string m_stamp;
    std::string m_logFile;
    std::string m_logFilePath;
    int m_number = 1;
    platform::posix::Descriptor m_held; ///< the log with the lock on it; closed before the first record
    bool m_hasLostRecords = false;
};

} // namespace orvana
