#pragma once

#include "version/VersionNumber.h"

#include <optional>
#include <string_view>

namespace orvana
{

/// Returns the version in the text of a version file: "Version: 1.2.3". The text ends at its first NUL, if it
/// has one. The version stands between the first and the second colon, without the blanks and line breaks
/// around it. Returns nullopt if there is no colon or the text is not UTF-8.
std::optional<VersionNumber> publishedVersion(std::string_view answer);

} // namespace orvana
