#pragma once

#include <cstdint>
#include <string_view>

namespace orvana
{

/// Returns a number for the text that stays the same in every process (FNV-1a). It is no protection against
/// texts that are made to have the same number.
constexpr std::int64_t textHash(std::string_view text)
{
    std::uint64_t sum = 14695981039346656037U;
    for (const char c : text)
        sum = (sum ^ static_cast<std::uint8_t>(c)) * 1099511628211U;
    return static_cast<std::int64_t>(sum);
}

} // namespace orvana
