#include "panels/BayRunView.h"

#include "ui/ElidedLabel.h"
#include "ui/FittingFont.h"
#include "ui/ProgressIndicator.h"

namespace orvana
{

BayRunView::BayRunView(const QString &bay, QWidget *parent)
    : QWidget(parent), m_word(new ElidedLabel(this)), m_bar(new ProgressIndicator(this)),
      m_rate(new ElidedLabel(this)), m_timeLeft(new ElidedLabel(this))
{
    resize(Size);
    m_word->setGeometry(0, 0, Size.width(), 16);
    m_bar->setGeometry(0, 17, Size.width(), 9);
    m_rate->setGeometry(0, 28, Size.width(), 15);
    m_timeLeft->setGeometry(0, 43, Size.width(), 15);
    setAccessibleName(tr("Run of %1").arg(bay));
    m_word->setCaption(tr("State of %1").arg(bay));
    m_bar->setAccessibleName(tr("Progress of %1").arg(bay));
    m_rate->setCaption(tr("Rate of %1").arg(bay));
    m_timeLeft->setCaption(tr("Time left for %1").arg(bay));
    fitFonts();
    clear();
}

void BayRunView::fitFonts()
{
    auto word = fontThatFits(font(), m_word->height());
    word.setBold(true);
    m_word->setFont(word);
    for (auto *label : {m_rate, m_timeLeft})
        label->setFont(fontThatFits(font(), label->height()));
}

void BayRunView::showProgress(double fraction, const QString &word, const QString &rate,
                              const QString &timeLeft)
{
    m_word->setText(word);
    m_bar->showValue(static_cast<float>(fraction));
    m_rate->setText(rate);
    m_timeLeft->setText(timeLeft);
    show();
}

void BayRunView::showVerdict(const QString &word, const QString &detail)
{
    m_word->setText(word);
    m_bar->showValue(ProgressIndicator::Hidden);
    m_rate->setText(detail);
    m_timeLeft->setText(QString());
    show();
}

void BayRunView::clear()
{
    hide();
    m_word->setText(QString());
    m_bar->showValue(ProgressIndicator::Hidden);
    m_rate->setText(QString());
    m_timeLeft->setText(QString());
}

} // namespace orvana
