#include "platform/posix/VolumeTraits.h"

#include <algorithm>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/vfs.h>

namespace orvana::platform::posix
{

namespace
{

// On these file systems, reading a file back has found a byte that was flipped on the medium. On others,
// memory or another machine may answer instead of the disk.
constexpr long ReadBackFromDisk[] = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC};

constexpr long StableInodes[] = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC,
                                 F2FS_SUPER_MAGIC, TMPFS_MAGIC,     RAMFS_MAGIC};

template <std::size_t Count>
bool isAmong(long type, const long (&types)[Count])
{
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

bool isMountRoot(int number)
{
    struct statx status{};
    return ::statx(number, "", AT_EMPTY_PATH, 0, &status) == 0 &&
           (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

VolumeFamily familyOf(long type)
{
    constexpr long HfsPlus = 0x482b; // the kernel's headers do not name it
    if (type == MSDOS_SUPER_MAGIC)
        return VolumeFamily::Fat;
    if (type == EXFAT_SUPER_MAGIC)
        return VolumeFamily::ExFat;
    if (type == HfsPlus)
        return VolumeFamily::HfsPlus;
    if (type == FUSE_SUPER_MAGIC)
        return VolumeFamily::Unknown;
    return VolumeFamily::Unix;
}

} // namespace

VolumeTraits traitsOf(int number)
{
    VolumeTraits traits;
    struct stat status{};
    if (::fstat(number, &status) == 0)
        traits.device = status.st_dev;
    struct statfs system{};
    if (::fstatfs(number, &system) == 0) {
        traits.readsBackFromDisk = isAmong(system.f_type, ReadBackFromDisk);
        traits.isMemory = system.f_type == TMPFS_MAGIC || system.f_type == RAMFS_MAGIC;
        traits.hasStableInodes = isAmong(system.f_type, StableInodes);
        traits.keepsSmallFilesInInodes = system.f_type == BTRFS_SUPER_MAGIC;
        traits.needsFileSync = system.f_type == FUSE_SUPER_MAGIC;
        traits.writesOutInBackground = system.f_type != TMPFS_MAGIC && system.f_type != RAMFS_MAGIC;
        traits.family = familyOf(system.f_type);
        traits.blockSize = static_cast<std::uint64_t>(system.f_bsize);
        traits.isReadOnly = (static_cast<unsigned long>(system.f_flags) & ST_RDONLY) != 0;
    }
    traits.isMountRoot = isMountRoot(number);
    return traits;
}

} // namespace orvana::platform::posix
