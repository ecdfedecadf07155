#include "panels/VolumeNameField.h"

#include "ui/CoreWords.h"
#include "ui/ShownText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
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
    return fontMetrics().elidedText(paintedText(text()), Qt::ElideMiddle, rect().width());
}

bool VolumeNameField::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || elided() == paintedText(text()))
        return QLineEdit::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(text()), this);
    return true;
}

void VolumeNameField::paintEvent(QPaintEvent *event)
{
    // The field shows the name itself while the user types.
    if (!isReadOnly() && (hasFocus() || paintedText(text()) == text())) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    auto place = rect();
    if (!isReadOnly()) {
        QStyleOptionFrame frame;
        initStyleOption(&frame);
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, this);
        constexpr int Margin = 2;
        place = style()
                    ->subElementRect(QStyle::SE_LineEditContents, &frame, this)
                    .adjusted(Margin, 0, -Margin, 0);
    }
    const bool isEmpty = text().isEmpty();
    const auto alignment = QStyle::visualAlignment(layoutDirection(), Qt::AlignVCenter | Qt::AlignLeft);
    style()->drawItemText(&painter, place, static_cast<int>(alignment) | Qt::TextSingleLine, palette(),
                          isEnabled(), isEmpty ? placeholderText() : elided(),
                          isEmpty ? QPalette::PlaceholderText : QPalette::Text);
}

} // namespace orvana
