#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

/// The values that a pattern may use.
struct NameValues
{
    std::int64_t number = 0;
    std::string serial;
    std::string bay;  ///< "B"
    std::string date; ///< "2026-11-23"
};

/// A pattern for the names of volumes: "REEL 7 {n:03}". Its fields are {n}, {n:03} (with at least three
/// digits), {serial}, {bay} and {date}; "{{" and "}}" are the braces themselves.
class NamePattern
{
public:
    /// Reads the pattern. The error names the field that is wrong.
    static tl::expected<NamePattern, std::string> parse(std::string_view text);

    std::string nameFor(const NameValues &values) const;

    /// True when two disks that are in bays at the same time never get the same name.
    bool tellsBaysApart() const;

private:
    enum class Kind { Text, Number, Serial, Bay, Date };

    struct Piece
    {
        Kind kind = Kind::Text;
        std::string text;       ///< of Kind::Text
        std::size_t digits = 0; ///< of Kind::Number: at least this many
    };

    static tl::expected<Piece, std::string> fieldOf(std::string_view field);

    std::vector<Piece> m_pieces;
};

} // namespace orvana
