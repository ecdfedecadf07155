#include "duplicate/report/Verdict.h"

namespace orvana
{

bool isVerifiedFromDisk(const DestinationSummary &destination)
{
    return destination.verified > 0 && destination.verified == destination.copied &&
           destination.verifiedFrom == VerifiedFrom::Disk;
}

Verdict verdictOf(const DestinationSummary &destination, const RunSummary &run)
{
    if (run.outcome == RunOutcome::Cancelled || run.ending == RunEnding::Cancelled ||
        run.ending == RunEnding::EnclosureLost)
        return Verdict::NotFinished;
    if (destination.mismatched > 0)
        return Verdict::Differs;
    if (destination.failed > 0)
        return Verdict::Incomplete;
    if (destination.durability == Durability::NotKnown)
        return Verdict::NotOnDisk;
    if (destination.unverified > 0)
        return Verdict::NotCompared;
    return isVerifiedFromDisk(destination) ? Verdict::Verified : Verdict::Complete;
}

const char *signOf(Verdict verdict)
{
    return verdict == Verdict::Verified || verdict == Verdict::Complete ? "\u2713" : "\u2717";
}

const char *wordOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Verified:
        return "verified";
    case Verdict::Complete:
        return "complete";
    case Verdict::Incomplete:
        return "not complete";
    case Verdict::Differs:
        return "differs";
    case Verdict::NotCompared:
        return "not compared";
    case Verdict::NotOnDisk:
        return "not known to be on disk";
    case Verdict::NotFinished:
        return "not finished";
    }
    return "";
}

} // namespace orvana
