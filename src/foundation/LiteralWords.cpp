#include "foundation/LiteralWords.h"

#include "foundation/DisplayPath.h"

#include <algorithm>
#include <string_view>

namespace orvana
{

namespace
{

// In a sheltered value this byte is always a mark. If the user typed the byte, it is sheltered itself.
constexpr char Mark = '\x01';
constexpr std::string_view Digits = "0123456789abcdef";
constexpr char Empty = 'e' + 10; // not a hexadecimal digit

bool isPlain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
}

std::string sheltered(std::string_view text)
{
    if (text.empty())
        return {Mark, Empty};
    std::string words;
    for (const char c : text) {
        if (isPlain(c)) {
            words += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        words += {Mark, Digits[byte >> 4U], Digits[byte & 15U]};
    }
    return words;
}

} // namespace

std::vector<std::string> shelteredWords(int argc, const char *const *argv)
{
    std::vector<std::string> words;
    bool isOptionsEnd = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        const auto equals = word.find('=');
        // The name of an option stays as it is, and so does the "=" after it.
        if (!isOptionsEnd && word.starts_with("--") && equals != std::string_view::npos)
            words.push_back(std::string(word.substr(0, equals + 1)) + sheltered(word.substr(equals + 1)));
        else
            words.push_back(sheltered(word));
        isOptionsEnd = isOptionsEnd || word == "--";
    }
    return words;
}

std::string literal(const std::string &text)
{
    std::string typed;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != Mark || i + 1 >= text.size()) {
            typed += text[i];
        } else if (text[i + 1] == Empty) {
            ++i;
        } else if (i + 2 < text.size()) {
            const auto high = Digits.find(text[i + 1]);
            const auto low = Digits.find(text[i + 2]);
            typed += static_cast<char>(high << 4U | low);
            i += 2;
        }
    }
    return typed;
}

std::string shownLiteral(const std::string &text)
{
    std::string shown;
    std::size_t start = 0;
    const auto typed = literal(text);
    while (start <= typed.size()) {
        const auto end = std::min(typed.find('\n', start), typed.size());
        shown += displayPath(typed.substr(start, end - start));
        if (end < typed.size())
            shown += '\n';
        start = end + 1;
    }
    return shown;
}

} // namespace orvana
