#include "foundation/SizeText.h"

#include <array>
#include <charconv>

namespace orvana
{

namespace
{

struct Scaled
{
    float value;
    const char *unit;
};

Scaled scaled(float value)
{
    constexpr std::array units{"Bytes", "KB", "MB", "GB", "TB"};
    std::size_t unit = 0;
    while (value > 1023.0F && unit + 1 < units.size()) {
        value *= 0.0009765625F;
        ++unit;
    }
    return {value, units[unit]};
}

// Returns the value as "%.*f" would print it, but with a decimal point in every language.
std::string fixedText(double value, int decimals)
{
    std::array<char, 48> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
    return {text.data(), end};
}

} // namespace

std::string sizeText(std::uint64_t bytes)
{
    const auto [value, unit] = scaled(static_cast<float>(bytes));
    return fixedText(static_cast<double>(value), 2) + " " + unit;
}

std::string rateText(double bytesPerSecond)
{
    constexpr float NoDecimalsFrom = 9.95F; // would be printed as "10.0"
    const auto [value, unit] = scaled(static_cast<float>(bytesPerSecond));
    const bool isSmall = bytesPerSecond >= 1024 && value < NoDecimalsFrom;
    return fixedText(static_cast<double>(value), isSmall ? 1 : 0) + " " + unit + "/s";
}

} // namespace orvana
