#pragma once

#include <QString>
#include <QTextDocumentFragment>
#include <QUrl>

class QLabel;

namespace orvana
{

/// The text as a link: over its whole length it has the address, a blue that can be read on the present
/// palette, and a single underline.
QTextDocumentFragment hyperlinkFromString(const QString &text, const QUrl &address);

/// Makes the field selectable and lets it show rich text, which a link that can be clicked needs, and sets
/// its value to the link alone. The field tells a click by `linkActivated`.
void setHyperlinkWithTextField(QLabel *field, const QString &text, const QUrl &address);

} // namespace orvana
