#include "ui/EdgeStyle.h"

#include "ui/Contrast.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace orvana
{

namespace
{

void drawEdge(const QStyleOption &option, QPainter &painter, const QRect &rect, qreal radius)
{
    const bool hasFocus = option.state & QStyle::State_HasFocus;
    const qreal width = hasFocus ? 2 : 1;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(hasFocus ? focusColor(option.palette) : edgeColor(option.palette), width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2), radius,
                            radius);
    painter.restore();
}

} // namespace

EdgeStyle::EdgeStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void EdgeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck)
        drawEdge(*option, *painter, option->rect, 1);
    else if (element == PE_FrameLineEdit || element == PE_PanelButtonCommand)
        drawEdge(*option, *painter, option->rect, 2);
    else if (element == PE_Frame)
        drawEdge(*option, *painter, option->rect, 0);
}

void EdgeStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_ProgressBarGroove)
        drawEdge(*option, *painter, option->rect, 1);
}

void EdgeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                   QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox)
        drawEdge(*option, *painter, option->rect, 2);
}

void useEdgeStyle()
{
    if (QApplication::style()->name() == QStringLiteral("fusion"))
        QApplication::setStyle(new EdgeStyle);
}

} // namespace orvana
