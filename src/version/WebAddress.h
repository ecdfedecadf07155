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

/// The address of a path on the maker's web server. The server is the one that the environment variable
/// ORVANA_WEB_BASE names, else the one of the build setting of that name.
std::string webAddress(std::string_view path);

} // namespace orvana
