#include "foundation/DisplayPath.h"

#include <cstdint>

namespace orvana
{

namespace
{

constexpr char32_t NotUtf8 = 0xFFFFFFFF;

struct Decoded
{
    char32_t character;
    std::size_t length;
};

int sequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool isWellFormed(char32_t character, int length)
{
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    return character >= smallest[length] && character <= 0x10FFFF && !surrogate;
}

// Returns the first character of `bytes`, which must not be empty. If no valid character starts there,
// returns NotUtf8 for one byte.
Decoded decodeFirst(std::string_view bytes)
{
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const int length = sequenceLength(lead);
    if (length == 0 || static_cast<std::size_t>(length) > bytes.size())
        return {NotUtf8, 1};
    char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (int i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
        if ((next & 0xC0U) != 0x80)
            return {NotUtf8, 1};
        character = character << 6U | (next & 0x3FU);
    }
    if (!isWellFormed(character, length))
        return {NotUtf8, 1};
    return {character, static_cast<std::size_t>(length)};
}

bool isSafeToShow(char32_t c)
{
    const bool control = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool breaksLine = c == 0x2028 || c == 0x2029;
    const bool turnsDirection = c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
                                (c >= 0x2066 && c <= 0x2069);
    return c != NotUtf8 && !control && !breaksLine && !turnsDirection;
}

void appendEscaped(std::string &out, std::string_view bytes)
{
    constexpr char digits[] = "0123456789ABCDEF";
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        out += "\\x";
        out += digits[value >> 4U];
        out += digits[value & 0xFU];
    }
}

bool isPlainAscii(std::string_view bytes)
{
    for (const char c : bytes) {
        if (const auto byte = static_cast<unsigned char>(c); byte < 0x20 || byte >= 0x7F)
            return false;
    }
    return true;
}

} // namespace

std::string displayPath(std::string_view bytes)
{
    if (isPlainAscii(bytes))
        return std::string(bytes);
    std::string out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto [character, length] = decodeFirst(bytes);
        if (isSafeToShow(character))
            out += bytes.substr(0, length);
        else
            appendEscaped(out, bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    return out;
}

bool isUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto [character, length] = decodeFirst(bytes);
        if (character == NotUtf8)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

} // namespace orvana
