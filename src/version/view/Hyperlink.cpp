#include "version/view/Hyperlink.h"

#include "ui/SystemColor.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPalette>
#include <QTextCursor>
#include <QTextDocument>

namespace orvana
{

QTextDocumentFragment hyperlinkFromString(const QString &text, const QUrl &address)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(address.toString(QUrl::FullyEncoded));
    format.setForeground(SystemColor::blue().shadeFor(QGuiApplication::palette()));
    format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.insertText(text);
    cursor.select(QTextCursor::Document);
    cursor.setCharFormat(format);
    cursor.endEditBlock();
    return QTextDocumentFragment(cursor);
}

void setHyperlinkWithTextField(QLabel *field, const QString &text, const QUrl &address)
{
    field->setTextInteractionFlags(Qt::TextBrowserInteraction);
    field->setTextFormat(Qt::RichText);
    field->setText(hyperlinkFromString(text, address).toHtml());
}

} // namespace orvana
