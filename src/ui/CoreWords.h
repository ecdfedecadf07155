#pragma once

#include <QString>

#include <string>

namespace orvana
{

/// Returns a text of the core in the user's language, safe to show (see `shownText`).
///
/// The core writes English, because its texts also go to the terminal, the log and the report. This looks up
/// each line of the text, or the part behind its last ": ", such as the reason in "Slot-B (Disk): its volume
/// is not mounted". A line that is not listed in CoreWords.cpp stays English.
QString coreWords(const std::string &text);

/// Returns a message of a run, such as "Duplicating /Volumes/Master/File", in the user's language, safe to
/// show. The path is never translated, whatever it reads like.
QString runMessage(const std::string &message);

/// Returns a text as it is painted: a fixed word such as "Unformatted" in the user's language, any other text
/// isolated from the direction of the text around it. Only for painting. A field's own text never changes,
/// because the program reads it back.
QString paintedText(const QString &text);

/// Returns the text isolated from the direction of the text around it, when one of the two runs from right to
/// left: a size such as "1.82 TB" or a path would be torn apart otherwise.
QString isolated(const QString &text);

} // namespace orvana
