#include "cli/CopyCommand.h"

#include "cli/CopyRun.h"
#include "cli/Terminal.h"
#include "duplicate/CopyCensus.h"
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

} // namespace

ExitStatus runCopy(platform::Host &host, Terminal &terminal, const CopyOptions &options)
{
    const auto job = planCopy(host, options);
    if (!job) {
        terminal.printError("plurimoctl: " + job.error().reason);
        return job.error().status;
    }
    CopyRun run(host, terminal,
                {.logFolder = options.logFolder, .verify = options.verify, .json = options.json});
    run.setJob(*job);
    if (const auto refusal = run.lockFolders()) {
        terminal.printError("plurimoctl: " + refusal->reason);
        return refusal->status;
    }
    const auto census = takeCensus(host, *job, [&] { return run.isCancelled(); });
    if (run.isCancelled()) {
        terminal.printError("plurimoctl: cancelled while counting; nothing was written");
        return Cancelled;
    }
    warnOfLittleSpace(host, terminal, *job, census);
    run.begin();
    return run.copy(census);
}

} // namespace orvana::cli
