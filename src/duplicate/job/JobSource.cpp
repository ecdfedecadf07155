#include "duplicate/job/JobSource.h"

#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana
{

namespace
{

bool isVolumeRoot(const ORVBsdInfo &volume, const std::string &path)
{
    return *volume.mountPoint() == path;
}

} // namespace

tl::expected<void, std::string> nameSource(Job &job, const ScannedDevices &devices, const std::string &item,
                                           const std::string &root)
{
    const auto volume = root.empty() ? nullptr : devices.volumeAbove(root).volume;
    if (!volume)
        return tl::unexpected(std::string("the source is on no known volume"));
    if (!volume->volumeId())
        return tl::unexpected(displayPath(item) + ": the volume has no id, so a job cannot name it");
    job.volumeId = *volume->volumeId();
    job.sourceName = item;
    job.isHome = !isVolumeRoot(*volume, root);
    return {};
}

tl::expected<std::string, std::string> titleOfSource(const Job &job, const ScannedDevices &devices,
                                                     const SourcePlan &plan)
{
    const std::string *title = nullptr;
    const auto name = job.sourceName.empty() ? job.volumeId : job.sourceName;
    for (const auto &candidate : plan.candidates) {
        const auto volume = devices.volumeAbove(candidate.rootPath).volume;
        if (!volume || volume->volumeId() != job.volumeId ||
            job.isHome == isVolumeRoot(*volume, candidate.rootPath))
            continue;
        if (title)
            return tl::unexpected(displayPath(name) + ": two volumes have the id of the job's source");
        title = &candidate.title;
    }
    if (!title)
        return tl::unexpected(displayPath(name) + ": the source of the job is not there");
    // A source is chosen by its title, and of two with one title the wrong one could be taken.
    const auto ofThisTitle = std::count_if(plan.candidates.begin(), plan.candidates.end(),
                                           [&](const auto &candidate) { return candidate.title == *title; });
    if (ofThisTitle > 1)
        return tl::unexpected(displayPath(*title) + ": another source has the same name; rename one of them");
    return *title;
}

std::vector<std::string> selectionBelow(const Job &job, const std::string &root)
{
    if (job.selection.empty())
        return {root};
    const auto start = root == "/" ? root : root + "/";
    std::vector<std::string> paths;
    paths.reserve(job.selection.size());
    for (const auto &path : job.selection)
        paths.push_back(start + path);
    return paths;
}

std::vector<std::string> selectionOf(const std::vector<std::string> &paths, const std::string &root)
{
    std::vector<std::string> selection;
    for (const auto &path : paths) {
        if (path == root)
            return {};
        selection.push_back(path.substr(root == "/" ? 1 : root.size() + 1));
    }
    return selection;
}

} // namespace orvana
