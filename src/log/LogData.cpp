#include "log/LogData.h"
#include "platform/posix/TransferAll.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace orvana
{

namespace
{

// Does not follow a link, which may lead to a file that is no log. Does not wait for the reader of a pipe.
int openLog(const std::string &path)
{
    return ::open(path.c_str(),
                  O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0666);
}

} // namespace

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
    m_number = 1;
    m_held = platform::posix::Descriptor();
}

// Two programs may start a run in the same second. Only a file that another process holds makes this log take
// another name. A file that nobody holds is used, even if it exists already.
void LogData::holdFile()
{
    constexpr int MostNumbers = 1000;
    while (!m_held.isOpen() && m_number < MostNumbers) {
        platform::posix::Descriptor file(openLog(m_logFilePath));
        if (!file.isOpen())
            return;
        if (::flock(file.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {
            m_held = std::move(file);
            return;
        }
        ++m_number;
        m_logFile = m_stamp + "-Log.txt-" + std::to_string(m_number);
        m_logFilePath = m_folder + "/" + m_logFile;
    }
}

void LogData::ToLogFile(const std::string &message)
{
    const std::lock_guard lock(m_mutex);
    const auto time = localTime(m_clock.now(), "%Y/%m/%d %H:%M:%S");
    holdFile();
    if (!append("[" + time + "]: " + message + "\n"))
        m_hasLostRecords = true;
}

bool LogData::append(const std::string &record) const
{
    const int file = openLog(m_logFilePath);
    if (file < 0)
        return false;
    const auto done = platform::posix::transferAll(record.size(), [&](std::size_t moved) {
        return ::write(file, record.data() + moved, record.size() - moved);
    });
    return ::close(file) == 0 && done && *done == record.size();
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

int LogData::number() const
{
    const std::lock_guard lock(m_mutex);
    return m_number;
}

bool LogData::hasLostRecords() const
{
    const std::lock_guard lock(m_mutex);
    return m_hasLostRecords;
}

} // namespace orvana
