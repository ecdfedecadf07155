#include "panels/ProgressBarViewController.h"

#include "foundation/SystemLog.h"
#include "ui/ShownText.h"

namespace orvana
{

using Kind = ProgressIndicator::Kind;

ProgressBarViewController::ProgressBarViewController(QWidget *parent) : QWidget(parent)
{
    setupUi(this);
    awakeFromNib();
}

void ProgressBarViewController::awakeFromNib()
{
    TextLabel->clear();
    fileProgress->setKind(Kind::Determinate);
    fileProgress->setMaxValue(100.0);
    setFileStep(ProgressIndicator::Hidden);
    totalProgress->setKind(Kind::Determinate);
    totalProgress->setMaxValue(1.0);
    setTotalStep(ProgressIndicator::Hidden);
}

void ProgressBarViewController::setFileStep(float step)
{
    fileProgress->showValue(step);
}

void ProgressBarViewController::setTotalStep(float step)
{
    totalProgress->showValue(step);
}

void ProgressBarViewController::setMsgText(const std::string &text)
{
    systemLog("aString=" + text);
    m_msgText = text;
    TextLabel->setText(shownText(text));
    systemLog("[self.TextLabel stringValue] = " + TextLabel->text().toStdString());
}

void ProgressBarViewController::setViewForErase()
{
    totalProgress->setKind(Kind::Indeterminate);
    fileProgress->setKind(Kind::Determinate);
    setFileStep(ProgressIndicator::Hidden);
    setTotalStep(0.0F);
    TextLabel->setVisible(true);
}

void ProgressBarViewController::setViewForCopy()
{
    totalProgress->setKind(Kind::Determinate);
    fileProgress->setKind(Kind::Determinate);
    setFileStep(0.0F);
    setTotalStep(0.0F);
    TextLabel->setVisible(true);
}

} // namespace orvana
