#include "duplicate/report/RunProblems.h"

#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana
{

namespace
{

// Says what is wrong with several files.
const char *wordsFor(ProblemKind kind)
{
    switch (kind) {
    case ProblemKind::Failed:
        return "failed";
    case ProblemKind::KeptTail:
        return "with an older, longer file's end behind the copy";
    case ProblemKind::SourceChanged:
        return "changed at the source meanwhile";
    case ProblemKind::SameFile:
        return "under a name that is another file's there";
    case ProblemKind::Mismatched:
        return "differ";
    case ProblemKind::Unverified:
        return "could not be compared";
    case ProblemKind::NotInManifest:
        return "not in a manifest";
    case ProblemKind::NoManifest:
        return "without a manifest";
    case ProblemKind::CannotHold:
        return "that the volume cannot hold";
    case ProblemKind::NotAsInHistory:
        return "not as in the source's history";
    }
    return "";
}

std::string belowRoot(const std::string &file, const std::string &root)
{
    const auto start = root.ends_with('/') ? root : root + "/";
    return displayPath(file.starts_with(start) && file.size() > start.size() ? file.substr(start.size())
                                                                             : file);
}

} // namespace

void RunProblems::add(const RunProblem &problem)
{
    const std::lock_guard lock(m_mutex);
    const auto groupFor = [&](const std::string &reason) {
        return std::find_if(m_groups.begin(), m_groups.end(), [&](const ProblemGroup &group) {
            return group.kind == problem.kind && group.destination == problem.destination &&
                   group.reason == reason;
        });
    };
    auto group = groupFor(problem.reason);
    if (group == m_groups.end() && m_groups.size() >= MostReasons)
        group = groupFor({});
    if (group == m_groups.end()) {
        const auto reason = m_groups.size() < MostReasons ? problem.reason : std::string();
        group = m_groups.insert(m_groups.end(), {problem.destination, problem.kind, reason, 0, {}});
    }
    ++group->count;
    if (group->files.size() < FilesOfAGroup)
        group->files.push_back(problem.file);
}

std::vector<ProblemGroup> RunProblems::groups() const
{
    const std::lock_guard lock(m_mutex);
    return m_groups;
}

std::vector<std::string> linesOf(const ProblemGroup &group, const std::string &sourceRoot)
{
    auto heading = std::to_string(group.count) + " " + wordsFor(group.kind);
    if (!group.reason.empty())
        heading += ": " + group.reason;
    std::vector<std::string> lines{std::move(heading)};
    for (const auto &file : group.files)
        lines.push_back("    " + belowRoot(file, sourceRoot));
    if (const auto more = group.count - static_cast<std::int64_t>(group.files.size()); more > 0)
        lines.push_back("    and " + std::to_string(more) + " more, which the report file lists");
    return lines;
}

} // namespace orvana
