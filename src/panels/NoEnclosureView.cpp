#include "panels/NoEnclosureView.h"

#include "ui/FittingFont.h"

namespace orvana
{

NoEnclosureView::NoEnclosureView(QWidget *parent) : QWidget(parent)
{
    setupUi(this);
    connect(setUpBtn, &QPushButton::clicked, this, &NoEnclosureView::setUpWanted);
    connect(demoBtn, &QPushButton::clicked, this, &NoEnclosureView::demoWanted);
    // The panel has a fixed place. So the texts become smaller where the desktop's font is large.
    constexpr int LineHeight = 20;
    constexpr int AroundTheTexts = 60;
    setFont(fontThatFits(font(), LineHeight, setUpBtn->text() + demoBtn->text(), width() - AroundTheTexts));
}

} // namespace orvana
