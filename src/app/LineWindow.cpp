#include "app/LineWindow.h"

#include "app/LineTile.h"
#include "app/RunWords.h"
#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"
#include "platform/Host.h"
#include "platform/Workspace.h"
#include "ui/CoreWords.h"
#include "ui/QuietComboBox.h"
#include "ui/ShownText.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace orvana
{

namespace
{

constexpr std::chrono::seconds PatienceAtTheEnd{10};
constexpr int MostDisks = 100'000;
constexpr int UsualNumber = 10;
constexpr int CountPoints = 48;

const auto ConsentWords = QString::fromLatin1(EraseConsentWords);

} // namespace

LineWindow::LineWindow(const AppContext &context, std::string stateFolder, LineSetup setup)
    : m_context(context), m_stateFolder(std::move(stateFolder)), m_setup(std::move(setup)),
      m_pages(new QStackedLayout(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Production Line"));
    setFocusPolicy(Qt::StrongFocus);
    resize(1180, 640);
    m_pages->addWidget(makeForm());
    m_pages->addWidget(makeBoard());
    fillLines();
    installEventFilter(this);
    for (auto *widget : findChildren<QWidget *>())
        widget->installEventFilter(this);
}

LineWindow::~LineWindow()
{
    *m_context.line = {};
}

QWidget *LineWindow::makeForm()
{
    auto *page = new QWidget(this);
    auto *form = new QFormLayout(page);
    auto *what =
        new QLabel(tr("Each disk that comes into an armed bay gets this, and is verified: %1, files: %2, %3")
                       .arg(isolated(shownText(m_setup.job.sourceName)), QString::number(m_setup.files),
                            isolated(QString::fromStdString(sizeText(m_setup.bytes)))),
                   page);
    what->setTextFormat(Qt::PlainText);
    what->setWordWrap(true);
    form->addRow(what);
    m_lines = new QuietComboBox(page);
    form->addRow(tr("&Line:"), m_lines);
    m_title = new QLineEdit(shownText(m_setup.job.sourceName), page);
    form->addRow(tr("&Title:"), m_title);
    m_wanted = new QSpinBox(page);
    m_wanted->setRange(1, MostDisks);
    m_wanted->setValue(static_cast<int>(m_setup.job.wanted.value_or(UsualNumber)));
    form->addRow(tr("&Number of disks:"), m_wanted);
    m_names = new QLineEdit(page);
    m_names->setPlaceholderText(QStringLiteral("REEL 7 {n:03}"));
    m_names->setToolTip(tr("May hold {n:03} for the number, {serial}, {bay} and {date}"));
    m_names->setEnabled(m_setup.job.erase);
    form->addRow(tr("N&ames of the disks:"), m_names);
    auto *bays = new QHBoxLayout;
    for (const auto bay : {Bay::B, Bay::C, Bay::D}) {
        auto *box = new QCheckBox(tr("Bay &%1").arg(RunWords::letterOf(slotNameOf(bay))), page);
        box->setChecked(true);
        m_bays[static_cast<std::size_t>(bay)] = box;
        bays->addWidget(box);
    }
    bays->addStretch();
    form->addRow(tr("Armed bays:"), bays);
    m_consent = new QLineEdit(page);
    m_consent->setPlaceholderText(ConsentWords);
    form->addRow(tr("To be as&ked about no disk's content, type \"%1\":").arg(ConsentWords), m_consent);
    m_trouble = new QLabel(page);
    m_trouble->setWordWrap(true);
    m_trouble->setTextFormat(Qt::PlainText);
    form->addRow(m_trouble);
    m_armButton = new QPushButton(tr("A&rm"), page);
    form->addRow(m_armButton);
    connect(m_armButton, &QPushButton::clicked, this, &LineWindow::arm);
    connect(m_lines, &QComboBox::currentIndexChanged, this, &LineWindow::lineChosen);
    return page;
}

QWidget *LineWindow::makeBoard()
{
    auto *page = new QWidget(this);
    auto *layout = new QVBoxLayout(page);
    m_counts = new QLabel(page);
    auto font = m_counts->font();
    font.setPointSize(CountPoints);
    m_counts->setFont(font);
    m_counts->setTextFormat(Qt::PlainText);
    m_counts->setWordWrap(true);
    m_counts->setAccessibleName(tr("Disks made"));
    layout->addWidget(m_counts);
    auto *tiles = new QHBoxLayout;
    for (const auto bay : AllBays) {
        auto *tile = new LineTile(bay, page);
        m_tiles[static_cast<std::size_t>(bay)] = tile;
        tiles->addWidget(tile, 1);
        connect(tile, &LineTile::agreed, this, [this, bay] {
            m_line->agree(bay);
            setFocus(); // and not on another bay's button
        });
    }
    layout->addLayout(tiles, 1);
    m_message = new QLabel(page);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    layout->addWidget(m_message);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    m_pauseButton = new QPushButton(page);
    m_disarmButton = new QPushButton(tr("No &more disks"), page);
    for (auto *button : {m_pauseButton, m_disarmButton}) {
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::TabFocus);
        buttons->addWidget(button);
    }
    layout->addLayout(buttons);
    connect(m_pauseButton, &QPushButton::clicked, this, [this] {
        if (m_line->store().state() == LineState::Paused)
            m_line->resume();
        else
            m_line->pause();
    });
    connect(m_disarmButton, &QPushButton::clicked, this,
            [this] { m_line->disarm("no more disks were wanted for now"); });
    return page;
}

void LineWindow::fillLines()
{
    m_lines->addItem(tr("New line"), QString());
    auto &files = m_context.host.volumeFiles();
    for (const auto &id : LineStore::idsIn(files, m_stateFolder)) {
        const auto store = LineStore::open(files, m_stateFolder, id, LineStore::Use::Look);
        if (store && store->state() != LineState::Ended && !store->isRunning(files))
            m_lines->addItem(shownText(store->head().name) + QStringLiteral(": ") +
                                 QString::fromStdString(textOf(store->counts())),
                             QString::fromStdString(id));
    }
}

// A line that goes on has its own job, number and names.
void LineWindow::lineChosen()
{
    const bool isNew = m_lines->currentData().toString().isEmpty();
    m_title->setEnabled(isNew);
    m_wanted->setEnabled(isNew);
    m_names->setEnabled(isNew && m_setup.job.erase);
}

std::vector<Bay> LineWindow::tickedBays() const
{
    std::vector<Bay> bays;
    for (const auto bay : AllBays) {
        const auto *box = m_bays[static_cast<std::size_t>(bay)];
        if (box && box->isChecked())
            bays.push_back(bay);
    }
    return bays;
}

tl::expected<LineStore, std::string> LineWindow::openStore()
{
    auto &files = m_context.host.volumeFiles();
    const auto id = m_lines->currentData().toString().toStdString();
    if (!id.empty())
        return LineStore::open(files, m_stateFolder, id, LineStore::Use::Run);
    LineHead head;
    head.name = m_title->text().toStdString();
    head.job = textOf(m_setup.job);
    head.wanted = m_wanted->value();
    head.pattern = m_names->text().toStdString();
    if (const auto work = readLine(head); !work)
        return tl::unexpected(work.error().reason);
    return LineStore::create(files, m_stateFolder, head);
}

void LineWindow::tell(const QString &text)
{
    m_trouble->setText(text);
}

void LineWindow::arm()
{
    if (m_line && m_line->isAtWork())
        return tell(tr("Disks are still in work."));
    if (m_setup.isRunOn && m_setup.isRunOn())
        return tell(tr("Disks are still in work."));
    const auto typed = m_consent->text().trimmed();
    if (!typed.isEmpty() && typed != ConsentWords)
        return tell(tr("The words are \"%1\".").arg(ConsentWords));
    if (tickedBays().empty())
        return tell(tr("No bay is ticked."));
    m_line.reset(); // lets go of the line, which may be the one that is chosen
    auto store = openStore();
    if (!store)
        return tell(coreWords(store.error()));
    auto work = readLine(store->head());
    if (!work)
        return tell(coreWords(work.error().reason));
    ORVScanDevice scanner(m_context.host.registry(), m_context.host.launcher());
    scanner.setDetectOption("Orvana");
    scanner.scanEverything();
    const auto devices = scannedDevices(scanner);
    if (const auto found =
            findSource(*work, m_context.host, devices, whereItIsNow(devices, m_setup.enclosure));
        !found)
        return tell(coreWords(found.error().reason));
    work->files = m_setup.files;
    work->bytes = m_setup.bytes;
    m_line = std::make_unique<ProductionLine>(ProductionLine::Surroundings{.host = m_context.host,
                                                                           .queue = m_context.queue,
                                                                           .clock = m_context.clock,
                                                                           .logFolder = m_context.logFolder,
                                                                           .stateFolder = m_stateFolder,
                                                                           .patience = PatienceAtTheEnd},
                                              std::move(*store), std::move(*work), *this);
    m_line->resume();
    const auto consent = typed.isEmpty() ? ProductionLine::Consent::AskForContent
                                         : ProductionLine::Consent::EraseWhateverComes;
    if (const auto armed = m_line->arm(tickedBays(), consent); !armed) {
        tell(coreWords(armed.error().reason));
        return;
    }
    tell({});
    m_consent->clear(); // consent is given for one time of being armed
    m_pages->setCurrentIndex(1);
    setFocus();
    m_message->setText(tr("Any key, and any click beside a button, stops a countdown."));
    lineChanged();
}

void LineWindow::cancel()
{
    if (!m_line)
        return;
    m_line->disarm("the program ends");
    m_line->cancelRuns();
}

void LineWindow::updateActivity()
{
    const bool isAtWork = m_line && m_line->isAtWork();
    if (!isAtWork)
        m_wakefulness.reset();
    else if (!m_wakefulness)
        m_wakefulness = m_context.host.workspace().holdOffSleep("Disks are being duplicated");
    m_context.line->isArmed = m_line && m_line->isArmed();
    m_context.line->isAtWork = isAtWork;
}

void LineWindow::lineChanged()
{
    updateActivity();
    if (!m_line)
        return;
    const auto counts = m_line->store().counts();
    auto text = tr("%1 of %2").arg(counts.passed).arg(counts.wanted);
    if (counts.failed + counts.notProven > 0)
        text += QStringLiteral("   \u2717 %1").arg(counts.failed + counts.notProven);
    m_counts->setText(text);
    for (const auto bay : AllBays)
        m_tiles[static_cast<std::size_t>(bay)]->show(m_line->bay(bay),
                                                     m_line->work().choice.isSourceBay(bay));
    m_pauseButton->setText(m_line->store().state() == LineState::Paused ? tr("&Go on") : tr("&Pause"));
    m_pauseButton->setEnabled(m_line->isArmed());
    m_disarmButton->setEnabled(m_line->isArmed());
    if (m_isClosing && !m_line->isArmed() && !m_line->isAtWork())
        close();
}

void LineWindow::lineDiskEnded(const LineEntry &entry)
{
    QApplication::beep();
    if (isActiveWindow())
        return;
    const auto text = "Disk " + std::to_string(entry.disk.number) + " " + wordOf(entry.result->verdict) +
                      ". " + textOf(m_line->store().counts());
    m_context.host.workspace().notify(
        {.title = windowTitle().toStdString(), .text = text, .button = {}, .pressed = {}});
}

void LineWindow::lineDisarmed(const std::string &reason)
{
    m_message->setText(tr("No more disks are taken: %1").arg(coreWords(reason)));
}

// Every widget of the window passes here first, so a key or a click stops a countdown before it does anything
// else.
bool LineWindow::eventFilter(QObject *watched, QEvent *event)
{
    const auto type = event->type();
    const bool isTouch = type == QEvent::KeyPress || type == QEvent::ShortcutOverride ||
                         type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (isTouch && m_line && m_line->stopCountdowns())
        return true;
    return QWidget::eventFilter(watched, event);
}

// Disks in work go on to their end, and the window closes then.
void LineWindow::closeEvent(QCloseEvent *event)
{
    if (m_line)
        m_line->disarm("the window was closed");
    if (!m_line || !m_line->isAtWork())
        return QWidget::closeEvent(event);
    m_isClosing = true;
    m_message->setText(tr("The window closes when the disks in work are done."));
    event->ignore();
}

} // namespace orvana
