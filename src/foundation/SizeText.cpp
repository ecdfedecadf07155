#include "foundation/SizeText.h"

#include <array>
#include <charconv>

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
    // This prints as "%.2f" would, but with a decimal point in every language.
    std::array<char, 48> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), static_cast<double>(value),
                                   std::chars_format::fixed, 2)
                         .ptr;
    return std::string(text.data(), end) + " " + units[unit];
}

} // namespace orvana
