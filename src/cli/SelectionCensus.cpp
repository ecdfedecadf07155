#include "cli/SelectionCensus.h"

#include "filetree/SizeCounter.h"
#include "foundation/WorkerThread.h"

namespace orvana::cli
{

CopyCensus countSelection(platform::Host &host, const std::vector<std::string> &selection,
                          const std::function<bool()> &isCancelled)
{
    constexpr std::chrono::milliseconds BetweenLooks{50};
    CountTotals totals;
    WorkerThread counting([&] {
        SizeCounter counter(host, totals, [] {});
        for (const auto &path : selection)
            counter.sizeOfFolder(path);
    });
    while (!counting.waitForEnd(BetweenLooks)) {
        if (isCancelled())
            counting.requestCancel();
    }
    return {totals.totalFiles, totals.totalSize};
}

} // namespace orvana::cli
