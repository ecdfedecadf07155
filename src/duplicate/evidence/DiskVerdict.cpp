#include "duplicate/evidence/DiskVerdict.h"

#include <algorithm>

namespace orvana
{

const char *nameOf(FileFinding finding)
{
    switch (finding) {
    case FileFinding::Whole:
        return "whole";
    case FileFinding::Changed:
        return "changed";
    case FileFinding::Missing:
        return "missing";
    case FileFinding::New:
        return "new";
    case FileFinding::Unreadable:
        return "unreadable";
    }
    return "";
}

bool DiskVerdict::isWhole() const
{
    const bool areListsGood = std::all_of(lists.begin(), lists.end(), [](const VerifiedList &verified) {
        return verified.error.empty() && verified.station != StationCopy::Differs;
    });
    return !lists.empty() && areListsGood && error.empty() && !isCancelled && changed == 0 && missing == 0 &&
           added == 0 && unreadable == 0;
}

} // namespace orvana
