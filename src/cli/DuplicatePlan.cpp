#include "cli/DuplicatePlan.h"

#include "cli/CopyPlan.h"
#include "duplicate/job/JobSource.h"
#include "duplicate/plan/HealthGate.h"
#include "duplicate/plan/RunPlan.h"
#include "foundation/DisplayPath.h"
#include "foundation/Paths.h"
#include "platform/Host.h"
#include "platform/VolumeFiles.h"

#include <algorithm>

namespace orvana::cli
{

namespace
{

using platform::FileType;
using platform::Links;
using platform::Want;

std::optional<platform::Attributes> attributesOf(platform::Host &host, const std::string &path)
{
    const auto read = host.volumeFiles().workingFolder().attributes(path, Links::Follow, Want::Basics);
    return read ? std::optional(*read) : std::nullopt;
}

void useSourceToBeginWith(RunChoice &choice, const SourcePlan &plan)
{
    choice.source = plan.row.volume;
    choice.sourceItem = plan.candidates.empty() ? std::string() : plan.candidates.front().title;
    choice.sourceRoot = plan.root ? *plan.root : std::string();
    choice.slotAisSource = isSlotAisSource(0, choice.source, choice.names[Bay::A]);
}

void useSourceTitled(RunChoice &choice, const std::string &title, const SourcePlan &plan,
                     const SourceMatch &match)
{
    const auto item = std::find_if(plan.candidates.begin(), plan.candidates.end(),
                                   [&](const auto &candidate) { return candidate.title == title; });
    choice.source = match.row.volume;
    choice.sourceItem = title;
    choice.sourceRoot = match.root ? *match.root : std::string();
    choice.slotAisSource = isSlotAisSource(static_cast<std::size_t>(item - plan.candidates.begin()),
                                           choice.source, choice.names[Bay::A]);
}

std::optional<Refusal> chooseSource(RunChoice &choice, const DuplicateOptions &options,
                                    const ORVThunderboltInfo &enclosure, const DeviceScan &scan)
{
    const auto devices = scan.devices();
    const auto plan = planSources(&enclosure, devices, scan.user());
    auto title = options.source;
    if (options.job) {
        const auto found = titleOfSource(*options.job, devices, plan);
        if (!found)
            return Refusal{NotThere, found.error()};
        title = *found;
    }
    if (!title)
        useSourceToBeginWith(choice, plan);
    else
        useSourceTitled(choice, *title, plan, sourceTitled(*title, &enclosure, devices, scan.user()));
    if (choice.sourceRoot.empty())
        return Refusal{NotThere, title ? displayPath(*title) + ": no such source" : "there is no source"};
    return std::nullopt;
}

// Relative paths start at the root of the source, as in a file tree.
std::string pathBelow(const std::string &root, const std::string &path)
{
    return cleanPath(path.starts_with('/') ? path : root + "/" + path);
}

tl::expected<std::vector<std::string>, Refusal> selectBelow(const std::string &root, platform::Host &host,
                                                            const std::vector<std::string> &wanted)
{
    if (wanted.empty())
        return std::vector{root};
    std::vector<std::string> selection;
    for (const auto &word : wanted) {
        const auto path = pathBelow(root, word);
        if (word.empty() || !isAtOrBelow(path, root))
            return tl::unexpected(
                Refusal{WrongUsage, displayPath(word) + ": does not lie in the source " + displayPath(root)});
        if (!attributesOf(host, path))
            return tl::unexpected(Refusal{NotThere, displayPath(path) + ": no such file or folder"});
        if (std::find(selection.begin(), selection.end(), path) == selection.end())
            selection.push_back(path);
    }
    return selection;
}

} // namespace

tl::expected<DuplicateOptions, Refusal> withJob(DuplicateOptions options)
{
    if (!options.jobFile)
        return options;
    auto job = readJob(*options.jobFile);
    if (!job)
        return tl::unexpected(Refusal{WrongUsage, job.error()});
    options.erase = job->erase;
    options.verify = job->verify;
    options.settings = job->settings;
    for (const auto bay : AllBays) {
        if (const auto &name = job->names[bay]; name && job->erase)
            options.names.push_back(slotNameOf(bay).substr(5) + "=" + *name);
    }
    options.job = std::move(*job);
    return options;
}

tl::expected<Duplication, Refusal> planDuplication(platform::Host &host, const DeviceScan &scan,
                                                   const DuplicateOptions &options)
{
    Duplication plan;
    auto &choice = plan.choice;
    if (const auto conflict = conflictIn(options.settings))
        return tl::unexpected(Refusal{WrongUsage, *conflict});
    const auto typed = parseNames(options.names);
    if (!typed)
        return tl::unexpected(typed.error());
    if (!options.erase && !options.names.empty())
        return tl::unexpected(Refusal{WrongUsage, "a name is given to a disk with --erase only"});
    const auto chosen = scan.choose(options.enclosure);
    if (!chosen)
        return tl::unexpected(chosen.error());
    const auto enclosure = usableEnclosure(scan.devices(), *chosen);
    if (!enclosure)
        return tl::unexpected(enclosure.error());
    choice.enclosure = *chosen;
    choice.erase = options.erase;
    choice.verify = options.verify;
    choice.settings = options.settings;
    choice.shown = shownDisks(**enclosure);
    choice.insisted = options.insisted;
    plan.present = choice.names = volumeNamesOf(**enclosure, scan.user());
    if (const auto refusal = chooseSource(choice, options, **enclosure, scan))
        return tl::unexpected(*refusal);
    plan.typed = *typed;
    for (const auto bay : AllBays)
        choice.names[bay] = plan.typed[bay].value_or(choice.names[bay]);
    plan.job.SrcDiskPath = choice.sourceRoot;
    auto selection =
        selectBelow(choice.sourceRoot, host,
                    options.job ? selectionBelow(*options.job, choice.sourceRoot) : options.selection);
    if (!selection)
        return tl::unexpected(selection.error());
    plan.job.SrcFileArray = std::move(*selection);
    const auto folder = attributesOf(host, choice.sourceRoot);
    if (!folder || folder->type != FileType::Folder)
        return tl::unexpected(Refusal{NotThere, displayPath(choice.sourceRoot) + ": no such folder"});
    if (choice.settings.health)
        markFailing(host, scan.devices(), choice);
    plan.source = rememberSource(host, scan.devices(), choice.sourceRoot);
    choice.sourceDisks = plan.source.disks;
    addDisksOf(host, scan.devices(), plan.job.SrcFileArray, choice.sourceDisks);
    return plan;
}

Refusal sourceGone(const SourceMemory &source, SoFar soFar)
{
    return {NotThere, displayPath(source.root) + ": the source is not there any more; " +
                          (soFar == SoFar::Untouched
                               ? "nothing was touched"
                               : "nothing was copied, and the report says which disks were erased")};
}

void markOverSize(RunChoice &choice, const ORVThunderboltInfo &enclosure, std::uint64_t bytes)
{
    choice.selectedBytes = bytes;
    for (const auto &[slot, isFit] : fitOfBays(enclosure, bytes, limitOf(choice.erase, choice.settings))) {
        if (const auto bay = bayNamed(slot))
            choice.isOverSize[*bay] = !isFit;
    }
}

} // namespace orvana::cli
