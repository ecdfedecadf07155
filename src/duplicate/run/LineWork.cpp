#include "duplicate/run/LineWork.h"

#include "duplicate/job/JobSource.h"
#include "duplicate/plan/SourcePlan.h"
#include "foundation/DisplayPath.h"
#include "platform/Host.h"
#include "platform/VolumeFiles.h"

#include <algorithm>

namespace orvana
{

namespace
{

Refusal wrong(const std::string &reason)
{
    return {WrongUsage, reason};
}

// Values that are not known yet are put in as they will look.
std::optional<Refusal> refusalOfPattern(const NamePattern &pattern, std::int64_t wanted)
{
    if (!pattern.tellsBaysApart())
        return wrong("the names of disks in two bays would be the same; put {n} or {bay} into the pattern");
    const auto longest = pattern.nameFor({.number = wanted, .serial = "S", .bay = "B", .date = "2026-11-23"});
    if (const auto reason = refusalOfName(longest, eraseFormat()))
        return wrong(displayPath(longest) + ": no name for a disk: " + reasonText(*reason, eraseFormat()));
    return std::nullopt;
}

bool isThere(platform::Host &host, const std::string &path)
{
    return host.volumeFiles()
        .workingFolder()
        .attributes(path, platform::Links::DoNotFollow, platform::Want::Basics)
        .has_value();
}

} // namespace

tl::expected<LineWork, Refusal> readLine(const LineHead &head)
{
    auto job = parseJob(head.job);
    if (!job)
        return tl::unexpected(wrong(job.error()));
    if (head.wanted < 1)
        return tl::unexpected(wrong("a line makes one disk at least"));
    if (!job->verify)
        return tl::unexpected(wrong("a line counts only disks that were verified; the job does not verify"));
    if (job->settings.resume)
        return tl::unexpected(wrong("a line begins each disk anew; the job goes on with the last run"));
    LineWork work;
    if (!head.pattern.empty()) {
        if (!job->erase)
            return tl::unexpected(wrong("a name is given to a disk that is erased only"));
        auto pattern = NamePattern::parse(head.pattern);
        if (!pattern)
            return tl::unexpected(wrong(pattern.error()));
        if (const auto refusal = refusalOfPattern(*pattern, head.wanted))
            return tl::unexpected(*refusal);
        work.pattern = std::move(*pattern);
    }
    work.choice.erase = job->erase;
    work.choice.verify = true;
    work.choice.settings = job->settings;
    work.choice.settings.ejectAtEnd = false; // the line ejects a disk once the ledger has it
    if (work.choice.settings.manner.preflight == PreflightAction::Off)
        work.choice.settings.manner.preflight = PreflightAction::LeaveOut;
    work.job = std::move(*job);
    return work;
}

tl::expected<void, Refusal> findSource(LineWork &work, platform::Host &host, const ScannedDevices &devices,
                                       const ChosenEnclosure &enclosure)
{
    const auto user = userHomeOf(host);
    const auto present = chosenEnclosure(devices, enclosure);
    if (!present)
        return tl::unexpected(Refusal{NotThere, refusalText(present.error())});
    auto &choice = work.choice;
    choice.enclosure = enclosure;
    const auto plan = planSources(present->get(), devices, user);
    const auto title = titleOfSource(work.job, devices, plan);
    if (!title)
        return tl::unexpected(Refusal{NotThere, title.error()});
    const auto match = sourceTitled(*title, present->get(), devices, user);
    const auto item = std::find_if(plan.candidates.begin(), plan.candidates.end(),
                                   [&](const auto &candidate) { return candidate.title == *title; });
    choice.source = match.row.volume;
    choice.sourceItem = *title;
    choice.sourceRoot = match.root ? *match.root : std::string();
    choice.slotAisSource = isSlotAisSource(static_cast<std::size_t>(item - plan.candidates.begin()),
                                           choice.source, volumeNamesOf(**present, user)[Bay::A]);
    if (choice.sourceRoot.empty())
        return tl::unexpected(Refusal{NotThere, displayPath(*title) + ": no such source"});
    work.selection = selectionBelow(work.job, choice.sourceRoot);
    for (const auto &path : work.selection) {
        if (!isThere(host, path))
            return tl::unexpected(Refusal{NotThere, displayPath(path) + ": no such file or folder"});
    }
    work.source = rememberSource(host, devices, choice.sourceRoot);
    choice.sourceDisks = work.source.disks;
    addDisksOf(host, devices, work.selection, choice.sourceDisks);
    return {};
}

std::string nameOn(const LineWork &work, Bay bay, const NameValues &values, const std::string &present)
{
    if (work.pattern)
        return work.pattern->nameFor(values);
    return work.job.erase ? work.job.names[bay].value_or(present) : present;
}

} // namespace orvana
