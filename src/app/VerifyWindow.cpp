#include "app/VerifyWindow.h"

#include "app/RunWords.h"
#include "duplicate/evidence/VerdictText.h"
#include "foundation/SizeText.h"
#include "ui/CoreWords.h"
#include "ui/ShownText.h"

#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace orvana
{

namespace
{

constexpr int BetweenLooks = 200; // milliseconds
constexpr int DiskColumn = 0;
constexpr int ReadColumn = 1;
constexpr int VerdictColumn = 2;

// More findings of one disk than these are of no use on a screen. The counts tell of all of them.
constexpr std::size_t MostFindings = 1000;

} // namespace

VerifyWindow::VerifyWindow(platform::VolumeFiles &files, std::string logFolder,
                           const std::vector<BayVolume> &disks)
    : m_files(files), m_logFolder(std::move(logFolder)), m_table(new QTableWidget(0, 3, this)),
      m_findings(new QPlainTextEdit(this)),
      m_record(new QCheckBox(tr("&Record the result on the disks"), this)), m_hint(new QLabel(this)),
      m_startButton(new QPushButton(this)), m_addButton(new QPushButton(tr("&Add folder..."), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Verify Disks"));
    resize(760, 480);
    makeTable();
    m_findings->setReadOnly(true);
    m_findings->setAccessibleName(tr("What was found"));
    m_findings->setLayoutDirection(Qt::LeftToRight); // it is in English in every language
    m_findings->hide();
    m_record->setToolTip(tr("Appends the result to the history on each disk, as its next generation."));
    m_hint->setText(tr("Each ticked disk is read in full and compared with the list of files on it. The "
                       "source is not needed."));
    m_hint->setWordWrap(true);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_addButton);
    buttons->addWidget(m_record);
    buttons->addStretch();
    auto *closeButton = new QPushButton(tr("&Close"), this);
    buttons->addWidget(m_startButton);
    buttons->addWidget(closeButton);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_hint);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_findings, 1);
    layout->addLayout(buttons);
    connect(m_addButton, &QPushButton::clicked, this, &VerifyWindow::askForFolder);
    connect(m_startButton, &QPushButton::clicked, this, [this] { isUnderWay() ? cancel() : start(); });
    connect(closeButton, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &QWidget::close);
    connect(m_table, &QTableWidget::itemChanged, this, &VerifyWindow::updateButtons);
    connect(&m_timer, &QTimer::timeout, this, &VerifyWindow::look);
    m_timer.setInterval(BetweenLooks);
    for (const auto &disk : disks)
        addRow({disk.root, slotNameOf(disk.bay)});
    updateButtons();
}

VerifyWindow::~VerifyWindow() = default;

