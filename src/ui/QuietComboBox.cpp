#include "ui/QuietComboBox.h"

#include "ui/CoreWords.h"
#include "ui/ShownText.h"

#include <QHelpEvent>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QWheelEvent>

namespace orvana
{

namespace
{

// Paints the items of the open list.
class TitleDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale & /*locale*/) const override
    {
        return paintedText(value.toString());
    }
};

} // namespace

QuietComboBox::QuietComboBox(QWidget *parent) : QComboBox(parent)
{
    setItemDelegate(new TitleDelegate(this));
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

void QuietComboBox::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = paintedText(option.currentText);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void QuietComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace orvana
