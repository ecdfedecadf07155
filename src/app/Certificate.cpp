#include "app/Certificate.h"

#include "duplicate/report/ReportTable.h"
#include "duplicate/report/Verdict.h"
#include "foundation/SizeText.h"
#include "ui/ShownText.h"

#include <QPageLayout>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextDocument>

#include <utility>

namespace orvana
{

namespace
{

QString escaped(const std::string &bytes)
{
    return shownText(bytes).toHtmlEscaped();
}

QString row(const char *title, const QString &value)
{
    return QStringLiteral("<tr><td>%1</td><td>%2</td></tr>\n")
        .arg(QString::fromLatin1(title), value.isEmpty() ? QStringLiteral("-") : value);
}

QString counted(std::int64_t files)
{
    return QString::number(files) + (files == 1 ? QStringLiteral(" file") : QStringLiteral(" files"));
}

QString sizeOf(std::uint64_t bytes)
{
    return QStringLiteral("%1 (%2 bytes)").arg(QString::fromStdString(sizeText(bytes))).arg(bytes);
}

// "2026-11-22T18:30:00+0100" is read more easily with a blank.
QString timeOf(const std::string &time)
{
    return QString::fromStdString(time).replace(QChar(u'T'), QChar(u' '));
}

// Says what the verdict is worth, so that nobody has to know this program to understand the page.
QString meaningOf(Verdict verdict, const DestinationSummary &destination)
{
    switch (verdict) {
    case Verdict::Verified:
        return QStringLiteral("Every file was written, read back from the disk, and equals its source.");
    case Verdict::Complete:
        if (destination.durability == Durability::Memory)
            return QStringLiteral(
                "Every file was written, to a file system that has no disk but only memory.");
        return destination.verified > 0
                   ? QStringLiteral(
                         "Every file was written. Files were read back and equal their sources, but "
                         "not all of them are known to have come from the disk.")
                   : QStringLiteral("Every file was written without an error. Nothing was read back.");
    case Verdict::Incomplete:
        return QStringLiteral("Files are missing or incomplete.");
    case Verdict::Differs:
        return QStringLiteral("Files were read back and differ from their sources.");
    case Verdict::NotCompared:
        return QStringLiteral("Every file was written, but some could not be compared with their sources.");
    case Verdict::NotOnDisk:
        return QStringLiteral("The files were written, but are not known to be on the disk.");
    case Verdict::NotFinished:
        return QStringLiteral("The run was ended before it had copied everything.");
    }
    return {};
}

} // namespace

Certificate::Certificate(RunSummary summary, std::vector<ProblemGroup> problems)
    : m_summary(std::move(summary)), m_problems(std::move(problems))
{
}

QString Certificate::page(const DestinationSummary &destination) const
{
    const auto &disk = destination.disk;
    const auto verdict = verdictOf(destination, m_summary);
    const bool isDisk = !disk.bay.empty();
    auto text = QStringLiteral(
                    "<h1>Certificate of duplication</h1>\n<p class=\"verdict\"><b>%1 %2</b></p>\n<p>%3</p>\n")
                    .arg(QString::fromUtf8(signOf(verdict)), QString::fromLatin1(wordOf(verdict)),
                         meaningOf(verdict, destination));
    text += QStringLiteral("<table cellpadding=\"4\">\n");
    text += row("Source", escaped(m_summary.source));
    if (isDisk) {
        text += row("Disk", escaped(disk.name));
        text += row("Model", escaped(disk.model));
        text += row("Serial number", escaped(disk.serial));
        text += row("Size", disk.size ? sizeOf(*disk.size) : QString());
        text += row("Bay", escaped(disk.bay));
    } else {
        text += row("Folder", escaped(destination.path));
    }
    text += row("Copied", counted(destination.copied));
    text += row("Bytes written", sizeOf(destination.bytes));
    text += row("Read back and equal", destination.verified > 0
                                           ? counted(destination.verified) + QStringLiteral(", from ") +
                                                 QString::fromStdString(verifiedFromText(destination))
                                           : QStringLiteral("none"));
    text += row("Differ", counted(destination.mismatched));
    text += row("Failed", counted(destination.failed));
    for (const auto &manifest : manifestLines(destination))
        text += row("Manifest", QString::fromStdString(manifest).toHtmlEscaped());
    text += row("Left out by rule", counted(m_summary.leftOut));
    text += row("Began", timeOf(m_summary.started));
    text += row("Ended", timeOf(m_summary.ended));
    text += row("Program", QStringLiteral("Orvana Plurimo " PLURIMO_VERSION));
    text += QStringLiteral("</table>\n");
    for (const auto &group : m_problems) {
        if (group.destination != destination.path)
            continue;
        text += QStringLiteral("<p>");
        for (const auto &line : linesOf(group, m_summary.source))
            text += QString::fromStdString(line).toHtmlEscaped().replace(QStringLiteral("    "),
                                                                         QStringLiteral("&nbsp;&nbsp;")) +
                    QStringLiteral("<br>\n");
        text += QStringLiteral("</p>\n");
    }
    return text;
}

QString Certificate::html() const
{
    QString pages;
    for (const auto &destination : m_summary.destinations) {
        pages += pages.isEmpty() ? QStringLiteral("<div>\n")
                                 : QStringLiteral("<div style=\"page-break-before:always\">\n");
        pages += page(destination) + QStringLiteral("</div>\n");
    }
    if (pages.isEmpty())
        pages =
            QStringLiteral("<p>%1</p>\n").arg(QString::fromStdString(headlineOf(m_summary)).toHtmlEscaped());
    return QStringLiteral(
               "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
               "<title>Certificate of duplication</title>\n"
               "<style>body { font-family: sans-serif; color: #000000; background-color: #ffffff; }\n"
               "h1 { font-size: x-large; } p.verdict { font-size: large; }\n"
               "td { vertical-align: top; overflow-wrap: anywhere; }</style>\n</head>\n<body>\n") +
           pages + QStringLiteral("</body>\n</html>\n");
}

bool Certificate::saveHtml(const QString &path) const
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(html().toUtf8()) >= 0 && file.commit();
}

bool Certificate::savePdf(const QString &path) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    {
        constexpr int Resolution = 300; // dots per inch
        QPdfWriter writer(&file);
        writer.setTitle(QStringLiteral("Certificate of duplication"));
        writer.setCreator(QStringLiteral("Orvana Plurimo " PLURIMO_VERSION));
        writer.setResolution(Resolution);
        // The document itself leaves two centimetres free on all sides.
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
        QTextDocument document;
        document.setHtml(html());
        document.print(&writer);
    }
    return file.commit();
}

} // namespace orvana
