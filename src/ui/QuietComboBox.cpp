#include "ui/QuietComboBox.h"

#include "ui/ShownText.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWheelEvent>

namespace orvana
{

QuietComboBox::QuietComboBox(QWidget *parent) : QComboBox(parent)
{
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
}

void QuietComboBox::addTitle(const std::string &title, const QIcon &icon)
{
    addItem(icon, shownText(title), QByteArray::fromStdString(title));
    setItemData(count() - 1, plainToolTip(shownText(title)), Qt::ToolTipRole);
}

std::string QuietComboBox::selectedTitle() const
{
    return currentData().toByteArray().toStdString();
}

bool QuietComboBox::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || currentText().isEmpty() || !toolTip().isEmpty())
        return QComboBox::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(currentText()), this);
    return true;
}

void QuietComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace orvana
