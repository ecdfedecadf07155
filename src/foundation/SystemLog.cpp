#include "foundation/SystemLog.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace orvana
{

namespace
{

std::mutex sinkMutex;
std::function<void(const std::string &)> sink;

} // namespace

void systemLog(const std::string &line)
{
    const std::lock_guard lock(sinkMutex);
    if (sink)
        sink(line);
    else
        std::fprintf(stderr, line.ends_with('\n') ? "%s" : "%s\n", line.c_str());
}

SystemLogCapture::SystemLogCapture(std::function<void(const std::string &)> newSink)
{
    const std::lock_guard lock(sinkMutex);
    m_previous = std::exchange(sink, std::move(newSink));
}

SystemLogCapture::~SystemLogCapture()
{
    const std::lock_guard lock(sinkMutex);
    sink = std::move(m_previous);
}

} // namespace orvana
