#include "diskutil/DiskLock.h"

#include "platform/posix/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace orvana::diskutil
{

// The lock is the name of a socket in the kernel's own table. It needs no folder that every user may write
// to, and it ends with the process. It does not disturb udev, which locks the disk's node itself.
Outcome<std::shared_ptr<void>> holdDisk(std::uint64_t sequence)
{
    auto held =
        std::make_shared<platform::posix::Descriptor>(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!held->isOpen())
        return held; // a machine without such sockets has no udisks either
    const auto name = "orvana-plurimo/disk/" + std::to_string(sequence);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::copy(name.begin(), name.end(), std::begin(address.sun_path) + 1);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    const auto *place = reinterpret_cast<const sockaddr *>(&address);
    if (::bind(held->number(), place, length) != 0 && errno == EADDRINUSE)
        return trouble(Refused, "the disk is being erased or ejected by another program at this moment");
    return held;
}

} // namespace orvana::diskutil
