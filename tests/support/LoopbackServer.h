#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace orvana::test
{

/// A web server on the loopback address. It sends the test's answer to each request, byte for byte, and
/// closes the connection.
class LoopbackServer
{
public:
    /// `answer` is called on the server's thread with the path that was asked for.
    explicit LoopbackServer(std::function<std::string(const std::string &path)> answer);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer &) = delete;
    LoopbackServer &operator=(const LoopbackServer &) = delete;

    /// "http://127.0.0.1:PORT"
    const std::string &address() const { return m_address; }

    /// The paths that were asked for so far.
    std::vector<std::string> requests() const;

    /// Returns a successful answer with this body.
    static std::string okay(const std::string &body);

private:
    void serve();
    void serveOne(int connection);

    std::function<std::string(const std::string &)> m_answer;
    std::string m_address; // set together with the listener, so declared before it
    int m_listener;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_requests;
    std::jthread m_thread;
};

/// An address on which nobody listens.
std::string deafAddress();

} // namespace orvana::test
