#include "platform/posix/StatAttributes.h"

namespace orvana::platform::posix
{

namespace
{

FileType typeOf(mode_t mode)
{
    if (S_ISREG(mode))
        return FileType::Regular;
    if (S_ISDIR(mode))
        return FileType::Folder;
    return S_ISLNK(mode) ? FileType::SymbolicLink : FileType::Special;
}

} // namespace

Attributes attributesOf(const struct stat &status)
{
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    Attributes attributes;
    attributes.type = typeOf(status.st_mode);
    attributes.size = static_cast<std::uint64_t>(status.st_size);
    attributes.allocated = static_cast<std::uint64_t>(status.st_blocks) * 512; // the unit of st_blocks
    if (attributes.type != FileType::SymbolicLink)
        attributes.permissions = status.st_mode & 07777U;
    attributes.owner = status.st_uid;
    attributes.group = status.st_gid;
    attributes.modified = status.st_mtim.tv_sec * nanoseconds + status.st_mtim.tv_nsec;
    attributes.changed = status.st_ctim.tv_sec * nanoseconds + status.st_ctim.tv_nsec;
    attributes.device = status.st_dev;
    attributes.inode = status.st_ino;
    attributes.links = status.st_nlink;
    return attributes;
}

} // namespace orvana::platform::posix
