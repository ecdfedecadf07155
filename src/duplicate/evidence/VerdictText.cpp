#include "duplicate/evidence/VerdictText.h"

#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"

namespace orvana
{

namespace
{

std::string counted(std::int64_t count, const char *what)
{
    return std::to_string(count) + " " + what;
}

std::string headlineOf(const DiskVerdict &verdict)
{
    if (!verdict.error.empty())
        return "not verified: " + verdict.error;
    if (verdict.isCancelled)
        return "cancelled after " + counted(verdict.whole + verdict.changed, "file(s)");
    if (verdict.lists.empty())
        return "not verified: there is no list of files on it";
    std::string line = verdict.isWhole() ? "whole: " + counted(verdict.whole, "file(s)")
                                         : "NOT whole: " + counted(verdict.whole, "file(s) whole");
    for (const auto &[count, finding] :
         {std::pair(verdict.changed, FileFinding::Changed), std::pair(verdict.missing, FileFinding::Missing),
          std::pair(verdict.added, FileFinding::New),
          std::pair(verdict.unreadable, FileFinding::Unreadable)}) {
        if (count > 0)
            line += ", " + counted(count, nameOf(finding));
    }
    return line + ", " + sizeText(verdict.bytes) + " read";
}

} // namespace

std::string nameOf(StationCopy copy)
{
    switch (copy) {
    case StationCopy::Unknown:
        return "by the disk's own list";
    case StationCopy::Agrees:
        return "by a list that equals this machine's copy of it";
    case StationCopy::Differs:
        return "the list DIFFERS from this machine's copy of it";
    }
    return {};
}

std::vector<std::string> linesOf(const DiskVerdict &verdict)
{
    std::vector<std::string> lines{headlineOf(verdict)};
    for (const auto &verified : verdict.lists) {
        if (!verified.error.empty()) {
            lines.push_back("NOT verified: " + verified.error);
            continue;
        }
        lines.push_back(displayPath(verified.list.file) + ": " + nameOf(verified.station));
        if (!verified.recorded.empty())
            lines.push_back("recorded in " + displayPath(verified.recorded));
        if (!verified.notRecorded.empty())
            lines.push_back("NOT recorded: " + verified.notRecorded);
    }
    return lines;
}

std::string textOf(const Finding &finding)
{
    return std::string(nameOf(finding.finding)) + ": " + displayPath(finding.path) +
           (finding.reason.empty() ? "" : ": " + finding.reason);
}

} // namespace orvana
