#include "support/LoopbackServer.h"

#include <arpa/inet.h>
#include <array>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace orvana::test
{

namespace
{

// A socket on a free port of the loopback address.
int boundSocket(std::string &address)
{
    const int number = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    auto *general = reinterpret_cast<sockaddr *>(&place);
    if (number < 0 || ::bind(number, general, size) != 0 || ::getsockname(number, general, &size) != 0)
        throw std::runtime_error("no port on the loopback address");
    address = "http://127.0.0.1:" + std::to_string(ntohs(place.sin_port));
    return number;
}

} // namespace

LoopbackServer::LoopbackServer(std::function<std::string(const std::string &)> answer)
    : m_answer(std::move(answer)), m_listener(boundSocket(m_address))
{
    ::listen(m_listener, 8);
    m_thread = std::jthread([this] { serve(); });
}

LoopbackServer::~LoopbackServer()
{
    ::shutdown(m_listener, SHUT_RDWR); // ends the waiting for the next connection
    m_thread.join();
    ::close(m_listener);
}

std::vector<std::string> LoopbackServer::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

std::string LoopbackServer::okay(const std::string &body)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nConnection: close\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

void LoopbackServer::serve()
{
    for (int connection = 0; (connection = ::accept(m_listener, nullptr, nullptr)) >= 0;) {
        serveOne(connection);
        ::close(connection);
    }
}

void LoopbackServer::serveOne(int connection)
{
    std::string request;
    std::array<char, 4096> buffer{};
    while (request.find("\r\n\r\n") == std::string::npos) {
        const auto count = ::recv(connection, buffer.data(), buffer.size(), 0);
        if (count <= 0)
            return;
        request.append(buffer.data(), static_cast<std::size_t>(count));
    }
    const auto start = request.find(' ') + 1;
    const auto path = request.substr(start, request.find(' ', start) - start);
    {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(path);
    }
    const auto answer = m_answer(path);
    for (std::size_t done = 0; done < answer.size();) {
        const auto count = ::send(connection, answer.data() + done, answer.size() - done, MSG_NOSIGNAL);
        if (count <= 0)
            return;
        done += static_cast<std::size_t>(count);
    }
    ::shutdown(connection, SHUT_WR);
}

std::string deafAddress()
{
    std::string address;
    ::close(boundSocket(address));
    return address;
}

} // namespace orvana::test
