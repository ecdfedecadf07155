#include "ui/ElidedLabel.h"

#include "ui/CoreWords.h"
#include "ui/ShownText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace orvana
{

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText); // a disk's name is never markup
}

void ElidedLabel::setCaption(const QString &caption)
{
    m_caption = caption;
    tellName();
}

void ElidedLabel::setText(const QString &text)
{
    if (text == this->text())
        return;
    QLabel::setText(text);
    tellName();
}

// A label without a caption is heard by its text anyway.
void ElidedLabel::tellName()
{
    if (m_caption.isEmpty())
        return;
    setAccessibleName(text().isEmpty() ? m_caption : m_caption + QStringLiteral(": ") + text());
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(QChar(0x2026)), QLabel::minimumSizeHint().height()};
}

QString ElidedLabel::shownText() const
{
    return fontMetrics().elidedText(text(), m_elideMode, contentsRect().width());
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(text()), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const auto place = QStyle::visualAlignment(layoutDirection(), alignment());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(place) | Qt::TextSingleLine, palette(),
                          isEnabled(), isolated(shownText()), foregroundRole());
}

} // namespace orvana
