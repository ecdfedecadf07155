#pragma once

#include <string>

namespace orvana
{

/// Returns the last component of a path, without trailing slashes. Returns "/" for the root and an empty text
/// for an empty path.
std::string lastComponent(const std::string &path);

/// True when the path is the folder or lies in it. Compares only the texts. Nothing lies in an empty folder
/// path.
bool isAtOrBelow(const std::string &path, const std::string &folder);

} // namespace orvana
