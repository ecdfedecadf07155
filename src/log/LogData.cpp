#include "log/LogData.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace orvana
{

LogData::LogData(std::string folder, const Clock &clock) : m_folder(std::move(folder)), m_clock(clock) {}

void LogData::initLogFile()
{
    updataLogFileName();
}

void LogData::updataLogFileName()
{
    const std::lock_guard lock(m_mutex);
    m_stamp = localTime(m_clock.now(), "%Y%m%d-%H%M%S");
    m_logFile = m_stamp + "-Log.txt";
    m_logFilePath = m_folder + "/" + m_logFile;
    m_hasLostRecords = false;
}

void LogData::ToLogFile(const std::string &message)
{
    const std::lock_guard lock(m_mutex);
    const auto time = localTime(m_clock.now(), "%Y/%m/%d %H:%M:%S");
    if (!append("[" + time + "]: " + message + "\n"))
        m_hasLostRecords = true;
}

bool LogData::append(const std::string &record) const
{
    const int file =
        ::open(m_logFilePath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, 0666);
    if (file < 0)
        return false;
    std::size_t done = 0;
    while (done < record.size()) {
        const auto count = ::write(file, record.data() + done, record.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return ::close(file) == 0 && done == record.size();
}

std::string LogData::logFile() const
{
    const std::lock_guard lock(m_mutex);
    return m_logFile;
}

std::string LogData::logFilePath() const
{
    const std::lock_guard lock(m_mutex);
    return m_logFilePath;
}

std::string LogData::stamp() const
{
    const std::lock_guard lock(m_mutex);
    return m_stamp;
}

bool LogData::hasLostRecords() const
{
    const std::lock_guard lock(m_mutex);
    return m_hasLostRecords;
}

} // namespace orvana
