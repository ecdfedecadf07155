#include "app/MainWindow.h"

#include "duplicate/report/ReportTable.h"
#include "filetree/view/FileListViewController.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "platform/Host.h"
#include "ui/CoreWords.h"
#include "ui/ShownText.h"

namespace orvana
{

using Title = CopyActionViewController::Title;

void MainWindow::warn(const std::string &text)
{
    m_sheets.show({tr("Warning"), coreWords(text)});
}

// Repeats the checks that selecting the enclosure made, now with the records of all disks.
bool MainWindow::isStartRefused()
{
    if (m_context.line->isArmed || m_context.line->isAtWork) {
        warn("A production line is armed. Disarm it first.");
        return true;
    }
    const auto found = devices();
    const auto enclosure = chosenEnclosure(found, chosenNow());
    if (!enclosure && enclosure.error() == EnclosureRefusal::NoneChosen)
        return false; // the run itself reports this and does nothing
    const auto refusal = enclosure ? refusalOfStart(**enclosure, found) : std::optional(enclosure.error());
    if (!refusal)
        return false;
    warn(refusalText(*refusal));
    return true;
}

RunChoice MainWindow::choiceNow() const
{
    RunChoice choice;
    choice.enclosure = chosenNow();
    choice.source = m_diskInfo->Source();
    choice.sourceItem = m_diskInfo->SourcePopup->selectedTitle();
    choice.sourceRoot = *FileSystemItem::repoRoot();
    choice.sourceDisks = m_source.disks;
    choice.slotAisSource = m_diskInfo->SlotAisSource();
    choice.names[Bay::A] = m_diskInfo->SlotA();
    choice.names[Bay::B] = m_diskInfo->SlotB();
    choice.names[Bay::C] = m_diskInfo->SlotC();
    choice.names[Bay::D] = m_diskInfo->SlotD();
    choice.isOverSize[Bay::A] = m_diskInfo->isOverSize_SlotA();
    choice.isOverSize[Bay::B] = m_diskInfo->isOverSize_SlotB();
    choice.isOverSize[Bay::C] = m_diskInfo->isOverSize_SlotC();
    choice.isOverSize[Bay::D] = m_diskInfo->isOverSize_SlotD();
    choice.shown = m_shown;
    choice.selectedBytes = m_fileList->totalSize();
    choice.erase = m_action->EraseDiskCheckBox->isChecked();
    choice.verify = m_action->verifyFiles();
    choice.settings = m_settings;
    return choice;
}

void MainWindow::StartDuplicate()
{
    if (!m_order && !decideOrderNow())
        return;
    const bool isErase = m_order->choice.erase;
    m_action->setTitle(Title::Cancel);
    m_action->StartBtn->setEnabled(!isErase);
    disableSlots(true);
    clearRuns();
    displayDialog(2, true);
    fileProgress->setKind(ProgressIndicator::Kind::Determinate);
    setTotalProgerss(0.0F);
    if (isErase) {
        m_action->setIsErasing(true);
        totalProgress->setKind(ProgressIndicator::Kind::Indeterminate);
        setFileProgerss(ProgressIndicator::Hidden);
        setProgressMsg("Erasing the destination disks. The window answers again when it is done.");
        lockChoices(true);
    } else {
        m_action->setIsDuplicating(true);
        totalProgress->setKind(ProgressIndicator::Kind::Determinate);
        setFileProgerss(0.0F);
    }
    m_run->start(*std::exchange(m_order, std::nullopt));
    holdOffSleepWhileBusy();
}

// When this returns false, the flag of the action panel stays set, so that the next click on the button is a
// Cancel.
bool MainWindow::hasSomethingToCopy()
{
    if (m_run->order().selection.empty() && !hasTree(m_fileList->rows()))
        return false;
    const bool showsPlaceholders = m_diskInfo->Source() == "Source Disk (Slot-A)" &&
                                   m_diskInfo->SlotB() == "Destination Disk (Slot-B)" &&
                                   m_diskInfo->SlotC() == "Destination Disk (Slot-C)" &&
                                   m_diskInfo->SlotD() == "Destination Disk (Slot-D)";
    if (showsPlaceholders)
        m_sheets.show({tr("Infomation"), tr("You must select a Orvana Storage Device first."), {tr("OK")}});
    return !showsPlaceholders;
}

void MainWindow::refused(const RunRefusal &refusal)
{
    warn(refusalText(refusal));
}

void MainWindow::disksLeftOut(const std::vector<DiskRefusal> &refusals)
{
    std::vector<DiskRefusal> news;
    for (const auto &refusal : refusals) {
        if (m_toldRefusals.insert(refusalText(refusal)).second)
            news.push_back(refusal);
    }
    if (!news.empty())
        m_sheets.show({tr("Warning"), coreWords(textOf(news))});
}

void MainWindow::restoreIdleControls()
{
    m_action->setIsErasing(false);
    m_action->setIsDuplicating(false);
    m_action->setTitle(Title::Start);
    m_action->StartBtn->setEnabled(true);
    lockChoices(false);
    disableSlots(false);
}

void MainWindow::BackupFinish()
{
    m_run->copyEnded();
}

void MainWindow::StopDuplicate()
{
    const bool wasOn = m_run->isOn();
    m_run->cancel();
    if (!wasOn)
        showCancelled(); // after a run with nothing to copy, the button still means Cancel
}

void MainWindow::ended(const RunSummary &summary)
{
    showVerdicts(summary);
    switch (summary.ending) {
    case RunEnding::Copied:
        copied(summary);
        break;
    case RunEnding::Cancelled:
        showCancelled();
        break;
    case RunEnding::EnclosureLost:
        enclosureLost();
        break;
    case RunEnding::NothingToCopy:
        m_action->setTitle(Title::Start);
        if (!diskLines(summary).empty())
            showLastReport();
        tellOfNoCopy(summary);
        break;
    case RunEnding::NoDestination:
    case RunEnding::Refused:
        restoreIdleControls();
        displayDialog(1, true);
        showLastReport();
        tellOfNoCopy(summary);
        break;
    }
}

void MainWindow::copied(const RunSummary &summary)
{
    setSettings({}); // they were for this run
    m_action->setIsDuplicating(false);
    m_action->setTitle(Title::Start);
    disableSlots(false);
    hiddenPrpgressBar(true);
    m_ScanDevice.reGetDiskVolume();
    setTargetDiskInfo();
    displayDialog(1, true);
    m_sheets.show({tr("File Copy Completed"), tr("All files have been copied successfully."), {tr("Done")}});
    if (!isAllDone(summary) || !summary.isRecorded)
        showLastReport();
    tellDesktop(tr("Duplication finished"), shownText(headlineOf(summary)));
}

void MainWindow::showCancelled()
{
    hiddenPrpgressBar(true);
    displayDialog(1, true);
    restoreIdleControls();
    showReportOfDisks();
}

void MainWindow::enclosureLost()
{
    restoreIdleControls();
    displayDialog(0, true);
    showReportOfDisks();
    m_sheets.show(
        {tr("Warning"), tr("The device was removed while files were being duplicated to it. The run "
                           "has ended; its copies are not complete.")});
    tellDesktop(tr("Duplication ended"), tr("The device was removed. The copies are not complete."));
}

// Without an erase, a run that copies nothing ends during the click on Start and needs no notice.
void MainWindow::tellOfNoCopy(const RunSummary &summary)
{
    if (summary.hasErased)
        tellDesktop(tr("Nothing was duplicated"), tr("There was nothing to copy, or no disk to copy to."));
}

// Reports a disk whose erase failed, also when the run ended before its copy was done.
void MainWindow::showReportOfDisks()
{
    if (!m_run->hasStarted())
        return;
    const auto summary = m_run->summary();
    if (summary.hasErased && !diskLines(summary).empty())
        showLastReport();
}

} // namespace orvana
