#include "duplicate/engine/NameRules.h"

#include "foundation/DisplayPath.h"

#include <algorithm>
#include <locale>
#include <stdexcept>
#include <vector>

namespace orvana
{

using platform::VolumeFamily;

namespace
{

constexpr std::size_t LongestInBytes = 255;
constexpr std::size_t LongestInUnits = 255; // of UTF-16
constexpr std::uint64_t LargestOnFat = 0xFFFFFFFF;
constexpr std::string_view ForbiddenOnFat = "\"*/:<>?\\|";

// Returns the code points of well-formed UTF-8.
std::vector<char32_t> codePointsOf(std::string_view text)
{
    std::vector<char32_t> points;
    points.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
            points.push_back(byte);
        else if (byte < 0xC0)
            points.back() = points.back() << 6U | (byte & 0x3FU);
        else
            points.push_back(byte & (byte < 0xE0 ? 0x1FU : byte < 0xF0 ? 0x0FU : 0x07U));
    }
    return points;
}

std::size_t unitsOf(const std::vector<char32_t> &points)
{
    return points.size() + static_cast<std::size_t>(std::count_if(
                               points.begin(), points.end(), [](char32_t point) { return point > 0xFFFF; }));
}

const std::locale &unicodeLocale()
{
    static const std::locale locale = [] {
        try {
            return std::locale("C.UTF-8");
        } catch (const std::runtime_error &) {
            return std::locale::classic(); // then only ASCII letters are compared without their case
        }
    }();
    return locale;
}

std::optional<std::string> faultOnFat(std::string_view name, VolumeFamily family)
{
    const bool hasForbidden = std::any_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || ForbiddenOnFat.find(c) != std::string_view::npos;
    });
    if (hasForbidden)
        return "The name has a character that the volume does not take";
    if (name.ends_with('.'))
        return "The name ends with a dot, which the volume drops";
    if (family == VolumeFamily::Fat && name.ends_with(' '))
        return "The name ends with a blank";
    return std::nullopt;
}

} // namespace

std::optional<std::string> faultOfName(std::string_view name, VolumeFamily family)
{
    if (family == VolumeFamily::Unknown)
        return std::nullopt;
    if (family == VolumeFamily::Unix)
        return name.size() > LongestInBytes ? std::optional<std::string>("The name is too long")
                                            : std::nullopt;
    if (!isUtf8(name))
        return "The name is not UTF-8";
    if (unitsOf(codePointsOf(name)) > LongestInUnits)
        return "The name is too long";
    return family == VolumeFamily::HfsPlus ? std::nullopt : faultOnFat(name, family);
}

std::string keyOfName(std::string_view name, VolumeFamily family)
{
    if (family == VolumeFamily::Unix || family == VolumeFamily::Unknown || !isUtf8(name))
        return std::string(name);
    std::string key;
    for (const auto point : codePointsOf(name)) {
        const auto upper = std::toupper(static_cast<wchar_t>(point), unicodeLocale());
        key.append(std::to_string(static_cast<std::uint32_t>(upper))).append(" ");
    }
    return key;
}

std::optional<std::uint64_t> largestFileOf(VolumeFamily family)
{
    return family == VolumeFamily::Fat ? std::optional(LargestOnFat) : std::nullopt;
}

} // namespace orvana
