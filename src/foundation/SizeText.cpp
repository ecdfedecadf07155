#include "foundation/SizeText.h"

#include <array>
#include <cstdio>

namespace orvana
{

std::string sizeText(std::uint64_t bytes)
{
    constexpr std::array units{"Bytes", "KB", "MB", "GB", "TB"};
    auto value = static_cast<float>(bytes);
    std::size_t unit = 0;
    while (value > 1023.0F && unit + 1 < units.size()) {
        value *= 0.0009765625F;
        ++unit;
    }
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%.2f %s", static_cast<double>(value), units[unit]);
    return text.data();
}

} // namespace orvana
