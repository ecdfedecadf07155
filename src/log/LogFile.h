#pragma once

#include "platform/FileError.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace orvana
{

/// A log that is open for reading. It may grow, shrink or be removed meanwhile.
class LogFile
{
public:
    /// Opens a regular file, by way of links too, without ever waiting for one.
    static platform::Expected<LogFile> open(const std::string &path);

    ~LogFile();
    LogFile(LogFile &&other) noexcept;
    LogFile &operator=(LogFile &&) = delete;

    /// Bytes when it was opened.
    std::uint64_t size() const { return m_size; }

    /// Tells files apart: the same for as long as the file exists.
    std::uint64_t device() const { return m_device; }
    std::uint64_t inode() const { return m_inode; }

    /// At most `length` bytes from `offset`; fewer only where the file ends.
    platform::Expected<std::string> read(std::uint64_t offset, std::size_t length) const;

private:
    LogFile() = default;

    int m_number = -1;
    std::uint64_t m_size = 0;
    std::uint64_t m_device = 0;
    std::uint64_t m_inode = 0;
};

} // namespace orvana
