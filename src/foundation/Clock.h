#pragma once

#include <chrono>
#include <string>

namespace orvana
{

/// The time of day, injected so that tests can stop it.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual std::chrono::system_clock::time_point now() const = 0;
};

class SystemClock final : public Clock
{
public:
    std::chrono::system_clock::time_point now() const override { return std::chrono::system_clock::now(); }
};

/// Returns `time` in the system's time zone, formatted by `strftime` with `layout`. Callable from any thread.
std::string localTime(std::chrono::system_clock::time_point time, const char *layout);

} // namespace orvana
