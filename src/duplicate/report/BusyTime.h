#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace orvana
{

/// Counts the time that a disk has been worked on. One thread at a time works and counts; any thread may
/// read. The work in hand counts with the time that it has taken so far, so a disk that hangs is seen while
/// it hangs.
class BusyTime
{
public:
    /// Counts the time from its making to its end.
    class Work
    {
    public:
        explicit Work(BusyTime &time) : m_time(time), m_start(now()) { m_time.m_since = m_start; }
        ~Work()
        {
            m_time.m_since = 0;
            m_time.m_nanoseconds += now() - m_start;
        }
        Work(const Work &) = delete;
        Work &operator=(const Work &) = delete;

    private:
        BusyTime &m_time;
        const std::int64_t m_start;
    };

    double seconds() const
    {
        const auto since = m_since.load();
        return static_cast<double>(m_nanoseconds + (since == 0 ? 0 : now() - since)) / 1e9;
    }

private:
    static std::int64_t now()
    {
        return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
    }

    std::atomic<std::int64_t> m_nanoseconds{0}; ///< of the work that has ended
    std::atomic<std::int64_t> m_since{0};       ///< the start of the work in hand; 0 for none
};

} // namespace orvana
