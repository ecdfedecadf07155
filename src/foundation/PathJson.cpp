#include "foundation/PathJson.h"

#include "foundation/DisplayPath.h"

#include <cstdint>
#include <nlohmann/json.hpp>

namespace orvana
{

void putPath(Json &object, const std::string &key, std::string_view path)
{
    const auto shown = displayPath(path);
    object[key] = shown;
    if (shown != path)
        object[key + "Bytes"] = base64(path);
}

namespace
{

constexpr std::string_view Digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

} // namespace

std::optional<std::string> fromBase64(std::string_view text)
{
    if (text.size() % 4 != 0)
        return std::nullopt;
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 4) {
        const bool isLast = i + 4 == text.size();
        const std::size_t padding = !isLast ? 0 : text.substr(i + 2) == "==" ? 2 : text[i + 3] == '=' ? 1 : 0;
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 4; ++k) {
            const auto digit = k < 4 - padding ? Digits.find(text[i + k]) : 0;
            if (digit == std::string_view::npos)
                return std::nullopt;
            group = group << 6U | static_cast<std::uint32_t>(digit);
        }
        for (std::size_t k = 0; k < 3 - padding; ++k)
            bytes += static_cast<char>(group >> (16U - 8U * k) & 0xFFU);
    }
    return base64(bytes) == text ? std::optional(bytes) : std::nullopt;
}

std::string base64(std::string_view bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8U | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= bytes.size() ? Digits[group >> (18U - 6U * k) & 0x3FU] : '=';
    }
    return text;
}

} // namespace orvana
