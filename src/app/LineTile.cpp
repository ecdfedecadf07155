#include "app/LineTile.h"

#include "app/RunWords.h"
#include "ui/CoreWords.h"
#include "ui/ShownText.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace orvana
{

namespace
{

constexpr int LetterPoints = 40;
constexpr int StatePoints = 28;
constexpr int DiskPoints = 14;
constexpr int LeastWidth = 260;
constexpr int Percent = 100;
constexpr int TooSoon = 700; // milliseconds

/// Colours of a state's band. The words stand on it in white or black with a contrast of at least 4.5.
struct Band
{
    const char *background;
    const char *text;
};

Band bandOf(LineBayState state)
{
    switch (state) {
    case LineBayState::Passed:
        return {"#1b6b2f", "#ffffff"};
    case LineBayState::Failed:
    case LineBayState::NotProven:
        return {"#a31621", "#ffffff"};
    case LineBayState::Asking:
    case LineBayState::CountingDown:
        return {"#f2b632", "#000000"};
    case LineBayState::NotTaken:
        return {"#5c5c5c", "#ffffff"};
    case LineBayState::Erasing:
    case LineBayState::Copying:
    case LineBayState::Verifying:
    case LineBayState::Ejecting:
    case LineBayState::Looking:
        return {"#1d4f91", "#ffffff"};
    case LineBayState::Waiting:
    case LineBayState::Disarmed:
        return {"#d7d7d7", "#000000"};
    }
    return {"#d7d7d7", "#000000"};
}

QString wordFor(LineBayState state)
{
    switch (state) {
    case LineBayState::Disarmed:
        return QCoreApplication::translate("orvana::LineTile", "Not armed");
    case LineBayState::Waiting:
        return QCoreApplication::translate("orvana::LineTile", "Waiting");
    case LineBayState::Looking:
        return QCoreApplication::translate("orvana::LineTile", "Looking");
    case LineBayState::NotTaken:
        return QCoreApplication::translate("orvana::LineTile", "Not taken");
    case LineBayState::Asking:
        return QCoreApplication::translate("orvana::LineTile", "Asking");
    case LineBayState::CountingDown:
        return QCoreApplication::translate("orvana::LineTile", "Begins in");
    case LineBayState::Erasing:
        return QCoreApplication::translate("orvana::LineTile", "Erasing");
    case LineBayState::Copying:
        return QCoreApplication::translate("orvana::LineTile", "Copying");
    case LineBayState::Verifying:
        return QCoreApplication::translate("orvana::LineTile", "Verifying");
    case LineBayState::Ejecting:
        return QCoreApplication::translate("orvana::LineTile", "Ejecting");
    case LineBayState::Passed:
        return QCoreApplication::translate("orvana::LineTile", "Passed");
    case LineBayState::NotProven:
        return QCoreApplication::translate("orvana::LineTile", "Not proven");
    case LineBayState::Failed:
        return QCoreApplication::translate("orvana::LineTile", "Failed");
    }
    return {};
}

QLabel *labelOf(int points, QWidget *parent)
{
    auto *label = new QLabel(parent);
    auto font = label->font();
    font.setPointSize(points);
    label->setFont(font);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

QString stateText(const LineBay &bay)
{
    QString text = QString::fromUtf8(signOf(bay.state)) + wordFor(bay.state);
    if (bay.state == LineBayState::CountingDown)
        text += QStringLiteral(" ") +
                (bay.countdown > 0 ? QString::number(bay.countdown) : QStringLiteral("\u2026"));
    if (bay.number)
        text += QStringLiteral("  #") + QString::number(*bay.number);
    return text;
}

LineTile::LineTile(Bay bay, QWidget *parent)
    : QFrame(parent), m_letter(labelOf(LetterPoints, this)), m_state(labelOf(StatePoints, this)),
      m_disk(labelOf(DiskPoints, this)), m_text(labelOf(DiskPoints, this)),
      m_progress(new QProgressBar(this)), m_yes(new QPushButton(tr("Yes, write this disk"), this))
{
    setFrameShape(QFrame::StyledPanel);
    setMinimumWidth(LeastWidth);
    const auto letter = RunWords::letterOf(slotNameOf(bay));
    m_letter->setText(letter);
    m_state->setMargin(8);
    m_state->setAccessibleName(tr("State of bay %1").arg(letter));
    m_progress->setRange(0, Percent);
    m_progress->setAccessibleName(tr("Progress of bay %1").arg(letter));
    m_yes->setAutoDefault(false);
    auto font = m_yes->font();
    font.setPointSize(DiskPoints);
    m_yes->setFont(font);
    // A key that stops a countdown must not press the button that begins one.
    m_yes->setFocusPolicy(Qt::TabFocus);
    auto *layout = new QVBoxLayout(this);
    for (QWidget *part :
         {static_cast<QWidget *>(m_letter), static_cast<QWidget *>(m_state),
          static_cast<QWidget *>(m_progress), static_cast<QWidget *>(m_disk), static_cast<QWidget *>(m_text)})
        layout->addWidget(part);
    layout->addStretch();
    layout->addWidget(m_yes);
    // The second half of a double click that stopped a countdown is no answer.
    connect(m_yes, &QPushButton::clicked, this, [this] {
        if (m_sinceAsked.hasExpired(TooSoon))
            Q_EMIT agreed();
    });
}

void LineTile::show(const LineBay &bay, bool isSource)
{
    const auto band = bandOf(bay.state);
    m_state->setText(isSource ? tr("Source") : stateText(bay));
    m_state->setStyleSheet(QStringLiteral("background-color: %1; color: %2")
                               .arg(QLatin1String(band.background), QLatin1String(band.text)));
    m_disk->setText(isolated(shownText(bay.disk)));
    auto text = coreWords(bay.text);
    if (!bay.health.empty())
        text = coreWords(bay.health) + (text.isEmpty() ? QString() : QStringLiteral("\n") + text);
    m_text->setText(text);
    const bool isAtWork = bay.state == LineBayState::Copying || bay.state == LineBayState::Verifying;
    m_progress->setVisible(isAtWork);
    m_progress->setValue(static_cast<int>(std::lround(bay.fraction * Percent)));
    const bool isAsking = bay.state == LineBayState::Asking;
    if (isAsking && m_yes->isHidden())
        m_sinceAsked.start();
    m_yes->setVisible(isAsking);
}

} // namespace orvana
