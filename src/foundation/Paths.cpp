#include "foundation/Paths.h"

namespace orvana
{

std::string lastComponent(const std::string &path)
{
    const auto end = path.find_last_not_of('/');
    if (end == std::string::npos)
        return path.empty() ? std::string() : "/";
    const auto slash = path.rfind('/', end);
    return path.substr(slash + 1, end - slash);
}

bool isAtOrBelow(const std::string &path, const std::string &folder)
{
    if (folder.empty() || !path.starts_with(folder))
        return false;
    return path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/';
}

} // namespace orvana
