#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvana
{

/// Returns the text as a line that carries a check of its own. The text must not hold a newline.
std::string checkedLine(std::string_view body);

/// Returns the text of a line that was made so, without its newline. Returns nullopt for a line that is not
/// whole, as a crash or a power cut may leave it. The view lives as long as `line`.
std::optional<std::string_view> bodyOfLine(std::string_view line);

} // namespace orvana
