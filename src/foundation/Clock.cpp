#include "foundation/Clock.h"

#include <array>
#include <ctime>

namespace orvana
{

std::string localTime(std::chrono::system_clock::time_point time, const char *layout)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), layout, &parts)};
}

} // namespace orvana
