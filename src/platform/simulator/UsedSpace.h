#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>

namespace orvana::platform::simulator
{

/// Returns the sum of the sizes of all regular files below a folder, in bytes. Does not follow links. What
/// cannot be read counts as nothing.
std::uint64_t bytesBelow(const std::string &folder);

/// The used space of simulated volumes. A real file system counts it while it writes; here all files are
/// added up.
///
/// One click of the user asks several times. So a sum that took long is used again for four times as long as
/// it took: adding up takes at most a fifth of the time. The sum of a small volume is always exact. Not
/// thread-safe.
class UsedSpace
{
public:
    std::uint64_t of(const std::string &folder);

    /// To be called when files were changed by the simulator itself.
    void forgetAll() { m_sums.clear(); }

private:
    using Clock = std::chrono::steady_clock;

    struct Sum
    {
        std::uint64_t bytes = 0;
        Clock::time_point goodUntil;
    };

    std::map<std::string, Sum> m_sums; // by folder
};

} // namespace orvana::platform::simulator
