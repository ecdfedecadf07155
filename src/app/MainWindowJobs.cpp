// This file is the part of the window for the options of a run and for job files.

#include "app/MainWindow.h"
#include "app/RunOptionsSheet.h"
#include "app/RunWords.h"
#include "duplicate/job/JobSource.h"
#include "filetree/view/FileListViewController.h"
#include "foundation/DisplayPath.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"

#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QMimeData>
#include <QSaveFile>

namespace orvana
{

namespace
{

const auto JobSuffix = QStringLiteral("plurimo");

// Returns the path of the one job file that is dragged, or an empty text.
QString jobOf(const QDropEvent &event)
{
    const auto urls = event.mimeData()->urls();
    const auto path = urls.size() == 1 ? urls.front().toLocalFile() : QString();
    return path.endsWith(QChar(u'.') + JobSuffix) ? path : QString();
}

} // namespace

bool MainWindow::mayUseJobs() const
{
    return m_layoutState == 1 && !isBusy() && !isPlaceholderSelected();
}

void MainWindow::chooseOptions()
{
    if (!mayUseJobs())
        return;
    auto *sheet =
        new RunOptionsSheet(m_settings, [this](const RunSettings &settings) { setSettings(settings); }, this);
    sheet->open();
}

void MainWindow::setSettings(const RunSettings &settings)
{
    m_settings = settings;
    m_action->optionsText->setText(RunWords::summaryOf(settings));
    setTargetDiskInfoColor();
}

void MainWindow::askForJob(bool isToSave)
{
    if (!mayUseJobs())
        return;
    auto *dialog = new QFileDialog(this, isToSave ? tr("Save Job") : tr("Open Job"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(isToSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(isToSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setDefaultSuffix(JobSuffix);
    dialog->setNameFilter(tr("Jobs (*.plurimo)"));
    connect(dialog, &QFileDialog::fileSelected, this, [this, isToSave](const QString &path) {
        if (isToSave)
            saveJob(path);
        else
            openJob(path);
    });
    dialog->open();
}

void MainWindow::openJob(const QString &path)
{
    const auto job = readJob(QFile::encodeName(path).toStdString());
    if (!job) {
        warn(job.error());
        return;
    }
    if (!mayUseJobs()) {
        warn("Choose the enclosure first, and open the job when no run goes on.");
        return;
    }
    if (const auto refusal = takeOver(*job))
        warn(*refusal);
}

// Returns the reason why the job cannot be done here. Nothing is changed then, except that its source may be
// chosen already.
std::optional<std::string> MainWindow::takeOver(const Job &job)
{
    const auto plan = planSources(selectedEnclosure(), devices(), user());
    const auto title = titleOfSource(job, devices(), plan);
    if (!title)
        return title.error();
    auto *popup = m_diskInfo->SourcePopup;
    const int item = popup->findData(QByteArray::fromStdString(*title));
    if (item < 0)
        return displayPath(*title) + ": the source of the job is not there";
    if (item != popup->currentIndex()) {
        popup->setCurrentIndex(item);
        m_diskInfo->selectSourceDiksPopup();
    }
    const auto root = *FileSystemItem::repoRoot();
    if (const auto missing = m_fileList->select(selectionBelow(job, root)))
        return displayPath(*missing) + ": no such file or folder in the source";
    m_action->VerrifyFileCheckBox->setChecked(job.verify);
    m_action->ClickVerifyFiles();
    m_action->EraseDiskCheckBox->setChecked(job.erase);
    m_action->ClickEraseDisks();
    const auto fields = m_diskInfo->bayNameFields();
    for (const auto bay : AllBays) {
        auto *field = fields[static_cast<std::size_t>(bay)];
        if (const auto &name = job.names[bay]; name && job.erase && !field->isReadOnly())
            field->setText(QString::fromStdString(*name));
    }
    setSettings(job.settings);
    return std::nullopt;
}

void MainWindow::saveJob(const QString &path)
{
    const auto job = jobNow();
    if (!job) {
        warn(job.error());
        return;
    }
    const auto text = textOf(*job);
    QSaveFile file(path);
    const auto size = static_cast<qint64>(text.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), size) != size || !file.commit())
        warn(displayPath(QFile::encodeName(path).toStdString()) + ": the job could not be written");
}

// Returns what the window shows as a job, or the reason why that is none.
tl::expected<Job, std::string> MainWindow::jobNow() const
{
    Job job;
    const auto choice = choiceNow();
    const auto selection = selectionNow();
    if (selection.empty())
        return tl::unexpected(std::string("Nothing is ticked, so there is no job to save."));
    if (const auto named = nameSource(job, devices(), choice.sourceItem, choice.sourceRoot); !named)
        return tl::unexpected(named.error());
    job.selection = selectionOf(selection, choice.sourceRoot);
    job.erase = choice.erase;
    job.verify = choice.verify;
    job.settings = choice.settings;
    const auto *enclosure = selectedEnclosure();
    const auto present = enclosure ? volumeNamesOf(*enclosure, user()) : PerBay<std::string>();
    for (const auto bay : AllBays) {
        if (choice.erase && !choice.isSourceBay(bay) && choice.names[bay] != present[bay])
            job.names[bay] = choice.names[bay];
    }
    return job;
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!jobOf(*event).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    if (const auto path = jobOf(*event); !path.isEmpty())
        openJob(path);
}

void MainWindow::notEjected(const std::vector<DiskResult> &disks)
{
    std::string text = "Not ejected:";
    for (const auto &disk : disks)
        text += "\n" + displayPath(disk.disk.diskVolume) + ": " + disk.reason;
    warn(text);
}

} // namespace orvana
