#include "duplicate/evidence/Leftovers.h"

#include "duplicate/evidence/DiskLists.h"
#include "duplicate/evidence/History.h"
#include "duplicate/evidence/SortKey.h"

#include <vector>

namespace orvana
{

namespace
{

bool isOfKind(const platform::Folder &volume, const std::string &path, platform::FileType type)
{
    const auto there = volume.attributes(path, platform::Links::DoNotFollow, platform::Want::Basics);
    return there && there->type == type;
}

// True for a name that a writer of histories gives, finished or not.
bool isOfHistory(std::string_view name)
{
    if (name.ends_with(UnfinishedEnd))
        name.remove_suffix(UnfinishedEnd.size());
    return name == ChainName || generationOf(name).has_value();
}

bool isUnfinished(std::string_view name, bool isInHistory)
{
    if (!name.ends_with(UnfinishedEnd))
        return false;
    return isInHistory ? isOfHistory(name)
                       : isNameOfOurSums(name.substr(0, name.size() - UnfinishedEnd.size()));
}

} // namespace

void removeUnfinishedHistory(platform::Folder &volume, const std::string &path)
{
    if (!isOfKind(volume, path, platform::FileType::Folder))
        return;
    std::vector<std::string> files;
    auto names = volume.list(path);
    while (names && !names->empty()) {
        const auto name = names->takeNext();
        files.push_back(joined(path, name));
        if (!isOfHistory(name) || !isOfKind(volume, files.back(), platform::FileType::Regular))
            return;
    }
    for (const auto &file : files)
        (void)volume.remove(file);
    (void)volume.remove(path);
}

void removeLeftovers(platform::Folder &volume, const std::string &folder)
{
    auto names = volume.list(folder);
    while (names && !names->empty()) {
        const auto name = names->takeNext();
        const auto path = joined(folder, name);
        if (isUnfinished(name, nameIn(folder) == HistoryFolder) &&
            isOfKind(volume, path, platform::FileType::Regular))
            (void)volume.remove(path);
    }
}

} // namespace orvana
