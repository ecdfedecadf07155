#pragma once

#include <functional>
#include <string>

namespace orvana
{

/// Writes one line to standard error, where the desktop's journal keeps it. Callable from any thread.
void systemLog(const std::string &line);

/// Sends the lines to `sink` instead while this object lives. Tests use it to read the lines.
class SystemLogCapture
{
public:
    explicit SystemLogCapture(std::function<void(const std::string &)> sink);
    ~SystemLogCapture();
    SystemLogCapture(const SystemLogCapture &) = delete;
    SystemLogCapture &operator=(const SystemLogCapture &) = delete;

private:
    std::function<void(const std::string &)> m_previous;
};

} // namespace orvana
