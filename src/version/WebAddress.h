#pragma once

#include <string>
#include <string_view>

namespace orvana
{

/// Paths on the maker's web server.
namespace webpath
{
inline constexpr std::string_view VersionFile = "/pl/version.txt";
inline constexpr std::string_view Help = "/software/orvana-plurimo";
inline constexpr std::string_view Download = "/software/orvana-plurimo/download";
} // namespace webpath

/// Returns the address of a path on the maker's web server. The environment variable ORVANA_WEB_BASE names
/// the server. Without the variable, the build setting of the same name does.
std::string webAddress(std::string_view path);

} // namespace orvana
