#pragma once

#include "foundation/Clock.h"

#include <ctime>

namespace orvana::test
{

/// A clock that stands still until it is set; it starts at 2026-11-21 10:20:30 local time.
class StoppedClock final : public Clock
{
public:
    StoppedClock()
    {
        std::tm parts{};
        parts.tm_year = 126;
        parts.tm_mon = 10;
        parts.tm_mday = 21;
        parts.tm_hour = 10;
        parts.tm_min = 20;
        parts.tm_sec = 30;
        parts.tm_isdst = -1;
        m_now = std::chrono::system_clock::from_time_t(std::mktime(&parts));
    }

    std::chrono::system_clock::time_point now() const override { return m_now; }
    void pass(std::chrono::seconds time) { m_now += time; }

private:
    std::chrono::system_clock::time_point m_now;
};

} // namespace orvana::test
