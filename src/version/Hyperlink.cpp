#include "version/Hyperlink.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPalette>
#include <QTextCursor>
#include <QTextDocument>

namespace orvana
{

namespace
{

QColor readableBlue()
{
    const bool isDark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    return isDark ? QColor(0x80, 0xB0, 0xFF) : QColor(Qt::blue);
}

} // namespace

QTextDocumentFragment hyperlinkFromString(const QString &text, const QUrl &address)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(address.toString(QUrl::FullyEncoded));
    format.setForeground(readableBlue());
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
