#include "platform/posix/PosixFile.h"

#include "platform/posix/KeptMetadata.h"
#include "platform/posix/StatAttributes.h"
#include "platform/posix/TransferAll.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace orvana::platform::posix
{

namespace
{

bool rangesAreUnknown(int code)
{
    return code == ENOSYS || code == EINVAL || code == ESPIPE || code == EOPNOTSUPP;
}

// ext4 can keep a small file's data in its inode. The inode stays in memory even when the file's pages are
// dropped.
bool liesInItsInode(int number)
{
    unsigned flags = 0;
    return ::ioctl(number, FS_IOC_GETFLAGS, &flags) == 0 && (flags & FS_INLINE_DATA_FL) != 0;
}

} // namespace

Expected<Attributes> PosixFile::attributes() const
{
    struct stat status{};
    if (::fstat(m_descriptor.number(), &status) != 0)
        return failure(errno);
    return attributesOf(status);
}

Expected<std::size_t> PosixFile::read(std::span<std::byte> into, std::uint64_t offset)
{
    return transferAll(into.size(), [&](std::size_t done) {
        return ::pread(m_descriptor.number(), into.data() + done, into.size() - done,
                       static_cast<off_t>(offset + done));
    });
}

void PosixFile::willRead(std::uint64_t offset, std::uint64_t length)
{
    ::posix_fadvise(m_descriptor.number(), static_cast<off_t>(offset), static_cast<off_t>(length),
                    POSIX_FADV_WILLNEED);
}

Expected<void> PosixFile::write(std::span<const std::byte> bytes, std::uint64_t offset)
{
    const auto written = transferAll(bytes.size(), [&](std::size_t done) {
        return ::pwrite(m_descriptor.number(), bytes.data() + done, bytes.size() - done,
                        static_cast<off_t>(offset + done));
    });
    if (!written)
        return tl::unexpected(written.error());
    if (*written != bytes.size())
        return failure(ENOSPC);
    return {};
}

Expected<void> PosixFile::cutTo(std::uint64_t size)
{
    const auto before = attributes();
    if (!before)
        return tl::unexpected(before.error());
    if (before->size > size && ::ftruncate(m_descriptor.number(), static_cast<off_t>(size)) != 0)
        return failure(errno);
    return {};
}

Expected<void> PosixFile::growTo(std::uint64_t size)
{
    const auto before = attributes();
    if (!before)
        return tl::unexpected(before.error());
    if (before->size < size && ::ftruncate(m_descriptor.number(), static_cast<off_t>(size)) != 0)
        return failure(errno);
    return {};
}

std::vector<Range> PosixFile::dataIn(const Range &range) const
{
    std::vector<Range> data;
    const auto end = static_cast<off_t>(range.offset + range.length);
    for (auto offset = static_cast<off_t>(range.offset); offset < end;) {
        const auto start = ::lseek(m_descriptor.number(), offset, SEEK_DATA);
        if (start < 0 && errno == ENXIO)
            break; // nothing but a hole is left
        const auto stop = start < 0 ? start : ::lseek(m_descriptor.number(), start, SEEK_HOLE);
        if (start < 0 || stop < 0)
            return {range};
        if (start >= end)
            break;
        offset = std::min(stop, end);
        data.push_back({static_cast<std::uint64_t>(start), static_cast<std::uint64_t>(offset - start)});
    }
    return data;
}

Expected<void> PosixFile::makeHole(const Range &range)
{
    if (::fallocate(m_descriptor.number(), FALLOC_FL_PUNCH_HOLE | FALLOC_FL_KEEP_SIZE,
                    static_cast<off_t>(range.offset), static_cast<off_t>(range.length)) != 0)
        return failure(errno);
    return {};
}

Expected<Metadata> PosixFile::metadata(Keep keep) const
{
    return metadataOf(m_descriptor.number(), keep);
}

MissingParts PosixFile::apply(const Metadata &metadata, Keep keep)
{
    return applyMetadata(m_descriptor.number(), metadata, keep);
}

Expected<void> PosixFile::startWriteOut(std::uint64_t offset, std::uint64_t length)
{
    if (::sync_file_range(m_descriptor.number(), static_cast<off_t>(offset), static_cast<off_t>(length),
                          SYNC_FILE_RANGE_WRITE) != 0 &&
        !rangesAreUnknown(errno))
        return failure(errno);
    return {};
}

Expected<void> PosixFile::finishWriteOut(std::uint64_t offset, std::uint64_t length)
{
    constexpr unsigned all = SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    if (::sync_file_range(m_descriptor.number(), static_cast<off_t>(offset), static_cast<off_t>(length),
                          all) == 0)
        return {};
    if (!rangesAreUnknown(errno) || ::fdatasync(m_descriptor.number()) != 0)
        return failure(errno);
    return {};
}

Expected<void> PosixFile::sync()
{
    if (::fdatasync(m_descriptor.number()) != 0)
        return failure(errno);
    return {};
}

bool PosixFile::isOutOfMemory() const
{
    struct stat status{};
    if (::fstat(m_descriptor.number(), &status) != 0)
        return false;
    if (status.st_size == 0)
        return true;
    if (liesInItsInode(m_descriptor.number()))
        return false;
    // The file is checked in parts, because the table for a large file would be large itself.
    constexpr std::size_t Piece = 67'108'864;
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    std::vector<unsigned char> isThere(Piece / page);
    const auto size = static_cast<std::size_t>(status.st_size);
    for (std::size_t offset = 0; offset < size; offset += Piece) {
        const auto length = std::min(Piece, size - offset);
        void *map =
            ::mmap(nullptr, length, PROT_READ, MAP_SHARED, m_descriptor.number(), static_cast<off_t>(offset));
        if (map == MAP_FAILED)
            return false;
        const bool isKnown = ::mincore(map, length, isThere.data()) == 0;
        ::munmap(map, length);
        const auto pages = (length + page - 1) / page;
        if (!isKnown || std::any_of(isThere.begin(), isThere.begin() + static_cast<std::ptrdiff_t>(pages),
                                    [](unsigned char there) { return (there & 1U) != 0; }))
            return false;
    }
    return true;
}

void PosixFile::dropCached(std::uint64_t offset, std::uint64_t length)
{
    ::posix_fadvise(m_descriptor.number(), static_cast<off_t>(offset), static_cast<off_t>(length),
                    POSIX_FADV_DONTNEED);
}

Expected<void> PosixFile::close()
{
    // The descriptor is free again even when the file system reports an error.
    if (m_descriptor.isOpen() && ::close(m_descriptor.release()) != 0 && errno != EINTR)
        return failure(errno);
    return {};
}

} // namespace orvana::platform::posix
