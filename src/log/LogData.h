#pragma once

#include "foundation/Clock.h"
#include "platform/posix/Descriptor.h"

#include <mutex>
#include <string>

namespace orvana
{

/// Writes the run log: one text file for each run, one record with a time stamp for each event.
///
/// Every record opens the file, is written as a whole, and closes the file. A record that cannot be written
/// is lost; only `hasLostRecords` reports that. From the first record until the next log is named, this
/// object holds the log against other processes. If another process holds the file, this log gets "-2" (or
/// the next number) at the end of its name. All functions may be called from any thread.
class LogData
{
public:
    /// `folder` is the folder of the logs, by default the user's Documents folder.
    LogData(std::string folder, const Clock &clock);

    /// Returns the folder below `home` that holds the logs unless the user chooses another folder.
    static std::string documentsFolder(const std::string &home) { return home + "/Documents"; }

    /// Names the first log. Called once, before the first record.
    void initLogFile();

    /// Names a new log after the present second. Does not make the file.
    void updataLogFileName();

    /// Appends the record "[yyyy/MM/dd HH:mm:ss]: message" and a newline; makes the file if it is missing.
    void ToLogFile(const std::string &message);

    /// File name and path of the present log; empty until it is named.
    std::string logFile() const;
    std::string logFilePath() const;

    std::string folder() const { return m_folder; }

    /// The part of the file name that all files of a run share: "yyyyMMdd-HHmmss".
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
    platform::posix::Descriptor m_held; ///< the log with the lock on it; closed until the first record
    bool m_hasLostRecords = false;
};

} // namespace orvana
