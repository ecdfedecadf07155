#include "filetree/ReservedPaths.h"

#include "platform/Account.h"
#include "platform/Host.h"
#include "platform/Places.h"

#include <algorithm>
#include <array>

namespace orvana
{

ReservedPaths::ReservedPaths(platform::Host &host)
{
    const auto login = host.account().loginName();
    m_home = host.places().userPath(login).value_or("/Users/" + login);
}

bool ReservedPaths::contains(std::string_view path) const
{
    if (holdsReservedWord(path))
        return true;
    const auto slash = path.rfind('/');
    return slash != std::string_view::npos && containsEntry(path.substr(0, slash), path.substr(slash + 1));
}

bool ReservedPaths::containsEntry(std::string_view folder, std::string_view name) const
{
    return (folder == m_home && (name == "Library" || name == "Public")) || holdsReservedWord(name);
}

bool ReservedPaths::holdsReservedWord(std::string_view path)
{
    constexpr std::array words{"System Volume Information", "Temporary Items", "Network Trash Folder"};
    return std::any_of(words.begin(), words.end(),
                       [&](const char *word) { return path.find(word) != std::string_view::npos; });
}

bool belongsToPackage(std::string_view path)
{
    return path.find(".band") != std::string_view::npos;
}

} // namespace orvana
