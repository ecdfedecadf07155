#include "duplicate/report/ReportTable.h"

#include "duplicate/report/RunSummary.h"
#include "duplicate/report/Verdict.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"

#include <algorithm>

namespace orvana
{

namespace
{

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

std::string resultText(Verdict verdict)
{
    return std::string(signOf(verdict)) + " " + wordOf(verdict);
}

// Returns the name of a destination: of its bay if it is a disk in one, else its path.
std::string nameOf(const DestinationSummary &destination)
{
    const auto &disk = destination.disk;
    return disk.bay.empty() ? displayPath(destination.path) : disk.bay + " (" + displayPath(disk.name) + ")";
}

ReportTable::Row rowOf(const DestinationSummary &destination, const RunSummary &run)
{
    const auto &disk = destination.disk;
    const bool isFolder = disk.bay.empty();
    return {resultText(verdictOf(destination, run)),
            isFolder ? "-" : disk.bay,
            displayPath(isFolder ? destination.path : disk.name),
            isFolder ? "-" : displayPath(disk.model),
            isFolder ? "-" : displayPath(disk.serial),
            std::to_string(destination.copied),
            sizeText(destination.bytes),
            writeRateOf(destination),
            verifiedFromText(destination)};
}

ReportTable::Row rowOf(const DiskEntry &disk)
{
    const auto orDash = [](const std::string &text) { return text.empty() ? "-" : displayPath(text); };
    return {disk.outcome == DiskOutcome::EraseFailed ? "\u2717 not erased" : "\u2013 no part",
            disk.bay,
            displayPath(disk.name),
            orDash(disk.disk.diskModule),
            orDash(disk.disk.diskSN),
            "-",
            "-",
            "-",
            "-"};
}

// Returns what is to be said of a destination besides its row, as lines: its manifests, and what is wrong.
std::vector<std::string> detailsOf(const DestinationSummary &destination, const RunSummary &run,
                                   const std::vector<ProblemGroup> &problems)
{
    std::vector<std::string> lines;
    if (destination.durability == Durability::NotKnown)
        lines.push_back(std::to_string(destination.notKnownToBeOnDisk) + " " + destination.reason);
    if (destination.isSuspect)
        lines.emplace_back("The disk is suspect: it does not keep what is written to it.");
    if (destination.repaired > 0)
        lines.push_back(std::to_string(destination.repaired) +
                        " repaired: blocks that differed were written again, and are right now");
    if (const auto notKept = notKeptText(destination); !notKept.empty())
        lines.push_back("not kept: " + notKept);
    if (const auto &disk = destination.disk; !disk.health.empty())
        lines.push_back("health before the run: " + disk.health +
                        (disk.healthAfter.empty() ? "" : "; after it: " + disk.healthAfter));
    for (const auto &manifest : manifestLines(destination))
        lines.push_back("manifest " + manifest);
    for (const auto &group : problems) {
        if (group.destination != destination.path)
            continue;
        const auto more = linesOf(group, run.source);
        lines.insert(lines.end(), more.begin(), more.end());
    }
    return lines;
}

void addParagraph(std::vector<std::string> &lines, const std::string &heading,
                  const std::vector<std::string> &content)
{
    if (content.empty())
        return;
    if (!lines.empty())
        lines.emplace_back();
    lines.push_back(heading);
    for (const auto &line : content)
        lines.push_back("    " + line);
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
    add(destination.evidenceFailures, " with trouble in the manifest");
    if (destination.isSuspect)
        text += ", and the disk is suspect";
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
            lacks += "; " + nameOf(destination) + ": " + lackOf(destination);
    }
    auto text = countText(good.size(), summary.destinations.size());
    if (!good.empty())
        text += verifiedText(good);
    text += lacks;
    for (const auto &destination : summary.destinations) {
        if (const auto notKept = notKeptText(destination); !notKept.empty())
            text += "; " + nameOf(destination) + " could not keep " + notKept;
    }
    for (const auto &disk : summary.disks) {
        if (disk.outcome != DiskOutcome::Erased)
            text += "; " + placeOf(disk) + " " + whyNoPart(disk);
    }
    if (const auto count = summary.leftOut; count > 0)
        text +=
            "; " + std::to_string(count) + (count == 1 ? " item was" : " items were") + " left out by rule";
    return text + ".";
}

std::string writeRateOf(const DestinationSummary &destination)
{
    const double seconds = destination.secondsWriting + destination.secondsSyncing;
    if (seconds <= 0)
        return "-";
    const double rate = static_cast<double>(destination.bytes) / seconds;
    return sizeText(static_cast<std::uint64_t>(rate)) + "/s";
}

std::string verifiedFromText(const DestinationSummary &destination)
{
    if (destination.verified + destination.mismatched == 0)
        return "-";
    return destination.verifiedFrom == VerifiedFrom::Disk ? "the disk" : "memory";
}

ReportTable reportTable(const RunSummary &summary, const std::vector<ProblemGroup> &problems)
{
    ReportTable table;
    table.headline = headlineOf(summary);
    for (const auto &destination : summary.destinations) {
        table.rows.push_back(rowOf(destination, summary));
        addParagraph(table.lines, nameOf(destination), detailsOf(destination, summary, problems));
    }
    for (const auto &disk : summary.disks) {
        if (disk.outcome == DiskOutcome::Erased)
            continue;
        table.rows.push_back(rowOf(disk));
        addParagraph(table.lines, placeOf(disk), {whyNoPart(disk)});
    }
    return table;
}

std::string textOf(const ReportTable &table)
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
    for (const auto &line : table.lines)
        text.append(&line == &table.lines.front() ? "\n" : "").append(line).append("\n");
    return text;
}

} // namespace orvana
