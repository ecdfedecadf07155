#pragma once

#include <string>

namespace orvana
{

/// The last component of a path, without slashes at its end; "/" for the root, nothing of an empty path.
std::string lastComponent(const std::string &path);

/// True when the path is the folder or lies in it, by their texts alone. Nothing lies in an empty one.
bool isAtOrBelow(const std::string &path, const std::string &folder);

} // namespace orvana
