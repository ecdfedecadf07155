#pragma once

#include <string>
#include <string_view>

namespace orvana
{

/// Returns the path, below a folder, as bytes that sort as a walk through the tree goes: a folder right
/// before its content, and the content of one folder together. Bytes appended to a key do not change that
/// order. The empty path is the folder itself.
std::string sortKey(std::string_view path);

/// Returns the path of the key at the front of `record`, and removes the key.
std::string takeSortKey(std::string_view &record);

/// Returns the name at the end of the path.
std::string_view nameIn(std::string_view path);

/// True when `path` is `folder` or lies below it. The empty folder is above everything.
bool isWithin(std::string_view path, std::string_view folder);

/// Returns `path` without the `folder` above it. The path must be `isWithin` the folder.
std::string_view pathWithin(std::string_view path, std::string_view folder);

/// Returns the two paths with a slash between them if neither is empty.
std::string joined(std::string_view folder, std::string_view path);

} // namespace orvana
