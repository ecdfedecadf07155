#include "duplicate/report/RunSummary.h"

#include "foundation/DisplayPath.h"

#include <algorithm>

namespace orvana
{

using platform::Part;

namespace
{

struct PartWords
{
    const char *name;
    const char *one;
    const char *several;
};

PartWords wordsOf(Part part)
{
    switch (part) {
    case Part::Owner:
        return {"owner", "owner", "owners"};
    case Part::Permissions:
        return {"permissions", "entry's permissions", "entries' permissions"};
    case Part::ExtendedAttributes:
        return {"extendedAttributes", "entry's extended attributes", "entries' extended attributes"};
    case Part::Date:
        return {"date", "date", "dates"};
    case Part::Link:
        return {"link", "symbolic link", "symbolic links"};
    case Part::HardLink:
        return {"hardLink", "hard link", "hard links"};
    case Part::Hole:
        return {"hole", "file's holes", "files' holes"};
    }
    return {"", "", ""};
}

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
    case ProblemKind::CannotHold:
        return "cannotHold";
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

std::vector<std::string> healthLines(const RunSummary &summary)
{
    std::vector<std::string> lines;
    for (const auto &destination : summary.destinations) {
        const auto &disk = destination.disk;
        if (!disk.healthAfter.empty())
            lines.push_back(disk.bay + " (" + displayPath(disk.name) + "): " + disk.healthAfter);
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

const char *nameOf(Part part)
{
    return wordsOf(part).name;
}

std::string notKeptText(const DestinationSummary &destination)
{
    std::string text;
    for (std::size_t i = 0; i < platform::PartCount; ++i) {
        const auto count = destination.notKept[i];
        if (count == 0)
            continue;
        const auto words = wordsOf(static_cast<Part>(i));
        text.append(text.empty() ? "" : ", ").append(std::to_string(count));
        text.append(" ").append(count == 1 ? words.one : words.several);
    }
    return text;
}

std::string problemText(const RunProblem &problem)
{
    const auto what =
        problem.kind == ProblemKind::Mismatched ? "the copy differs from its source" : problem.reason;
    return std::string(nameOf(problem.kind)) + ": " + displayPath(problem.file) + " -> " +
           displayPath(problem.destination) + ": " + what;
}

} // namespace orvana
