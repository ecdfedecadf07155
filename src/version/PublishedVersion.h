#pragma once

#include "version/VersionNumber.h"

#include <optional>
#include <string_view>

namespace orvana
{

/// The version that a version file tells: "Version: 1.2.3". The text ends with the answer or at its first
/// NUL; what stands between the first and the second colon, without blanks and line breaks around it, is the
/// version. Nothing without a colon, or for what is not UTF-8.
std::optional<VersionNumber> publishedVersion(std::string_view answer);

} // namespace orvana
