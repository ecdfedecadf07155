#include "duplicate/engine/ForbiddenFolders.h"

#include "duplicate/engine/RunContext.h"

#include <algorithm>

namespace orvana
{

using platform::Attributes;
using platform::FileType;

namespace
{

constexpr const char *LeadsIntoDestination = "it leads into a destination";
constexpr const char *HoldsJournals = "it holds the journal of this run";

} // namespace

std::optional<Attributes> ForbiddenFolders::followed(const std::string &path) const
{
    const auto attributes = m_run.sources().attributes(path, platform::Links::Follow, platform::Want::Basics);
    return attributes ? std::optional(*attributes) : std::nullopt;
}

bool ForbiddenFolders::isDestination(const Attributes &folder) const
{
    const auto &targets = m_run.targets();
    return std::any_of(targets.begin(), targets.end(),
                       [&](const Target &target) { return target.destination.isRoot(folder); });
}

// True when the link at `path` leads to a destination or to a folder in it, such as one that this run made.
bool ForbiddenFolders::liesInDestination(const std::string &path) const
{
    auto above = path;
    for (auto here = followed(above); here && here->type == FileType::Folder;) {
        if (isDestination(*here))
            return true;
        above += "/..";
        const auto next = followed(above);
        if (!next || (next->device == here->device && next->inode == here->inode))
            return false;
        here = next;
    }
    return false;
}

const char *ForbiddenFolders::ruleAgainst(const std::string &path, const Attributes &folder,
                                          bool isLink) const
{
    if (isLink ? liesInDestination(path) : isDestination(folder))
        return LeadsIntoDestination;
    return m_run.isFolderOfJournals(folder) ? HoldsJournals : nullptr;
}

} // namespace orvana
