#include "duplicate/journal/CheckedLine.h"

#include <array>
#include <cstdio>
#include <xxhash.h>

namespace orvana
{

namespace
{

constexpr std::size_t CheckLength = 16;

std::string checkOf(std::string_view body)
{
    std::array<char, CheckLength + 1> text{};
    std::snprintf(text.data(), text.size(), "%016llx",
                  static_cast<unsigned long long>(XXH3_64bits(body.data(), body.size())));
    return text.data();
}

} // namespace

std::string checkedLine(std::string_view body)
{
    return checkOf(body).append(" ").append(body).append("\n");
}

std::optional<std::string_view> bodyOfLine(std::string_view line)
{
    if (line.size() <= CheckLength || line[CheckLength] != ' ')
        return std::nullopt;
    const auto body = line.substr(CheckLength + 1);
    return checkOf(body) == line.substr(0, CheckLength) ? std::optional(body) : std::nullopt;
}

} // namespace orvana
