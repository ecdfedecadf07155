#include "duplicate/ReportTable.h"

#include "duplicate/RunReport.h"
#include "foundation/SizeText.h"

#include <nlohmann/json.hpp>

namespace orvana
{

namespace
{

std::string numberIn(const Json &entry, const char *key)
{
    return std::to_string(entry.value(key, std::int64_t{0}));
}

std::string rateOf(const Json &entry)
{
    const double seconds = entry.value("secondsWriting", 0.0) + entry.value("secondsSyncing", 0.0);
    if (seconds <= 0)
        return "-";
    const double rate = static_cast<double>(entry.value("bytes", std::uint64_t{0})) / seconds;
    return sizeText(static_cast<std::uint64_t>(rate)) + "/s";
}

ReportTable::Row rowOfDestination(const Json &entry)
{
    return {entry.value("path", ""),
            numberIn(entry, "copied"),
            numberIn(entry, "failed"),
            numberIn(entry, "verified"),
            numberIn(entry, "mismatched"),
            sizeText(entry.value("bytes", std::uint64_t{0})),
            rateOf(entry),
            entry.value("reason", "")};
}

ReportTable::Row rowOfDisk(const Json &entry)
{
    const bool failed = entry.value("outcome", "") == "eraseFailed";
    return {entry.value("bay", "") + " (" + entry.value("name", "") + ")",
            "-",
            "-",
            "-",
            "-",
            "-",
            "-",
            (failed ? "could not be erased: " : "took no part: ") + entry.value("reason", "")};
}

} // namespace

ReportTable reportTable(const RunReport &report)
{
    ReportTable table;
    for (const auto &entry : report.destinationsJson())
        table.rows.push_back(rowOfDestination(entry));
    for (const auto &entry : report.disksJson()) {
        if (entry.value("outcome", "") != "erased")
            table.rows.push_back(rowOfDisk(entry));
    }
    if (report.destinationCount() == 0)
        table.headline = "Nothing was copied: no destination.";
    else if (report.allDone())
        table.headline = "Every file is on every destination.";
    else
        table.headline = "Not everything was copied. Look at each row.";
    return table;
}

std::string textOf(const ReportTable &table, const std::vector<std::string> &lines)
{
    std::string text = table.headline + "\n\n";
    const auto add = [&](const auto &cells) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            text.append(i > 0 ? "\t" : "").append(cells[i]);
        text += '\n';
    };
    add(ReportTable::Titles);
    for (const auto &row : table.rows)
        add(row);
    for (const auto &line : lines)
        text.append(&line == &lines.front() ? "\n" : "").append(line).append("\n");
    return text;
}

} // namespace orvana
