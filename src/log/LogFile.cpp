#include "log/LogFile.h"
#include "platform/posix/TransferAll.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace orvana
{

using platform::Expected;
using platform::failure;
using platform::FileProblem;

Expected<LogFile> LogFile::open(const std::string &path)
{
    LogFile file;
    // Opens without waiting: a pipe without a writer would block the caller for ever.
    file.m_number = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file.m_number < 0)
        return failure(errno);
    struct stat status{};
    if (::fstat(file.m_number, &status) != 0)
        return failure(errno);
    if (!S_ISREG(status.st_mode))
        return failure(FileProblem::NotAFile);
    file.m_size = static_cast<std::uint64_t>(status.st_size);
    file.m_device = status.st_dev;
    file.m_inode = status.st_ino;
    return file;
}

LogFile::LogFile(LogFile &&other) noexcept
    : m_number(std::exchange(other.m_number, -1)), m_size(other.m_size), m_device(other.m_device),
      m_inode(other.m_inode)
{
}

LogFile::~LogFile()
{
    if (m_number >= 0)
        ::close(m_number);
}

Expected<std::string> LogFile::read(std::uint64_t offset, std::size_t length) const
{
    std::string bytes(length, '\0');
    const auto done = platform::posix::transferAll(length, [&](std::size_t moved) {
        return ::pread(m_number, bytes.data() + moved, length - moved, static_cast<off_t>(offset + moved));
    });
    if (!done)
        return tl::unexpected(done.error());
    bytes.resize(*done);
    return bytes;
}

} // namespace orvana
