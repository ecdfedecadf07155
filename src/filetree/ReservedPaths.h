#pragma once

#include <string>
#include <string_view>

namespace orvana
{

namespace platform
{
class Host;
}

/// Knows the paths that are never offered, counted or copied: what the user's own system and other systems
/// keep for themselves. Callable from any thread.
class ReservedPaths
{
public:
    explicit ReservedPaths(platform::Host &host);

    /// True for the user's own "Library" and "Public", compared as whole paths, and for every path that
    /// holds a reserved word.
    bool contains(std::string_view path) const;

    /// Like `contains`, for the entry `name` of `folder`. The caller knows that `folder` holds no reserved
    /// word.
    bool containsEntry(std::string_view folder, std::string_view name) const;

    /// True if "System Volume Information", "Temporary Items" or "Network Trash Folder" occurs anywhere in
    /// the path.
    static bool holdsReservedWord(std::string_view path);

private:
    std::string m_home; // the real path of the user's home folder
};

/// True when the path leads to or through a package that is shown although its extension is hidden.
bool belongsToPackage(std::string_view path);

} // namespace orvana
