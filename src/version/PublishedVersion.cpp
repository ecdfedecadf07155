#include "version/PublishedVersion.h"

#include "foundation/DisplayPath.h"

namespace orvana
{

namespace
{

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\n\v\f\r";
    const auto start = text.find_first_not_of(blanks);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

} // namespace

std::optional<VersionNumber> publishedVersion(std::string_view answer)
{
    const auto text = answer.substr(0, answer.find('\0'));
    const auto colon = text.find(':');
    if (colon == std::string_view::npos || !isUtf8(text))
        return std::nullopt;
    const auto behind = text.substr(colon + 1);
    return VersionNumber(std::string(trimmed(behind.substr(0, behind.find(':')))));
}

} // namespace orvana
