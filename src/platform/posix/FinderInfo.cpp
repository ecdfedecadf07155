#include "platform/posix/FinderInfo.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace orvana::platform::posix
{

namespace
{

constexpr const char *UserAttribute = "user.com.apple.FinderInfo";
// The kernel's own HFS+ driver shows the record under this name.
constexpr const char *DriverAttribute = "osx.com.apple.FinderInfo";

using FinderInfo = std::array<unsigned char, 32>;
constexpr std::size_t FlagsLowByte = 9;
constexpr unsigned char ExtensionHidden = 0x10;

bool flagOf(const char *path, const char *attribute)
{
    FinderInfo info{};
    const auto length = ::lgetxattr(path, attribute, info.data(), info.size());
    return length > static_cast<ssize_t>(FlagsLowByte) && (info[FlagsLowByte] & ExtensionHidden) != 0;
}

} // namespace

std::optional<bool> hasExtendedAttributes(int at, const char *name)
{
    constexpr long ListXattrAt = 465; // newer than the C library's headers
    static std::atomic<bool> isMissing{false};
    if (isMissing)
        return std::nullopt;
    const long length = ::syscall(ListXattrAt, at, name, AT_SYMLINK_NOFOLLOW, nullptr, 0);
    if (length >= 0)
        return length > 0;
    if (errno == ENOSYS || errno == EPERM) // EPERM comes from sandboxes that do not know the call
        isMissing = true;
    return std::nullopt;
}

bool hasHiddenExtension(const char *path)
{
    // Hardly any file has extended attributes at all. One call is enough to find that out.
    if (::llistxattr(path, nullptr, 0) <= 0)
        return false;
    return flagOf(path, UserAttribute) || flagOf(path, DriverAttribute);
}

void setHiddenExtension(int descriptor)
{
    FinderInfo info{};
    info[FlagsLowByte] = ExtensionHidden;
    ::fsetxattr(descriptor, UserAttribute, info.data(), info.size(), 0);
}

} // namespace orvana::platform::posix
