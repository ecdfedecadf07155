#include "duplicate/ReportTable.h"

#include "duplicate/RunReport.h"
#include "foundation/SizeText.h"

#include <algorithm>
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

// The reason why a disk is no destination.
std::string whyNoPart(const Json &entry)
{
    const bool failed = entry.value("outcome", "") == "eraseFailed";
    return (failed ? "could not be erased: " : "took no part: ") + entry.value("reason", "");
}

ReportTable::Row rowOfDisk(const Json &entry)
{
    return {entry.value("bay", "") + " (" + entry.value("name", "") + ")",
            "-",
            "-",
            "-",
            "-",
            "-",
            "-",
            whyNoPart(entry)};
}

bool holdsEveryFile(const Json &entry)
{
    return entry["onDisk"] != Json(false) && entry.value("failed", 0) == 0 &&
           entry.value("mismatched", 0) == 0 && entry.value("unverified", 0) == 0;
}

// The faults of a destination.
std::string lackOf(const Json &entry)
{
    if (entry["onDisk"] == Json(false))
        return entry.value("reason", "");
    std::string text;
    const auto add = [&](const char *key, const char *words) {
        if (entry.value(key, 0) > 0)
            text.append(text.empty() ? "" : ", ").append(numberIn(entry, key)).append(words);
    };
    add("failed", " failed");
    add("mismatched", " differ");
    add("unverified", " could not be compared");
    return text;
}

// Of destinations that hold every file: whether all were read back, and from where.
std::string verifiedText(const std::vector<Json> &good)
{
    const auto all = [&](auto holds) { return std::all_of(good.begin(), good.end(), holds); };
    const bool isVerified = all([](const Json &entry) {
        return entry.value("verified", 0) > 0 && entry["verified"] == entry["copied"];
    });
    if (!isVerified)
        return all([](const Json &entry) { return entry.value("verified", 0) == 0; })
                   ? ""
                   : ", not all of it verified";
    return all([](const Json &entry) { return entry["verifiedFrom"] == "disk"; })
               ? ", verified from the disk"
               : ", verified as memory shows it";
}

std::string countText(std::size_t good, std::size_t all)
{
    if (good == all)
        return all == 1 ? "The destination holds every file"
                        : "All " + std::to_string(all) + " destinations hold every file";
    if (good == 0)
        return all == 1 ? "The destination does not hold every file" : "No destination holds every file";
    return std::to_string(good) + " of " + std::to_string(all) +
           (good == 1 ? " destinations holds every file" : " destinations hold every file");
}

} // namespace

std::string headlineOf(const RunReport &report)
{
    if (report.destinationCount() == 0)
        return "Nothing was copied: no destination.";
    std::vector<Json> good;
    std::string lacks;
    const auto all = report.destinationsJson();
    for (const auto &entry : all) {
        if (holdsEveryFile(entry))
            good.push_back(entry);
        else
            lacks += "; " + entry.value("path", "") + ": " + lackOf(entry);
    }
    auto text = countText(good.size(), all.size());
    if (!good.empty())
        text += verifiedText(good);
    text += lacks;
    for (const auto &entry : report.disksJson()) {
        if (entry.value("outcome", "") != "erased")
            text += "; " + entry.value("bay", "") + " (" + entry.value("name", "") + ") " + whyNoPart(entry);
    }
    if (const auto count = report.leftOutCount(); count > 0)
        text +=
            "; " + std::to_string(count) + (count == 1 ? " item was" : " items were") + " left out by rule";
    return text + ".";
}

ReportTable reportTable(const RunReport &report)
{
    ReportTable table;
    for (const auto &entry : report.destinationsJson())
        table.rows.push_back(rowOfDestination(entry));
    for (const auto &entry : report.disksJson()) {
        if (entry.value("outcome", "") != "erased")
            table.rows.push_back(rowOfDisk(entry));
    }
    table.headline = headlineOf(report);
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
