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

/// What a job holds, counted before it is started.
struct CopyCensus
{
    std::int64_t files = 0;  ///< files that the walk will copy
    std::uint64_t bytes = 0; ///< and their bytes
};

/// Counts the job's items by the rules of the walk that will copy them. Runs on the calling thread; gives
/// up early, with what it has, once `isCancelled` says so.
CopyCensus takeCensus(platform::Host &host, const CopyJob &job, const std::function<bool()> &isCancelled);

} // namespace orvana
