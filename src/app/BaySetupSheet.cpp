#include "app/BaySetupSheet.h"

#include "app/SetupWriter.h"
#include "foundation/MainQueue.h"
#include "ui/ShownText.h"

#include <QEvent>
#include <QStyle>

#include <chrono>

namespace orvana
{

namespace
{

using enclosures::BayLearning;

constexpr std::chrono::milliseconds BetweenLooks{250};
constexpr auto Bays = {'A', 'B', 'C', 'D'};

// The reasons of the enclosures' own functions go on from a colon, so they begin with a small letter.
QString sentenceOf(const std::string &reason)
{
    auto sentence = shownText(reason);
    if (!sentence.isEmpty())
        sentence[0] = sentence[0].toUpper();
    return sentence.endsWith(QLatin1Char('.')) ? sentence : sentence + QLatin1Char('.');
}

void setBold(QLabel &label, bool isBold)
{
    auto font = label.font();
    font.setBold(isBold);
    label.setFont(font);
}

} // namespace

BaySetupSheet::BaySetupSheet(enclosures::EnclosureSetup &setup, SetupWriter &writer, MainQueue &queue,
                             QWidget *parent)
    : QDialog(parent), m_setup(setup), m_writer(writer), m_queue(queue), m_learning(setup.look()),
      m_existing(setup.definitions())
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
    problemIcon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconSize));
    connect(nameField, &QLineEdit::textChanged, this, &BaySetupSheet::showState);
    connect(skipButton, &QPushButton::clicked, this, &BaySetupSheet::skip);
    connect(doneButton, &QPushButton::clicked, this, &BaySetupSheet::write);
    connect(cancelButton, &QPushButton::clicked, this, &BaySetupSheet::reject);
    showState();
    nameField->setFocus();
    constexpr int LettersAcross = 80;
    resize(fontMetrics().averageCharWidth() * LettersAcross, 0); // its height follows from its texts
    lookLater();
}

QLabel *BaySetupSheet::textOf(char bay) const
{
    return findChild<QLabel *>(QStringLiteral("text%1").arg(QLatin1Char(bay)));
}

void BaySetupSheet::lookLater()
{
    m_queue.after(BetweenLooks, [this, isOpen = std::weak_ptr(m_isOpen)] {
        if (isOpen.expired())
            return;
        look();
        lookLater();
    });
}

// A disk that comes while the definition is being written is seen afterwards, should that fail.
void BaySetupSheet::look()
{
    if (!m_isWriting)
        take(m_learning.look(m_setup.look()));
}

void BaySetupSheet::take(const BayLearning::Answer &answer)
{
    switch (answer.kind) {
    case BayLearning::Answer::Kind::Nothing:
        return;
    case BayLearning::Answer::Kind::Learned:
        m_answers[answer.bay] = QString::fromStdString(answer.text);
        m_problem.clear();
        break;
    case BayLearning::Answer::Kind::Refused:
        m_problem = sentenceOf(answer.text);
        break;
    }
    showState();
}

void BaySetupSheet::skip()
{
    if (const auto bay = m_learning.bay())
        m_answers[*bay] = tr("no such bay");
    m_learning.skip();
    m_problem.clear();
    showState();
}

tl::expected<enclosures::Definition, std::string> BaySetupSheet::definition() const
{
    return m_learning.finish(nameField->text().trimmed().toStdString(), m_existing);
}

void BaySetupSheet::write()
{
    m_existing = m_setup.definitions();
    auto learned = definition();
    m_problem.clear();
    m_isWriting = learned.has_value();
    showState();
    if (!learned)
        return;
    m_writer.add(std::move(*learned), [this, isOpen = std::weak_ptr(m_isOpen)](const auto &outcome) {
        if (!isOpen.expired())
            written(outcome);
    });
}

void BaySetupSheet::written(const tl::expected<void, std::string> &outcome)
{
    m_isWriting = false;
    if (outcome) {
        accept();
        return;
    }
    m_problem = sentenceOf(outcome.error());
    m_existing = m_setup.definitions();
    showState();
    (doneButton->isEnabled() ? static_cast<QWidget *>(doneButton) : nameField)->setFocus();
}

void BaySetupSheet::done(int result)
{
    m_isOpen.reset();
    QDialog::done(result);
}

void BaySetupSheet::reject()
{
    if (!m_isWriting)
        QDialog::reject();
}

QString BaySetupSheet::request() const
{
    if (const auto bay = m_learning.bay())
        return tr("Put a disk into bay %1. If one is there already, take it out and put it in again.")
            .arg(QLatin1Char(*bay));
    return m_learning.learned() < 2 ? tr("All bays have been asked for. Press Cancel and begin again.")
                                    : tr("All bays have been asked for.");
}

QString BaySetupSheet::reasonAgainstDone() const
{
    if (nameField->text().trimmed().isEmpty())
        return tr("Type a name for the enclosure.");
    const auto learned = definition();
    return learned ? QString() : sentenceOf(learned.error());
}

void BaySetupSheet::showState()
{
    const auto reason = reasonAgainstDone();
    instruction->setText(request());
    showBays();
    problemIcon->setHidden(m_problem.isEmpty());
    problemText->setHidden(m_problem.isEmpty());
    problemText->setText(wrappableText(m_problem));
    if (m_isWriting)
        reasonText->setText(tr("Waiting for the permission to write it ..."));
    else if (reason.isEmpty())
        reasonText->setText(tr("Done writes an enclosure with %1 bays.").arg(m_learning.learned()));
    else
        reasonText->setText(wrappableText(reason));
    nameField->setEnabled(!m_isWriting);
    skipButton->setEnabled(!m_isWriting && m_learning.bay());
    doneButton->setEnabled(!m_isWriting && reason.isEmpty());
    cancelButton->setEnabled(!m_isWriting);
}

void BaySetupSheet::showBays()
{
    for (const char bay : Bays) {
        auto *text = textOf(bay);
        auto *caption = findChild<QLabel *>(QStringLiteral("caption%1").arg(QLatin1Char(bay)));
        const bool isAskedFor = m_learning.bay() == bay;
        const auto answer = m_answers.find(bay);
        if (answer != m_answers.end())
            text->setText(wrappableText(answer->second));
        else
            text->setText(isAskedFor ? tr("waiting for a disk") : QStringLiteral("-"));
        text->setAccessibleName(caption->text() + QStringLiteral(": ") + text->text());
        setBold(*caption, isAskedFor);
        setBold(*text, isAskedFor);
    }
}

// The texts wrap, so their height depends on the width. Qt asks for that in layouts, but not in a window.
bool BaySetupSheet::event(QEvent *event)
{
    if (event->type() != QEvent::LayoutRequest && event->type() != QEvent::Resize)
        return QDialog::event(event); // it may have deleted the sheet
    const bool isHandled = QDialog::event(event);
    setMinimumHeight(layout()->totalHeightForWidth(width()));
    return isHandled;
}

} // namespace orvana
