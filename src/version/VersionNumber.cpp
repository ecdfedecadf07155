#include "version/VersionNumber.h"

#include <algorithm>

namespace orvana
{

namespace
{

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Removes the digits from the start of `text` and returns them without leading zeros.
std::string_view takeNumber(std::string_view &text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    auto digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

std::weak_ordering compareNumbers(std::string_view left, std::string_view right)
{
    if (left.size() != right.size())
        return left.size() <=> right.size();
    return left <=> right;
}

} // namespace

std::weak_ordering VersionNumber::compare(std::string_view left, std::string_view right)
{
    while (!left.empty() && !right.empty()) {
        std::weak_ordering order = std::weak_ordering::equivalent;
        if (isDigit(left.front()) && isDigit(right.front())) {
            order = compareNumbers(takeNumber(left), takeNumber(right));
        } else {
            order = static_cast<unsigned char>(left.front()) <=> static_cast<unsigned char>(right.front());
            left.remove_prefix(1);
            right.remove_prefix(1);
        }
        if (order != 0)
            return order;
    }
    return left.size() <=> right.size();
}

} // namespace orvana
