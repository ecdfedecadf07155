#include "ui/CoreWords.h"

#include "ui/ShownText.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <string>

namespace orvana
{

namespace
{

constexpr const char *Context = "Core";

// Texts of the core that the window shows. "%1" at the end stands for any text, and at the beginning for a
// number.
constexpr std::array Texts{
    // names in the pop-ups and the slot panel
    QT_TRANSLATE_NOOP("Core", "None"),
    QT_TRANSLATE_NOOP("Core", "Unformatted"),
    QT_TRANSLATE_NOOP("Core", "Select an Orvana Storage Device"),
    QT_TRANSLATE_NOOP("Core", "Source Disk (Slot-A)"),
    QT_TRANSLATE_NOOP("Core", "Destination Disk (Slot-A)"),
    QT_TRANSLATE_NOOP("Core", "Destination Disk (Slot-B)"),
    QT_TRANSLATE_NOOP("Core", "Destination Disk (Slot-C)"),
    QT_TRANSLATE_NOOP("Core", "Destination Disk (Slot-D)"),
    // the message of a run
    QT_TRANSLATE_NOOP("Core", "Duplicating %1"),
    QT_TRANSLATE_NOOP("Core", "Verifying File ..."),
    QT_TRANSLATE_NOOP("Core", "Verifying File ... Failed"),
    QT_TRANSLATE_NOOP("Core", "Verifying File ... Succeeded"),
    QT_TRANSLATE_NOOP("Core", "Erasing the destination disks. The window answers again when it is done."),
    QT_TRANSLATE_NOOP("Core", "Eject %1"),
    QT_TRANSLATE_NOOP("Core", "Mount %1"),
    // why a run does not start
    QT_TRANSLATE_NOOP("Core", "You must select a Orvana Storage Device first."),
    QT_TRANSLATE_NOOP("Core", "The selected device is no longer there."),
    QT_TRANSLATE_NOOP("Core", "Another device has taken the place of the selected one."),
    QT_TRANSLATE_NOOP("Core", "This device cannot be selected when it's used as a startup disk."),
    QT_TRANSLATE_NOOP("Core", "Nothing is selected to be copied, so no disk is erased."),
    QT_TRANSLATE_NOOP("Core",
                      "The source is not there any more, or another disk has taken its place. Nothing was "
                      "touched. Choose the source again."),
    QT_TRANSLATE_NOOP("Core",
                      "The source is not there any more, or another disk has taken its place. Nothing was "
                      "copied; the report says which disks were erased. Choose the source again."),
    QT_TRANSLATE_NOOP("Core",
                      "A run that goes on with the last one erases no disk. Switch one of the two off."),
    QT_TRANSLATE_NOOP("Core", "A disk of the run before does not answer. Nothing was erased."),
    QT_TRANSLATE_NOOP("Core",
                      "The device is not the one that was chosen when the start began. Nothing was touched."),
    QT_TRANSLATE_NOOP("Core", "The disks are not those that were shown any more. Nothing was touched."),
    QT_TRANSLATE_NOOP("Core", "A production line is armed. Disarm it first."),
    // what a production line asks and says
    QT_TRANSLATE_NOOP("Core", "it was in the bay already"),
    QT_TRANSLATE_NOOP("Core", "its countdown was stopped"),
    QT_TRANSLATE_NOOP("Core", "it has no serial number"),
    QT_TRANSLATE_NOOP("Core", "a disk with its serial number is in another bay"),
    QT_TRANSLATE_NOOP("Core", "as many disks as are wanted are done or in work"),
    QT_TRANSLATE_NOOP("Core", "the line is paused"),
    QT_TRANSLATE_NOOP("Core", "the line has ended"),
    QT_TRANSLATE_NOOP("Core", "no more disks were wanted for now"),
    QT_TRANSLATE_NOOP("Core", "a line counts only disks that were verified; the job does not verify"),
    QT_TRANSLATE_NOOP("Core", "a line begins each disk anew; the job goes on with the last run"),
    QT_TRANSLATE_NOOP("Core",
                      "the names of disks in two bays would be the same; put {n} or {bay} into the pattern"),
    // why a disk takes no part
    QT_TRANSLATE_NOOP("Core", "it calls itself failing"),
    QT_TRANSLATE_NOOP("Core", "it carries the source"),
    QT_TRANSLATE_NOOP("Core", "it cannot be told from a disk of the source"),
    QT_TRANSLATE_NOOP("Core", "it is the start-up disk"),
    QT_TRANSLATE_NOOP("Core", "it belongs to a RAID set"),
    QT_TRANSLATE_NOOP("Core", "it has no device node"),
    QT_TRANSLATE_NOOP("Core", "another disk claims the same place"),
    QT_TRANSLATE_NOOP("Core", "its volume has no name"),
    QT_TRANSLATE_NOOP("Core", "its volume is not mounted"),
    QT_TRANSLATE_NOOP("Core", "it is not the disk that was shown"),
    QT_TRANSLATE_NOOP("Core", "its erase did not succeed"),
    QT_TRANSLATE_NOOP("Core", "it no longer holds the volume that was shown"),
    QT_TRANSLATE_NOOP("Core", "another run is at work on its volume"),
    QT_TRANSLATE_NOOP("Core", "its volume is mounted read-only"),
    QT_TRANSLATE_NOOP("Core", "the selection does not fit"),
    QT_TRANSLATE_NOOP("Core", "a bay before it shows the same name"),
    QT_TRANSLATE_NOOP("Core", "the erase was stopped before it"),
    QT_TRANSLATE_NOOP("Core", "the disk utility could not be started"),
    // why a name cannot be given
    QT_TRANSLATE_NOOP("Core", "a disk needs a name"),
    QT_TRANSLATE_NOOP("Core", "this cannot be the name of a disk"),
    QT_TRANSLATE_NOOP("Core", "a name cannot hold \"/\""),
    QT_TRANSLATE_NOOP("Core", "a name is text on one line"),
    QT_TRANSLATE_NOOP("Core", "this is the name of the source"),
    QT_TRANSLATE_NOOP("Core", "a name cannot begin or end with a blank, nor hold two in a row"),
    // options that do not go together
    QT_TRANSLATE_NOOP("Core", "an ASC MHL manifest cannot hold sha256 digests"),
    QT_TRANSLATE_NOOP("Core", "a checksum file cannot hold c4 digests"),
    // jobs, ejecting, setting up
    QT_TRANSLATE_NOOP("Core", "Not ejected:"),
    QT_TRANSLATE_NOOP("Core", "Choose the enclosure first, and open the job when no run goes on."),
    QT_TRANSLATE_NOOP("Core", "Nothing is ticked, so there is no job to save."),
    QT_TRANSLATE_NOOP("Core", "the job could not be written"),
    QT_TRANSLATE_NOOP("Core", "the source of the job is not there"),
    QT_TRANSLATE_NOOP("Core", "two volumes have the id of the job's source"),
    QT_TRANSLATE_NOOP("Core", "another source has the same name; rename one of them"),
    QT_TRANSLATE_NOOP("Core", "no such file or folder in the source"),
    QT_TRANSLATE_NOOP("Core", "The demo cannot be started."),
    QT_TRANSLATE_NOOP("Core", "Disks are at work. Bays can be set up when that has ended."),
    QT_TRANSLATE_NOOP("Core", "an enclosure needs two to four bays"),
    // how a disk is
    QT_TRANSLATE_NOOP("Core", "good"),
    QT_TRANSLATE_NOOP("Core", "warning"),
    QT_TRANSLATE_NOOP("Core", "not known"),
    QT_TRANSLATE_NOOP("Core", "calls itself failing"),
    QT_TRANSLATE_NOOP("Core", "1 bad sector"),
    QT_TRANSLATE_NOOP("Core", "%1 bad sectors"),
    QT_TRANSLATE_NOOP("Core", "%1 of them new"),
    QT_TRANSLATE_NOOP("Core", "1 new error"),
    QT_TRANSLATE_NOOP("Core", "%1 new errors"),
    QT_TRANSLATE_NOOP("Core", "hot"),
    QT_TRANSLATE_NOOP("Core", "its temperature is out of its own limits"),
    QT_TRANSLATE_NOOP("Core", "the link is down to 1.5 Gbps"),
    QT_TRANSLATE_NOOP("Core", "1 value at its limit"),
    QT_TRANSLATE_NOOP("Core", "%1 values at its limit"),
    QT_TRANSLATE_NOOP("Core", "1 hour"),
    QT_TRANSLATE_NOOP("Core", "%1 hours"),
};

bool isListed(const QString &text)
{
    return std::any_of(Texts.begin(), Texts.end(),
                       [&](const char *listed) { return text == QLatin1String(listed); });
}

QString translated(const char *listed)
{
    return QCoreApplication::translate(Context, listed);
}

std::optional<QString> exactly(const QString &text)
{
    if (!isListed(text))
        return std::nullopt;
    return translated(text.toLatin1().constData());
}

// Translates a text that is listed, or that begins with a number and is listed with "%1" for it.
std::optional<QString> phraseInWords(const QString &phrase)
{
    if (const auto whole = exactly(phrase))
        return whole;
    qsizetype digits = 0;
    while (digits < phrase.size() && phrase.at(digits).isDigit())
        ++digits;
    const auto words = digits > 0 ? exactly(QStringLiteral("%1") + phrase.mid(digits)) : std::nullopt;
    return words ? std::optional(words->arg(phrase.left(digits))) : std::nullopt;
}

// Translates what a disk says of itself, phrase by phrase: "warning: 12 bad sectors, hot, 71 °C". Nullopt if
// the first phrase is not listed. Others that are not listed stay as they are.
std::optional<QString> phrasesInWords(const QString &line)
{
    const auto colon = line.indexOf(QStringLiteral(": "));
    const auto comma = line.indexOf(QStringLiteral(", "));
    const auto end = colon < 0 ? comma : comma < 0 ? colon : std::min(colon, comma);
    const auto first = end < 0 ? std::nullopt : phraseInWords(line.left(end));
    if (!first)
        return std::nullopt;
    QStringList phrases;
    for (const auto &phrase : line.mid(end + 2).split(QStringLiteral(", ")))
        phrases += phraseInWords(phrase).value_or(phrase);
    return *first + line.mid(end, 2) + phrases.join(QStringLiteral(", "));
}

QString lineInWords(const QString &line)
{
    if (const auto whole = exactly(line))
        return *whole;
    if (const auto phrases = phrasesInWords(line))
        return *phrases;
    const auto reason = line.lastIndexOf(QStringLiteral(": "));
    const auto words = reason < 0 ? std::nullopt : exactly(line.mid(reason + 2));
    return words ? isolated(line.left(reason)) + QStringLiteral(": ") + *words : isolated(line);
}

} // namespace

QString coreWords(const std::string &text)
{
    QStringList lines;
    std::istringstream source(text);
    for (std::string line; std::getline(source, line);)
        lines += lineInWords(shownText(line));
    return lines.join(QChar(u'\n'));
}

QString runMessage(const std::string &message)
{
    const auto shown = shownText(message);
    for (const char *listed : Texts) {
        const auto start = QString::fromLatin1(listed);
        if (start.endsWith(QStringLiteral("%1")) && shown.startsWith(start.chopped(2)))
            return translated(listed).arg(isolated(shown.mid(start.size() - 2)));
    }
    return paintedText(shown);
}

QString paintedText(const QString &text)
{
    const auto words = exactly(text);
    return words ? *words : isolated(text);
}

QString isolated(const QString &text)
{
    constexpr QChar Isolate(0x2068); // the text's own first letter decides on its direction
    constexpr QChar EndOfIsolate(0x2069);
    const bool isAround = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    if (text.isEmpty() || (!isAround && !text.isRightToLeft()))
        return text;
    return Isolate + text + EndOfIsolate;
}

} // namespace orvana
