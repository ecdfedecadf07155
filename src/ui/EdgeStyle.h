#pragma once

#include <QProxyStyle>

namespace orvana
{

/// The Fusion style with edges that one can see: boxes to tick, fields, buttons and empty bars get a line
/// around them in `edgeColor`. Fusion's own edges have a contrast of less than 2 to 1. Styles that a desktop
/// brings along are left as they are: they follow that desktop's own settings.
class EdgeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    EdgeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
};

/// Gives the program this style if its style is Fusion. Called once, after the application was made.
void useEdgeStyle();

} // namespace orvana
