#pragma once

#include <string>

namespace orvana::test
{

/// A line of the listing of mounted volumes, as "df" writes it.
inline std::string line(const std::string &device, const std::string &mountPoint,
                        const std::string &blocks = "1000", const std::string &free = "400")
{
    return device + " " + blocks + " 600 " + free + " 60% 10 20 33% " + mountPoint + "\n";
}

} // namespace orvana::test