void VerifyWindow::makeTable()
{
    m_table->setHorizontalHeaderLabels({tr("Disk"), tr("Read"), tr("Verdict")});
    m_table->setAccessibleName(tr("Disks"));
    m_table->verticalHeader()->hide();
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    auto *header = m_table->horizontalHeader();
    header->setSectionResizeMode(DiskColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(ReadColumn, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(VerdictColumn, QHeaderView::ResizeToContents);
}

// The name of a disk in a bay; the path of a folder.
QString VerifyWindow::nameOf(const Row &row)
{
    return isolated(shownText(row.bay.empty() ? row.root : row.root.substr(row.root.rfind('/') + 1)));
}

void VerifyWindow::addRow(const Row &row)
{
    const int at = m_table->rowCount();
    m_table->insertRow(at);
    auto *disk = new QTableWidgetItem(
        row.bay.empty() ? nameOf(row) : RunWords::letterOf(row.bay) + QStringLiteral(":  ") + nameOf(row));
    disk->setToolTip(isolated(shownText(row.root)));
    disk->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    // What is in bay A is the source as a rule.
    disk->setCheckState(row.bay == slotNameOf(Bay::A) ? Qt::Unchecked : Qt::Checked);
    m_rows.push_back(row);
    m_table->setItem(at, DiskColumn, disk);
    m_table->setItem(at, ReadColumn, new QTableWidgetItem);
    m_table->setItem(at, VerdictColumn, new QTableWidgetItem);
}

void VerifyWindow::addFolder(const std::string &path)
{
    addRow({path, {}});
    updateButtons();
}

void VerifyWindow::askForFolder()
{
    auto *dialog = new QFileDialog(this, tr("Add a Folder to Verify"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString &path) { addFolder(QFile::encodeName(path).toStdString()); });
    dialog->open();
}

void VerifyWindow::updateButtons()
{
    bool isOneTicked = false;
    for (int row = 0; row < m_table->rowCount(); ++row)
        isOneTicked = isOneTicked || m_table->item(row, DiskColumn)->checkState() == Qt::Checked;
    m_startButton->setText(isUnderWay() ? tr("&Stop") : tr("&Verify"));
    m_startButton->setEnabled(isUnderWay() || isOneTicked);
    m_addButton->setEnabled(!isUnderWay());
    m_record->setEnabled(!isUnderWay());
}

void VerifyWindow::start()
{
    if (isUnderWay())
        return;
    std::vector<std::string> roots;
    QStringList names;
    m_rowsAtWork.clear();
    for (int row = 0; row < m_table->rowCount(); ++row) {
        m_table->item(row, VerdictColumn)->setText(QString());
        m_table->item(row, ReadColumn)->setText(QString());
        if (m_table->item(row, DiskColumn)->checkState() != Qt::Checked)
            continue;
        roots.push_back(m_rows[static_cast<std::size_t>(row)].root);
        names.push_back(nameOf(m_rows[static_cast<std::size_t>(row)]));
        m_rowsAtWork.push_back(row);
    }
    m_findings->clear();
    m_told.assign(roots.size(), 0);
    VerifyOptions options;
    options.record = m_record->isChecked();
    options.folderForSorting = m_logFolder;
    options.station = std::make_shared<StationCopies>(m_logFolder);
    options.started =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
            .count();
    m_verification = std::make_unique<Verification>(
        m_files, roots, options,
        Verification::Listener{.finding =
                                   [this, names](std::size_t disk, const Finding &finding) {
                                       const std::lock_guard lock(m_mutex);
                                       if (m_told[disk]++ < MostFindings)
                                           m_newLines += names[static_cast<qsizetype>(disk)] +
                                                         QStringLiteral(": ") +
                                                         QString::fromStdString(textOf(finding));
                                   },
                               .ended = [](std::size_t) {}});
    m_timer.start();
    updateButtons();
}

QString VerifyWindow::findings() const
{
    return m_findings->toPlainText();
}

void VerifyWindow::cancel()
{
    if (m_verification)
        m_verification->cancel();
}

void VerifyWindow::look()
{
    bool haveAllEnded = true;
    for (std::size_t disk = 0; disk < m_rowsAtWork.size(); ++disk) {
        showProgress(m_rowsAtWork[disk], disk);
        haveAllEnded = haveAllEnded && m_verification->hasEnded(disk);
    }
    showFindings();
    if (haveAllEnded)
        end();
}

void VerifyWindow::showProgress(int row, std::size_t disk)
{
    const auto &progress = m_verification->progress(disk);
    if (progress.totalBytes == 0)
        return; // not counted yet, or nothing to read
    const auto size = [](std::uint64_t bytes) { return isolated(QString::fromStdString(sizeText(bytes))); };
    m_table->item(row, ReadColumn)
        ->setText(tr("%1 of %2").arg(size(progress.bytes), size(progress.totalBytes)));
}

void VerifyWindow::showFindings()
{
    QStringList lines;
    {
        const std::lock_guard lock(m_mutex);
        lines = std::exchange(m_newLines, {});
    }
    if (lines.isEmpty())
        return;
    m_findings->show();
    m_findings->appendPlainText(lines.join(QChar(u'\n')));
}

QString VerifyWindow::wordFor(const DiskVerdict &verdict)
{
    if (verdict.isCancelled)
        return tr("Stopped");
    if (verdict.hasNoList())
        return tr("There is no list of files");
    if (!verdict.error.empty())
        return tr("Not verified");
    return verdict.isWhole() ? QStringLiteral("\u2713 ") + tr("Whole")
                             : QStringLiteral("\u2717 ") + tr("Not whole");
}

void VerifyWindow::end()
{
    m_timer.stop();
    for (std::size_t disk = 0; disk < m_rowsAtWork.size(); ++disk)
        showVerdict(m_rowsAtWork[disk], disk);
    m_verification.reset();
    updateButtons();
}

void VerifyWindow::showVerdict(int row, std::size_t disk)
{
    const auto &verdict = m_verification->verdict(disk);
    m_table->item(row, VerdictColumn)->setText(wordFor(verdict));
    m_findings->show();
    const auto name = nameOf(m_rows[static_cast<std::size_t>(row)]);
    for (const auto &line : linesOf(verdict))
        m_findings->appendPlainText(name + QStringLiteral(": ") + QString::fromStdString(line));
}

} // namespace orvana
