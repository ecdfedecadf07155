#pragma once

#include "duplicate/engine/CopyJob.h"

#include <cstdint>
#include <functional>

namespace orvana
{

namespace platform
{
class Host;
}

/// The files and bytes of a job, counted before the job starts.
struct CopyCensus
{
    std::int64_t files = 0;  ///< files that the walk will copy
    std::uint64_t bytes = 0; ///< bytes of these files
};

/// Counts the job's items by the rules of the walk that will copy them. Runs on the calling thread. Stops
/// early once `isCancelled` returns true, and returns the counts so far.
CopyCensus takeCensus(platform::Host &host, const CopyJob &job, const std::function<bool()> &isCancelled);

} // namespace orvana
