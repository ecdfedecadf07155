#pragma once

#include "filetree/ReservedPaths.h"
#include "platform/DeepFolder.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace orvana
{

/// The totals of a count so far. The counting thread writes them; any thread may read them.
struct CountTotals
{
    std::atomic<std::uint64_t> totalSize{0}; ///< bytes
    std::atomic<std::int64_t> totalFiles{0};
};

/// Counts files and their bytes below paths. Leaves out what a run is not asked for: links, hidden
/// extensions, names that begin with a dot, reserved paths. Used on one thread; in a large tree it starts a
/// second one to help it. On a worker whose cancel was requested, the thread ends at the next entry.
class SizeCounter
{
public:
    /// Calls `fileCounted` once for each file, after the totals have grown, on the thread that counts. The
    /// host, the totals and what `fileCounted` uses must outlive the counter.
    SizeCounter(platform::Host &host, CountTotals &totals, std::function<void()> fileCounted);

    /// Adds the files at and below `path`, a folder or a file. A file whose extension is hidden is not
    /// counted. A path that does not exist counts as one file of 0 bytes.
    void sizeOfFolder(const std::string &path);

private:
    class Folders;
    class Helper;

    void countTree(const std::string &path);
    std::vector<std::string> countEntries(const std::string &path, const std::stop_token &token,
                                          const std::function<void()> &tell);
    void countFile(const platform::Expected<platform::Attributes> &read, const std::function<void()> &tell);
    void tellOfHelper();

    const platform::DeepFolder m_folder; ///< the working folder
    ReservedPaths m_reserved;
    CountTotals &m_totals;
    std::function<void()> m_fileCounted;
    std::atomic<std::int64_t> m_untold{0}; ///< files that the helper has counted since the last look
};

} // namespace orvana
