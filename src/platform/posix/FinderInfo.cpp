#include "platform/posix/FinderInfo.h"

#include <array>
#include <sys/xattr.h>

namespace orvana::platform::posix
{

namespace
{

constexpr const char *UserAttribute = "user.com.apple.FinderInfo";
// The name under which the kernel's own HFS+ driver shows it.
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

bool hasHiddenExtension(const char *path)
{
    // Hardly any file has extended attributes at all, and asking for that costs one call.
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
