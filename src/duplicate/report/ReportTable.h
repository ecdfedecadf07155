#pragma once

#include <array>
#include <string>
#include <vector>

namespace orvana
{

struct RunSummary;

/// The result of a run as a table for people: one row for each destination and each disk that took no part.
struct ReportTable
{
    static constexpr std::array Titles{"Destination", "Copied", "Failed", "Verified",
                                       "Mismatched",  "Bytes",  "Rate",   "Reason"};
    using Row = std::array<std::string, Titles.size()>;

    std::string headline; ///< one sentence on the whole run
    std::vector<Row> rows;
};

/// Returns one sentence on the whole run. It says which destinations hold every file, how they were verified,
/// and which do not hold every file, with the reason. "2 of 3 destinations hold every file, verified from the
/// disk; Slot-C (COPY2) took no part: the selection does not fit."
std::string headlineOf(const RunSummary &summary);

ReportTable reportTable(const RunSummary &summary);

/// Returns the table as text with tabs between the columns, and `lines` below it.
std::string textOf(const ReportTable &table, const std::vector<std::string> &lines);

} // namespace orvana
