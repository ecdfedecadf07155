#include "duplicate/line/NamePattern.h"

#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana
{

namespace
{

constexpr std::size_t MostDigits = 9;

std::string withZeros(std::int64_t number, std::size_t digits)
{
    auto text = std::to_string(number);
    if (text.size() < digits)
        text.insert(0, digits - text.size(), '0');
    return text;
}

} // namespace

tl::expected<NamePattern::Piece, std::string> NamePattern::fieldOf(std::string_view field)
{
    Piece piece;
    if (field == "n") {
        piece.kind = Kind::Number;
    } else if (field == "serial") {
        piece.kind = Kind::Serial;
    } else if (field == "bay") {
        piece.kind = Kind::Bay;
    } else if (field == "date") {
        piece.kind = Kind::Date;
    } else if (field.size() == 4 && field.starts_with("n:0") && field[3] >= '1' &&
               field[3] <= static_cast<char>('0' + MostDigits)) {
        piece.kind = Kind::Number;
        piece.digits = static_cast<std::size_t>(field[3] - '0');
    } else {
        return tl::unexpected("{" + displayPath(std::string(field)) +
                              "}: no field of a name; they are {n}, {n:03}, {serial}, {bay} and {date}");
    }
    return piece;
}

tl::expected<NamePattern, std::string> NamePattern::parse(std::string_view text)
{
    NamePattern pattern;
    std::string plain;
    const auto endPlain = [&] {
        if (!plain.empty())
            pattern.m_pieces.push_back({Kind::Text, plain, 0});
        plain.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c != '{' && c != '}') {
            plain += c;
        } else if (i + 1 < text.size() && text[i + 1] == c) {
            plain += c;
            ++i;
        } else {
            const auto end = text.find('}', i);
            if (c == '}' || end == std::string_view::npos)
                return tl::unexpected(std::string("a brace without its partner; write it twice to mean the "
                                                  "character"));
            auto field = fieldOf(text.substr(i + 1, end - i - 1));
            if (!field)
                return tl::unexpected(field.error());
            endPlain();
            pattern.m_pieces.push_back(std::move(*field));
            i = end;
        }
    }
    endPlain();
    return pattern;
}

std::string NamePattern::nameFor(const NameValues &values) const
{
    std::string name;
    for (const auto &piece : m_pieces) {
        switch (piece.kind) {
        case Kind::Text:
            name += piece.text;
            break;
        case Kind::Number:
            name += withZeros(values.number, piece.digits);
            break;
        case Kind::Serial:
            name += values.serial;
            break;
        case Kind::Bay:
            name += values.bay;
            break;
        case Kind::Date:
            name += values.date;
            break;
        }
    }
    return name;
}

bool NamePattern::tellsBaysApart() const
{
    return std::any_of(m_pieces.begin(), m_pieces.end(), [](const Piece &piece) {
        return piece.kind == Kind::Number || piece.kind == Kind::Bay;
    });
}

} // namespace orvana
