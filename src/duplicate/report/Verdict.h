#pragma once

#include "duplicate/report/RunSummary.h"

namespace orvana
{

/// The result of a run for one destination, in a word. It is never better than what the run knows.
enum class Verdict {
    Verified,    ///< it holds every file, and all of them were read back from the disk
    Complete,    ///< it holds every file; not all of them were read back from the disk
    Incomplete,  ///< files are missing
    Differs,     ///< copies were read back and differ
    NotCompared, ///< it holds every file, but copies could not be compared although they were to be
    NotOnDisk,   ///< its copies are not known to be on the disk
    NotFinished, ///< the run was ended before it had copied everything
};

Verdict verdictOf(const DestinationSummary &destination, const RunSummary &run);

/// Returns the sign of the verdict as UTF-8: a tick, or a cross. It tells good from bad without a colour.
const char *signOf(Verdict verdict);

/// "verified", "not known to be on disk"
const char *wordOf(Verdict verdict);

/// True when the destination was read back, all of it and from the disk.
bool isVerifiedFromDisk(const DestinationSummary &destination);

} // namespace orvana
