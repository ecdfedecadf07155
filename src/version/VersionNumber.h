#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace orvana
{

/// A version as text, ordered as people order versions: "1.9" is before "1.10".
///
/// Two versions are compared from left to right. A run of digits is compared by its value, whatever its
/// length and its leading zeros. Everything else is compared byte by byte. A version that ends first comes
/// first: "1.0" is before "1.0.0" and before "1.0b".
class VersionNumber
{
public:
    explicit VersionNumber(std::string text) : m_text(std::move(text)) {}

    const std::string &text() const { return m_text; }

    /// Equal versions may differ in leading zeros.
    friend std::weak_ordering operator<=>(const VersionNumber &left, const VersionNumber &right)
    {
        return compare(left.m_text, right.m_text);
    }
    friend bool operator==(const VersionNumber &left, const VersionNumber &right)
    {
        return compare(left.m_text, right.m_text) == 0;
    }

private:
    static std::weak_ordering compare(std::string_view left, std::string_view right);

    std::string m_text;
};

} // namespace orvana
