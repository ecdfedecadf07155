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

std::string base64(std::string_view bytes)
{
    constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8U | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= bytes.size() ? digits[group >> (18U - 6U * k) & 0x3FU] : '=';
    }
    return text;
}

} // namespace orvana
