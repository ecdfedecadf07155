#include "duplicate/evidence/SortKey.h"

#include <algorithm>

namespace orvana
{

namespace
{

// No path holds a NUL, and none has an empty name, so two of them end a key. A NUL sorts before every byte
// of a name.
constexpr char Separator = '\0';
constexpr std::string_view KeyEnd("\0\0", 2);

} // namespace

std::string sortKey(std::string_view path)
{
    std::string key(path);
    std::replace(key.begin(), key.end(), '/', Separator);
    return key.append(KeyEnd);
}

std::string takeSortKey(std::string_view &record)
{
    const auto end = std::min(record.find(KeyEnd), record.size());
    std::string path(record.substr(0, end));
    record.remove_prefix(std::min(end + KeyEnd.size(), record.size()));
    std::replace(path.begin(), path.end(), Separator, '/');
    return path;
}

std::string_view nameIn(std::string_view path)
{
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

bool isWithin(std::string_view path, std::string_view folder)
{
    return folder.empty() ||
           (path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/'));
}

std::string_view pathWithin(std::string_view path, std::string_view folder)
{
    if (folder.empty())
        return path;
    return path.size() == folder.size() ? std::string_view() : path.substr(folder.size() + 1);
}

std::string joined(std::string_view folder, std::string_view path)
{
    std::string both(folder);
    if (!folder.empty() && !path.empty())
        both += '/';
    return both.append(path);
}

} // namespace orvana
