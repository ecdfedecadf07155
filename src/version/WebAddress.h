#pragma once

#include <string>
#include <string_view>

namespace orvana
{

/// A page or file on the maker's web server: the server's address, which the environment variable
/// ORVANA_WEB_BASE or else the build decides, and `path`, which starts with a slash.
std::string webAddress(std::string_view path);

} // namespace orvana
