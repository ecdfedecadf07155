#pragma once

#include <QString>
#include <QTextDocumentFragment>
#include <QUrl>

class QLabel;

namespace orvana
{

/// Returns the text as a link to the address. The link has a blue that is readable on the present palette,
/// and a single underline.
QTextDocumentFragment hyperlinkFromString(const QString &text, const QUrl &address);

/// Sets the field's text to the link alone. Makes the field selectable and lets it show rich text, because a
/// clickable link needs both. The field reports a click by `linkActivated`.
void setHyperlinkWithTextField(QLabel *field, const QString &text, const QUrl &address);

} // namespace orvana
