#include "duplicate/report/CertificatePage.h"

#include "duplicate/report/ReportTable.h"
#include "duplicate/report/Verdict.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"

#include <algorithm>

namespace orvana
{

namespace
{

// Returns the text as HTML. Blanks at the beginning of a line stay.
std::string escaped(const std::string &text)
{
    std::string html;
    for (const char c : displayPath(text)) {
        if (c == '&')
            html += "&amp;";
        else if (c == '<')
            html += "&lt;";
        else if (c == '>')
            html += "&gt;";
        else if (c == '"')
            html += "&quot;";
        else
            html += c;
    }
    for (auto blanks = html.find("    "); blanks != std::string::npos; blanks = html.find("    "))
        html.replace(blanks, 4, "&nbsp;&nbsp;");
    return html;
}

std::string row(const std::string &title, const std::string &html)
{
    return "<tr><td>" + title + "</td><td>" + (html.empty() ? "-" : html) + "</td></tr>\n";
}

std::string counted(std::int64_t files)
{
    return std::to_string(files) + (files == 1 ? " file" : " files");
}

std::string sizeOf(std::uint64_t bytes)
{
    return sizeText(bytes) + " (" + std::to_string(bytes) + " bytes)";
}

// "2026-11-22T18:30:00+0100" is read more easily with a blank.
std::string timeOf(std::string time)
{
    std::replace(time.begin(), time.end(), 'T', ' ');
    return time;
}

// Says what the verdict is worth, so that nobody has to know this program to understand the page.
std::string meaningOf(Verdict verdict, const DestinationSummary &destination)
{
    switch (verdict) {
    case Verdict::Verified:
        return "Every file was written, read back from the disk, and equals its source.";
    case Verdict::Complete:
        if (destination.durability == Durability::Memory)
            return "Every file was written, to a file system that has no disk but only memory.";
        return destination.verified > 0 ? "Every file was written. Files were read back and equal their "
                                          "sources, but not all of them are known to have come from the disk."
                                        : "Every file was written without an error. Nothing was read back.";
    case Verdict::Incomplete:
        return "Files are missing or incomplete.";
    case Verdict::Differs:
        return "Files were read back and differ from their sources.";
    case Verdict::NotCompared:
        return "Every file was written, but some could not be compared with their sources.";
    case Verdict::NotOnDisk:
        return "The files were written, but are not known to be on the disk.";
    case Verdict::NotFinished:
        return "The run was ended before it had copied everything.";
    }
    return {};
}

std::string placeRows(const DestinationSummary &destination)
{
    const auto &disk = destination.disk;
    if (disk.bay.empty())
        return row("Folder", escaped(destination.path));
    return row("Disk", escaped(disk.name)) + row("Model", escaped(disk.model)) +
           row("Serial number", escaped(disk.serial)) +
           (disk.health.empty() ? std::string() : row("Health before the run", escaped(disk.health))) +
           (disk.healthAfter.empty() ? std::string()
                                     : row("Health after the run", escaped(disk.healthAfter))) +
           row("Size", disk.size ? sizeOf(*disk.size) : std::string()) + row("Bay", escaped(disk.bay));
}

std::string tableOf(const DestinationSummary &destination, const RunSummary &summary,
                    const std::vector<CertificateRow> &rows)
{
    auto table = "<table cellpadding=\"4\">\n" + row("Source", escaped(summary.source));
    table += placeRows(destination);
    table += row("Copied", counted(destination.copied));
    table += row("Bytes written", sizeOf(destination.bytes));
    table += row("Read back and equal", destination.verified > 0 ? counted(destination.verified) + ", from " +
                                                                       verifiedFromText(destination)
                                                                 : "none");
    table += row("Differ", counted(destination.mismatched));
    table += row("Failed", counted(destination.failed));
    for (const auto &manifest : manifestLines(destination))
        table += row("Manifest", escaped(manifest));
    table += row("Left out by rule", counted(summary.leftOut));
    for (const auto &[title, text] : rows)
        table += row(escaped(title), escaped(text));
    table += row("Began", timeOf(summary.started));
    table += row("Ended", timeOf(summary.ended));
    return table + row("Program", "Orvana Plurimo " PLURIMO_VERSION) + "</table>\n";
}

std::string pageOf(const DestinationSummary &destination, const RunSummary &summary,
                   const std::vector<ProblemGroup> &problems, const std::vector<CertificateRow> &rows)
{
    const auto verdict = verdictOf(destination, summary);
    auto page = std::string("<h1>Certificate of duplication</h1>\n<p class=\"verdict\"><b>") +
                signOf(verdict) + " " + wordOf(verdict) + "</b></p>\n<p>" + meaningOf(verdict, destination) +
                "</p>\n" + tableOf(destination, summary, rows);
    for (const auto &group : problems) {
        if (group.destination != destination.path)
            continue;
        page += "<p>";
        for (const auto &line : linesOf(group, summary.source))
            page += escaped(line) + "<br>\n";
        page += "</p>\n";
    }
    return page;
}

} // namespace

std::string certificateHtml(const RunSummary &summary, const std::vector<ProblemGroup> &problems,
                            const DestinationSummary *only, const std::vector<CertificateRow> &rows)
{
    std::string pages;
    for (const auto &destination : summary.destinations) {
        if (only && only != &destination)
            continue;
        pages += pages.empty() ? "<div>\n" : "<div style=\"page-break-before:always\">\n";
        pages += pageOf(destination, summary, problems, rows) + "</div>\n";
    }
    if (pages.empty())
        pages = "<p>" + escaped(headlineOf(summary)) + "</p>\n";
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<title>Certificate of duplication</title>\n"
           "<style>body { font-family: sans-serif; color: #000000; background-color: #ffffff; }\n"
           "h1 { font-size: x-large; } p.verdict { font-size: large; }\n"
           "td { vertical-align: top; overflow-wrap: anywhere; }</style>\n</head>\n<body>\n" +
           pages + "</body>\n</html>\n";
}

} // namespace orvana
