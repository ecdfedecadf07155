#include "duplicate/report/RunSummary.h"

#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana
{

namespace
{

bool isFailure(const DiskEntry &entry)
{
    return entry.outcome == DiskOutcome::EraseFailed || entry.outcome == DiskOutcome::Refused;
}

} // namespace

bool isWhole(const DestinationSummary &destination)
{
    return destination.durability != Durability::NotKnown && destination.failed == 0 &&
           destination.mismatched == 0 && destination.unverified == 0 && destination.evidenceFailures == 0;
}

const char *nameOf(ProblemKind kind)
{
    switch (kind) {
    case ProblemKind::Failed:
        return "failed";
    case ProblemKind::KeptTail:
        return "keptTail";
    case ProblemKind::SourceChanged:
        return "sourceChanged";
    case ProblemKind::SameFile:
        return "sameFile";
    case ProblemKind::Mismatched:
        return "mismatched";
    case ProblemKind::Unverified:
        return "unverified";
    case ProblemKind::NotInManifest:
        return "notInManifest";
    case ProblemKind::NoManifest:
        return "noManifest";
    case ProblemKind::NotAsInHistory:
        return "notAsInHistory";
    }
    return "";
}

bool isAllDone(const RunSummary &summary)
{
    return summary.note.empty() && std::none_of(summary.disks.begin(), summary.disks.end(), isFailure) &&
           std::all_of(summary.destinations.begin(), summary.destinations.end(), isWhole);
}

std::vector<std::string> diskLines(const RunSummary &summary)
{
    std::vector<std::string> lines;
    for (const auto &entry : summary.disks) {
        if (entry.outcome != DiskOutcome::Erased)
            lines.push_back(diskText(entry));
    }
    return lines;
}

std::vector<std::string> notOnDiskLines(const RunSummary &summary)
{
    std::vector<std::string> lines;
    for (const auto &destination : summary.destinations) {
        if (destination.durability == Durability::NotKnown)
            lines.push_back(displayPath(destination.path) + ": " + destination.reason);
    }
    return lines;
}

std::vector<std::string> manifestLines(const DestinationSummary &destination)
{
    std::vector<std::string> lines;
    lines.reserve(destination.manifests.size());
    for (const auto &manifest : destination.manifests)
        lines.push_back(displayPath(manifest.path) + ": " + std::to_string(manifest.files) + " file(s), " +
                        manifest.digestName + " " + manifest.digest);
    return lines;
}

std::string problemText(const RunProblem &problem)
{
    const auto what =
        problem.kind == ProblemKind::Mismatched ? "the copy differs from its source" : problem.reason;
    return std::string(nameOf(problem.kind)) + ": " + displayPath(problem.file) + " -> " +
           displayPath(problem.destination) + ": " + what;
}

} // namespace orvana
