#pragma once

#include "platform/FileError.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace orvana
{

/// A log that is open for reading. The file may grow, shrink or be removed meanwhile.
class LogFile
{
public:
    /// Opens a regular file. Follows links, and never waits.
    static platform::Expected<LogFile> open(const std::string &path);

    ~LogFile();
    LogFile(LogFile &&other) noexcept;
    LogFile &operator=(LogFile &&) = delete;

    /// Size in bytes when the file was opened.
    std::uint64_t size() const { return m_size; }

    /// Device and inode identify the file for as long as it exists.
    std::uint64_t device() const { return m_device; }
    std::uint64_t inode() const { return m_inode; }

    /// Reads at most `length` bytes from `offset`. Returns fewer only at the end of the file.
    platform::Expected<std::string> read(std::uint64_t offset, std::size_t length) const;

private:
    LogFile() = default;

    int m_number = -1;
    std::uint64_t m_size = 0;
    std::uint64_t m_device = 0;
    std::uint64_t m_inode = 0;
};

} // namespace orvana
