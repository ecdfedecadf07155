#include "panels/BayRunView.h"

#include "ui/ElidedLabel.h"
#include "ui/FittingFont.h"
#include "ui/ProgressIndicator.h"
#include "ui/ShownText.h"

#include <QLabel>
#include <QStyle>

namespace orvana
{

namespace
{

constexpr int LineHeight = 15;

} // namespace

BayRunView::BayRunView(const QString &bay, QWidget *parent)
    : QWidget(parent), m_word(new ElidedLabel(this)), m_bar(new ProgressIndicator(this)),
      m_rate(new ElidedLabel(this)), m_timeLeft(new ElidedLabel(this)), m_detail(new QLabel(this))
{
    resize(Size);
    m_word->setGeometry(0, 0, Size.width(), 16);
    m_bar->setGeometry(0, 17, Size.width(), 9);
    m_rate->setGeometry(0, 28, Size.width(), LineHeight);
    m_timeLeft->setGeometry(0, 28 + LineHeight, Size.width(), LineHeight);
    setAccessibleName(tr("Run of %1").arg(bay));
    m_word->setCaption(tr("State of %1").arg(bay));
    m_bar->setAccessibleName(tr("Progress of %1").arg(bay));
    m_rate->setCaption(tr("Rate of %1").arg(bay));
    m_timeLeft->setCaption(tr("Time left for %1").arg(bay));
    for (auto *label : {m_rate, m_timeLeft})
        label->setFont(fontThatFits(font(), label->height()));
    m_detail->setGeometry(0, 28, Size.width(), 2 * LineHeight);
    m_detail->setFont(m_rate->font());
    m_detail->setTextFormat(Qt::PlainText);
    m_detail->setWordWrap(true);
    m_detail->setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute |
                           Qt::AlignTop);
    clear();
}

void BayRunView::setWord(const QString &word)
{
    auto bold = font();
    bold.setBold(true);
    m_word->setFont(fontThatFits(bold, m_word->height(), word, m_word->width()));
    m_word->setText(word);
}

void BayRunView::showProgress(double fraction, const QString &word, const QString &rate,
                              const QString &timeLeft)
{
    setWord(word);
    m_detail->hide();
    m_bar->showValue(static_cast<float>(fraction));
    m_rate->setText(rate);
    m_timeLeft->setText(timeLeft);
    m_rate->show();
    m_timeLeft->show();
    show();
}

void BayRunView::showVerdict(const QString &word, const QString &detail)
{
    setWord(word);
    m_bar->showValue(ProgressIndicator::Hidden);
    m_rate->hide();
    m_timeLeft->hide();
    // About as much as two lines hold.
    const int room = 2 * Size.width() - m_detail->fontMetrics().averageCharWidth() * 4;
    m_detail->setText(m_detail->fontMetrics().elidedText(detail, Qt::ElideRight, room));
    m_detail->setToolTip(plainToolTip(detail));
    m_detail->setAccessibleName(detail);
    m_detail->show();
    show();
}

void BayRunView::clear()
{
    hide();
    setWord(QString());
    m_bar->showValue(ProgressIndicator::Hidden);
    m_rate->clear();
    m_timeLeft->clear();
    m_detail->clear();
}

} // namespace orvana
