#include "cli/CopyCommand.h"

#include "cli/Terminal.h"
#include "cli/TerminalRun.h"
#include "duplicate/engine/CopyCensus.h"
#include "duplicate/engine/RunLocks.h"
#include "duplicate/plan/RunPlan.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"
#include "platform/Host.h"
#include "platform/VolumeFiles.h"

namespace orvana::cli
{

namespace
{

void warnOfLittleSpace(platform::Host &host, Terminal &terminal, const CopyJob &job, const CopyCensus &census)
{
    for (const auto &root : job.DesFileArray) {
        const auto folder = host.volumeFiles().openFolder(root, platform::Reach::Beneath);
        const auto free = folder ? (*folder)->freeBytes() : tl::unexpected(folder.error());
        if (free && *free < census.bytes)
            terminal.printError("plurimoctl: " + displayPath(root) + ": only " + sizeText(*free) +
                                " free for " + sizeText(census.bytes) + "; what does not fit will fail");
    }
}

std::optional<Refusal> lockFolders(platform::Host &host, FolderJob &folders)
{
    const auto &job = folders.job;
    folders.locks = std::make_shared<RunLocks>(host, job.SrcDiskPath, job.DesFileArray);
    if (!folders.locks->hasSource())
        return Refusal{Refused, displayPath(job.SrcDiskPath) + ": another run writes there"};
    for (std::size_t i = 0; i < job.DesFileArray.size(); ++i) {
        if (!folders.locks->hasDestination(i))
            return Refusal{Refused, displayPath(job.DesFileArray[i]) +
                                        ": another run is at work there, or in a folder above or below it"};
    }
    return std::nullopt;
}

} // namespace

ExitStatus runCopy(platform::Host &host, Terminal &terminal, const CopyOptions &options)
{
    const auto refuse = [&](const Refusal &refusal) {
        terminal.printError("plurimoctl: " + refusal.reason);
        return refusal.status;
    };
    if (const auto conflict = conflictIn(options.settings))
        return refuse({WrongUsage, *conflict});
    const auto planned = planCopy(host, options);
    if (!planned)
        return refuse(planned.error());
    TerminalRun run(host, terminal, {.logFolder = options.logFolder, .json = options.json});
    // Locks source and destinations now, because the count may take long.
    FolderJob folders{boundToFolders(host, *planned), nullptr};
    if (const auto refusal = lockFolders(host, folders))
        return refuse(*refusal);
    const auto census = takeCensus(host, folders.job, [&] { return run.isCancelled(); });
    if (run.isCancelled())
        return refuse({Cancelled, "cancelled while counting; nothing was written"});
    if (limitOf(false, options.settings) == EraseFirst::No)
        warnOfLittleSpace(host, terminal, folders.job, census);
    RunOrder order;
    order.selection = folders.job.SrcFileArray;
    order.totalFiles = census.files;
    order.totalBytes = census.bytes;
    order.choice.sourceRoot = folders.job.SrcDiskPath;
    order.choice.verify = options.verify;
    order.choice.settings = options.settings;
    order.folders = std::move(folders);
    return run.run(std::move(order), nullptr);
}

} // namespace orvana::cli
