#include "panels/VolumeNameField.h"

#include "ui/ShownText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace orvana
{

VolumeNameField::VolumeNameField(QWidget *parent) : QLineEdit(parent)
{
    setEditing(Editing::Forbidden);
}

void VolumeNameField::setBytes(const std::string &name)
{
    m_bytes = name;
    setText(shownText(name));
    m_shown = text();
    setCursorPosition(0);
}

std::string VolumeNameField::bytes() const
{
    return text() == m_shown ? m_bytes : text().toUtf8().toStdString();
}

void VolumeNameField::setEditing(Editing editing)
{
    const bool isForbidden = editing == Editing::Forbidden;
    setReadOnly(isForbidden);
    setFrame(!isForbidden);
    setFocusPolicy(isForbidden ? Qt::NoFocus : Qt::StrongFocus);
    setContextMenuPolicy(isForbidden ? Qt::NoContextMenu : Qt::DefaultContextMenu);
    if (isForbidden)
        deselect();
}

QString VolumeNameField::elided() const
{
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, rect().width());
}

bool VolumeNameField::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || elided() == text())
        return QLineEdit::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(text()), this);
    return true;
}

void VolumeNameField::paintEvent(QPaintEvent *event)
{
    if (!isReadOnly()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const bool isEmpty = text().isEmpty();
    style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, palette(),
                          isEnabled(), isEmpty ? placeholderText() : elided(),
                          isEmpty ? QPalette::PlaceholderText : QPalette::Text);
}

} // namespace orvana
