#pragma once

#include "duplicate/report/RunProblems.h"

#include <array>
#include <string>
#include <vector>

namespace orvana
{

struct RunSummary;

/// The result of a run for people: one row for each destination and each disk that took no part, and below
/// the rows what went wrong.
struct ReportTable
{
    static constexpr std::array Titles{"Result", "Bay",   "Name", "Model",        "Serial",
                                       "Files",  "Bytes", "Rate", "Verified from"};
    using Row = std::array<std::string, Titles.size()>;

    std::string headline; ///< one sentence on the whole run
    std::vector<Row> rows;
    std::vector<std::string> lines; ///< what went wrong, a paragraph for each destination and disk
};

/// Returns one sentence on the whole run. It says which destinations hold every file, how they were verified,
/// and which do not hold every file, with the reason. "2 of 3 destinations hold every file, verified from the
/// disk; Slot-C (COPY2) took no part: the selection does not fit."
std::string headlineOf(const RunSummary &summary);

ReportTable reportTable(const RunSummary &summary, const std::vector<ProblemGroup> &problems);

/// Returns the table as text with tabs between the columns, and the lines below it.
std::string textOf(const ReportTable &table);

/// Returns the rate at which a destination was written, "41.20 MB/s", or "-" when it is not known.
std::string writeRateOf(const DestinationSummary &destination);

/// "the disk", "memory", or "-" when the destination was not verified.
std::string verifiedFromText(const DestinationSummary &destination);

} // namespace orvana
