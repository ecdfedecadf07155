#include "platform/linux/BusProbe.h"

#include "platform/posix/Descriptor.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>

namespace orvana::platform::linux_host
{

namespace
{

constexpr int PatienceMilliseconds = 2000;

std::string environment(const char *name)
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the program never changes its environment.
    const char *value = std::getenv(name);
    return value ? value : std::string();
}

std::string ownAddress(BusKind kind)
{
    auto address =
        environment(kind == BusKind::Session ? "DBUS_SESSION_BUS_ADDRESS" : "DBUS_SYSTEM_BUS_ADDRESS");
    if (!address.empty())
        return address;
    return kind == BusKind::System ? "unix:path=/var/run/dbus/system_bus_socket" : std::string();
}

struct SocketAddress
{
    sockaddr_un address{};
    socklen_t length = 0;
};

// Parses "unix:path=/run/bus,guid=..." and "unix:abstract=name". Returns nullopt for other kinds of
// addresses, which are not tried.
std::optional<SocketAddress> socketOf(std::string_view address)
{
    constexpr std::string_view File = "unix:path=";
    constexpr std::string_view Abstract = "unix:abstract=";
    const bool isAbstract = address.starts_with(Abstract);
    if ((!isAbstract && !address.starts_with(File)) || address.find('%') != std::string_view::npos)
        return std::nullopt;
    address.remove_prefix(isAbstract ? Abstract.size() : File.size());
    const auto name = address.substr(0, address.find_first_of(",;"));
    SocketAddress socket;
    socket.address.sun_family = AF_UNIX;
    // An abstract name begins with a NUL and does not end with one.
    const std::size_t start = isAbstract ? 1 : 0;
    if (name.empty() || start + name.size() >= sizeof socket.address.sun_path)
        return std::nullopt;
    std::memcpy(&socket.address.sun_path[start], name.data(), name.size());
    // 1 is added for the NUL, which both kinds have.
    socket.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() + 1);
    return socket;
}

} // namespace

bool doesBusAnswer(BusKind kind, const std::string &address)
{
    const auto socket = socketOf(address.empty() ? ownAddress(kind) : address);
    if (!socket)
        return true;
    const posix::Descriptor connection(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!connection.isOpen() ||
        ::connect(connection.number(), reinterpret_cast<const sockaddr *>(&socket->address),
                  socket->length) != 0)
        return false;
    // A bus answers this question about ways to authenticate at once.
    constexpr std::string_view Question("\0AUTH\r\n", 7);
    if (::send(connection.number(), Question.data(), Question.size(), MSG_NOSIGNAL) < 0)
        return false;
    pollfd wait{connection.number(), POLLIN, 0};
    std::array<char, 64> answer{};
    return ::poll(&wait, 1, PatienceMilliseconds) == 1 &&
           ::recv(connection.number(), answer.data(), answer.size(), 0) > 0;
}

} // namespace orvana::platform::linux_host
