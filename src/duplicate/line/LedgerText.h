#pragma once

#include "duplicate/line/LineEntry.h"
#include "foundation/PathJson.h"

#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

// A ledger as text, to be read by people and collected from many stations: CSV as RFC 4180 has it, and JSON
// with one object a line. docs/production-line.md describes the columns.

/// The first line of a ledger in CSV.
std::string ledgerHeading();

/// Returns the row of a disk that has a result, in both formats, with the end of the line.
std::string csvRow(const LineHead &head, const LineEntry &entry);
std::string jsonRow(const LineHead &head, const LineEntry &entry);

/// Returns the fields of each row of a CSV text. A line may end with CR LF, and a field in quotes may hold
/// line ends. The error names the row.
tl::expected<std::vector<std::vector<std::string>>, std::string> parseCsv(std::string_view text);

/// A ledger that another station may have written, and the file it came from.
struct LedgerFile
{
    std::string name;
    std::string text; ///< CSV, or JSON with one object a line
};

/// Joins ledgers: the rows of all files, each id once, ordered by id. Rows are those of the CSV format. Fails
/// with the file's name and the reason when a file is no ledger, or when one id stands for two different
/// disks.
tl::expected<std::vector<std::vector<std::string>>, std::string>
collectLedgers(const std::vector<LedgerFile> &files);

/// Returns rows of fields as CSV, without a heading.
std::string csvText(const std::vector<std::vector<std::string>> &rows);

} // namespace orvana
