#include "cli/CopyPlan.h"

#include "foundation/DisplayPath.h"
#include "foundation/Paths.h"
#include "platform/Host.h"
#include "platform/VolumeFiles.h"

#include <filesystem>

namespace orvana::cli
{

using platform::Attributes;
using platform::FileType;
using platform::Folder;
using platform::Links;
using platform::Want;
using Check = std::optional<Refusal>;

namespace
{

bool isSame(const Attributes &a, const Attributes &b)
{
    return a.device == b.device && a.inode == b.inode;
}

std::string parentOf(const std::string &path)
{
    const auto slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

class Planner
{
public:
    explicit Planner(Folder &files) : m_files(files) {}

    Check checkSources(const std::vector<std::string> &sources);
    Check checkDestinations(const std::vector<std::string> &destinations);
    tl::expected<std::string, Refusal> chooseRoot(const CopyOptions &options,
                                                  const std::vector<std::string> &sources);
    Check checkApart(const CopyJob &job);
    Check checkPlaces(const CopyJob &job);

private:
    struct Known
    {
        std::string path;
        Attributes attributes;
    };

    std::optional<Attributes> at(const std::string &path) const;
    bool liesWithin(std::string path, const Attributes &folder) const;

    Folder &m_files;
    std::vector<Known> m_sources;
    std::vector<Known> m_destinations;
};

std::optional<Attributes> Planner::at(const std::string &path) const
{
    const auto attributes = m_files.attributes(path, Links::Follow, Want::Basics);
    return attributes ? std::optional(*attributes) : std::nullopt;
}

Check Planner::checkSources(const std::vector<std::string> &sources)
{
    if (sources.empty())
        return Refusal{WrongUsage, "no source given"};
    for (const auto &source : sources) {
        if (source.empty())
            return Refusal{WrongUsage, "an empty text is no source"};
        const auto attributes = at(source);
        if (!attributes)
            return Refusal{NotThere, displayPath(source) + ": no such file or folder"};
        m_sources.push_back({source, *attributes});
    }
    return std::nullopt;
}

Check Planner::checkDestinations(const std::vector<std::string> &destinations)
{
    if (destinations.empty())
        return Refusal{WrongUsage, "no destination given; name one or more with --to"};
    for (const auto &destination : destinations) {
        if (destination.empty())
            return Refusal{WrongUsage, "an empty text is no destination"};
        const auto attributes = at(destination);
        if (!attributes)
            return Refusal{NotThere, displayPath(destination) + ": no such folder"};
        if (attributes->type != FileType::Folder)
            return Refusal{NotThere, displayPath(destination) + ": not a folder"};
        for (const auto &other : m_destinations) {
            if (isSame(other.attributes, *attributes))
                return Refusal{WrongUsage, displayPath(destination) + ": the same destination as " +
                                               displayPath(other.path)};
        }
        m_destinations.push_back({destination, *attributes});
    }
    return std::nullopt;
}

tl::expected<std::string, Refusal> Planner::chooseRoot(const CopyOptions &options,
                                                       const std::vector<std::string> &sources)
{
    auto root = options.root ? cleanPath(*options.root) : parentOf(sources.front());
    if (root == "/")
        return tl::unexpected(Refusal{
            WrongUsage, "/: cannot be the root of a copy; name a folder above the sources with --root"});
    for (const auto &source : sources) {
        if (!options.root && parentOf(source) != root)
            return tl::unexpected(
                Refusal{WrongUsage, displayPath(source) + ": does not lie in " + displayPath(root) +
                                        " like the others; name a common root with --root"});
        if (!isAtOrBelow(source, root))
            return tl::unexpected(Refusal{WrongUsage, displayPath(source) + ": does not lie below the root " +
                                                          displayPath(root)});
    }
    if (const auto attributes = at(root); !attributes || attributes->type != FileType::Folder)
        return tl::unexpected(Refusal{NotThere, displayPath(root) + ": no such folder"});
    return root;
}

// True if the folder at `path` is `folder` or lies anywhere below it, whatever links the path contains.
bool Planner::liesWithin(std::string path, const Attributes &folder) const
{
    for (auto here = at(path); here;) {
        if (isSame(*here, folder))
            return true;
        path += "/..";
        const auto above = at(path);
        if (!above || isSame(*above, *here))
            return false;
        here = above;
    }
    return false;
}

// Each item gets a place below each destination. A file or folder that is already in that place must not be a
// part of the source. Otherwise a source that lies inside its own destination could be copied over itself.
Check Planner::checkPlaces(const CopyJob &job)
{
    for (const auto &item : m_sources) {
        const auto below = item.path.substr(std::min(job.SrcDiskPath.size(), item.path.size()));
        for (const auto &destination : below.empty() ? std::vector<Known>() : m_destinations) {
            const auto place = destination.path + below;
            const auto there = at(place);
            for (const auto &source : m_sources) {
                const bool isInPlace =
                    there && (isSame(*there, source.attributes) ||
                              (there->type == FileType::Folder && liesWithin(parentOf(source.path), *there)));
                if (isInPlace || (there && source.attributes.type == FileType::Folder &&
                                  liesWithin(parentOf(place), source.attributes)))
                    return Refusal{WrongUsage, displayPath(item.path) + ": its copy would lie in " +
                                                   displayPath(place) + ", over the source " +
                                                   displayPath(source.path)};
            }
        }
    }
    return std::nullopt;
}

Check Planner::checkApart(const CopyJob &job)
{
    const auto root = at(job.SrcDiskPath);
    for (const auto &destination : m_destinations) {
        if (root && isSame(*root, destination.attributes))
            return Refusal{WrongUsage, displayPath(destination.path) + ": is the source itself"};
        for (const auto &other : m_destinations) {
            if (&other != &destination && liesWithin(destination.path, other.attributes))
                return Refusal{WrongUsage, displayPath(destination.path) + ": lies in the destination " +
                                               displayPath(other.path)};
        }
        for (const auto &source : m_sources) {
            if (source.attributes.type == FileType::Folder && liesWithin(destination.path, source.attributes))
                return Refusal{WrongUsage, displayPath(destination.path) + ": lies in the source " +
                                               displayPath(source.path)};
        }
    }
    return std::nullopt;
}

} // namespace

std::string cleanPath(const std::string &path)
{
    std::error_code error;
    auto clean = std::filesystem::absolute(path, error).lexically_normal().native();
    if (error || path.empty())
        return path;
    while (clean.size() > 1 && clean.ends_with('/'))
        clean.pop_back();
    return clean;
}

tl::expected<CopyJob, Refusal> planCopy(platform::Host &host, const CopyOptions &options)
{
    CopyJob job;
    for (const auto &source : options.sources)
        job.SrcFileArray.push_back(cleanPath(source));
    for (const auto &destination : options.destinations)
        job.DesFileArray.push_back(cleanPath(destination));
    Planner planner(host.volumeFiles().workingFolder());
    if (auto refusal = planner.checkSources(job.SrcFileArray))
        return tl::unexpected(*refusal);
    if (auto refusal = planner.checkDestinations(job.DesFileArray))
        return tl::unexpected(*refusal);
    auto root = planner.chooseRoot(options, job.SrcFileArray);
    if (!root)
        return tl::unexpected(root.error());
    job.SrcDiskPath = std::move(*root);
    if (auto refusal = planner.checkApart(job))
        return tl::unexpected(*refusal);
    if (auto refusal = planner.checkPlaces(job))
        return tl::unexpected(*refusal);
    return job;
}

} // namespace orvana::cli
