#include "duplicate/report/ReportTable.h"

#include "duplicate/report/RunSummary.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"

#include <algorithm>

namespace orvana
{

namespace
{

std::string rateOf(const DestinationSummary &destination)
{
    const double seconds = destination.secondsWriting + destination.secondsSyncing;
    if (seconds <= 0)
        return "-";
    const double rate = static_cast<double>(destination.bytes) / seconds;
    return sizeText(static_cast<std::uint64_t>(rate)) + "/s";
}

ReportTable::Row rowOfDestination(const DestinationSummary &destination)
{
    return {displayPath(destination.path),
            std::to_string(destination.copied),
            std::to_string(destination.failed),
            std::to_string(destination.verified),
            std::to_string(destination.mismatched),
            sizeText(destination.bytes),
            rateOf(destination),
            destination.reason};
}

std::string placeOf(const DiskEntry &disk)
{
    return disk.bay + " (" + displayPath(disk.name) + ")";
}

// Returns why a disk is not a destination.
std::string whyNoPart(const DiskEntry &disk)
{
    const bool failed = disk.outcome == DiskOutcome::EraseFailed;
    return (failed ? "could not be erased: " : "took no part: ") + disk.reason;
}

ReportTable::Row rowOfDisk(const DiskEntry &disk)
{
    return {placeOf(disk), "-", "-", "-", "-", "-", "-", whyNoPart(disk)};
}

// Returns the faults of a destination.
std::string lackOf(const DestinationSummary &destination)
{
    if (destination.durability == Durability::NotKnown)
        return destination.reason;
    std::string text;
    const auto add = [&](std::int64_t count, const char *words) {
        if (count > 0)
            text.append(text.empty() ? "" : ", ").append(std::to_string(count)).append(words);
    };
    add(destination.failed, " failed");
    add(destination.mismatched, " differ");
    add(destination.unverified, " could not be compared");
    return text;
}

// Says of destinations that hold every file whether all files were read back, and from where.
std::string verifiedText(const std::vector<DestinationSummary> &good)
{
    const auto all = [&](auto holds) { return std::all_of(good.begin(), good.end(), holds); };
    const bool isVerified = all([](const DestinationSummary &destination) {
        return destination.verified > 0 && destination.verified == destination.copied;
    });
    if (!isVerified)
        return all([](const DestinationSummary &destination) { return destination.verified == 0; })
                   ? ""
                   : ", not all of it verified";
    return all([](const DestinationSummary &destination) {
        return destination.verifiedFrom == VerifiedFrom::Disk;
    })
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

std::string headlineOf(const RunSummary &summary)
{
    if (summary.destinations.empty())
        return "Nothing was copied: no destination.";
    std::vector<DestinationSummary> good;
    std::string lacks;
    for (const auto &destination : summary.destinations) {
        if (isWhole(destination))
            good.push_back(destination);
        else
            lacks += "; " + displayPath(destination.path) + ": " + lackOf(destination);
    }
    auto text = countText(good.size(), summary.destinations.size());
    if (!good.empty())
        text += verifiedText(good);
    text += lacks;
    for (const auto &disk : summary.disks) {
        if (disk.outcome != DiskOutcome::Erased)
            text += "; " + placeOf(disk) + " " + whyNoPart(disk);
    }
    if (const auto count = summary.leftOut; count > 0)
        text +=
            "; " + std::to_string(count) + (count == 1 ? " item was" : " items were") + " left out by rule";
    return text + ".";
}

ReportTable reportTable(const RunSummary &summary)
{
    ReportTable table;
    for (const auto &destination : summary.destinations)
        table.rows.push_back(rowOfDestination(destination));
    for (const auto &disk : summary.disks) {
        if (disk.outcome != DiskOutcome::Erased)
            table.rows.push_back(rowOfDisk(disk));
    }
    table.headline = headlineOf(summary);
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
