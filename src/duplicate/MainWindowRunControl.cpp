#include "app/MainWindow.h"

#include "duplicate/DiskReport.h"
#include "duplicate/ReportTable.h"
#include "duplicate/RunProblems.h"
#include "duplicate/RunReport.h"
#include "filetree/FileListViewController.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/ShownText.h"
#include "platform/Host.h"

namespace orvana
{

using Title = CopyActionViewController::Title;

void MainWindow::warn(const std::string &text)
{
    m_sheets.show({tr("Warning"), shownText(text)});
}

// Looks again, from the records of all disks, at what selecting the enclosure looked at.
bool MainWindow::isStartRefused()
{
    const auto devices = scannedDevices(m_ScanDevice);
    const auto enclosure = chosenEnclosure(devices, chosenNow());
    if (!enclosure && enclosure.error() == EnclosureRefusal::NoneChosen)
        return false; // the run itself says so, and does nothing
    const auto refusal = enclosure ? startRefusal(**enclosure, devices) : std::optional(enclosure.error());
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
    choice.isNotErased = m_isNotErased.value_or(PerBay<bool>());
    choice.shown = m_shown;
    choice.erase = m_action->EraseDiskCheckBox->isChecked();
    choice.verify = m_action->verifyFiles();
    return choice;
}

// The run in hand keeps to what was decided at its start. The bays may show something newer now.
RunChoice MainWindow::choiceOfRun() const
{
    auto choice = choiceNow();
    if (!m_order)
        return choice;
    choice.source = m_order->choice.source;
    choice.sourceItem = m_order->choice.sourceItem;
    choice.sourceRoot = m_order->choice.sourceRoot;
    choice.sourceDisks = m_order->choice.sourceDisks;
    if (choice.enclosure.pickerIndex > 0)
        return choice;
    // A rescan has put the picker back and emptied the rows. The run goes on with the enclosure that it began
    // with.
    const auto devices = scannedDevices(m_ScanDevice);
    choice.enclosure = whereItIsNow(devices, m_order->choice.enclosure);
    choice.shown = m_order->choice.shown;
    choice.slotAisSource = m_order->choice.slotAisSource;
    choice.isOverSize = m_order->choice.isOverSize;
    if (const auto enclosure = chosenEnclosure(devices, choice.enclosure)) {
        for (const auto &row : bayRowsOf(**enclosure, user()).rows) {
            if (const auto bay = bayNamed(row.slot))
                choice.names[*bay] = row.content.volume;
        }
    }
    return choice;
}

void MainWindow::StartDuplicate()
{
    if (!m_order && !decideOrderNow())
        return;
    ++m_run;
    m_erasedInRun = false;
    m_runEnclosure = chosenNow().uid;
    m_action->setTitle(Title::Cancel);
    m_action->StartBtn->setEnabled(false);
    disableSlots(true);
    m_relay->runStarts();
    makeReport();
    displayDialog(2, true);
    fileProgress->setKind(ProgressIndicator::Kind::Determinate);
    if (m_action->EraseDiskCheckBox->isChecked()) {
        m_action->setIsErasing(true);
        totalProgress->setKind(ProgressIndicator::Kind::Indeterminate);
        setFileProgerss(ProgressIndicator::Hidden);
        setTotalProgerss(0.0F);
        setProgressMsg("Erasing the destination disks. The window answers again when it is done.");
        // The erase holds up the main thread, so what was just set is painted before it.
        holdOffSleepWhileBusy();
        lockChoices(true);
        eraseWhenIdle(100);
        return;
    }
    m_action->setIsDuplicating(true);
    m_action->StartBtn->setEnabled(true);
    totalProgress->setKind(ProgressIndicator::Kind::Determinate);
    setFileProgerss(0.0F);
    setTotalProgerss(0.0F);
    CopyFile();
}

void MainWindow::makeReport()
{
    m_report = std::make_shared<RunReport>(m_logData->folder(), m_logData->stamp(), m_context.clock,
                                           m_logData->number());
    m_problems = std::make_shared<RunProblems>();
    m_report->setProblemListener(
        [problems = m_problems](const RunProblem &problem) { problems->add(problem); });
}

void MainWindow::CopyFile()
{
    // The selection was decided at Start. The tree may be another one since.
    const auto selection = m_order ? m_order->selection : selectionNow();
    if (selection.empty() && !hasTree(m_fileList->rows())) {
        m_action->setTitle(Title::Start);
        finishReportWithoutCopy();
        return;
    }
    if (m_diskInfo->Source() == "Source Disk (Slot-A)" &&
        m_diskInfo->SlotB() == "Destination Disk (Slot-B)" &&
        m_diskInfo->SlotC() == "Destination Disk (Slot-C)" &&
        m_diskInfo->SlotD() == "Destination Disk (Slot-D)") {
        m_sheets.show({tr("Infomation"), tr("You must select a Orvana Storage Device first."), {tr("OK")}});
        m_action->setTitle(Title::Start);
        finishReportWithoutCopy();
        return;
    }
    const auto choice = choiceOfRun();
    const auto devices = scannedDevices(m_ScanDevice);
    auto plan = planDestinations(devices, choice, user());
    if (!plan) {
        warn(refusalText(plan.error()));
        endWithoutCopy();
        return;
    }
    if (m_order && !isStillThere(m_context.host, devices, m_order->source)) {
        const auto refusal = m_erasedInRun ? OrderRefusal::SourceGoneSinceTheErase : OrderRefusal::SourceGone;
        warn(refusalText(refusal));
        endWithoutCopy();
        return;
    }
    refuseWhatIsNotMounted(m_context.host, *plan);
    // A cancelled run of our own is waited for by the next one.
    if (!m_fileCopy->isRunning())
        refuseWhatIsInUse(m_context.host, *plan);
    if (m_order)
        plan = destinationsWithin(*m_order, std::move(*plan));
    reportDestinations(*m_report, *plan, choice);
    tellRefusals(plan->refusals);
    if (plan->destinations.empty()) {
        endWithoutCopy();
        return;
    }
    m_fileCopy->SetBackupDiskValue(selection, choice.sourceRoot, plan->roots());
    m_fileCopy->setTotalFiles(m_order ? m_order->totalFiles : m_fileList->totalFiles());
    m_relay->jobHandedOver(choice.sourceRoot, plan->roots());
    m_fileCopy->setReport(m_report);
    m_fileCopy->startCopyThread();
    holdOffSleepWhileBusy();
}

void MainWindow::tellRefusals(const std::vector<DiskRefusal> &refusals)
{
    std::vector<DiskRefusal> news;
    for (const auto &refusal : refusals) {
        if (m_toldRefusals.insert(refusalText(refusal)).second)
            news.push_back(refusal);
    }
    if (!news.empty())
        m_sheets.show({tr("Warning"), QString::fromStdString(textOf(news))});
}

void MainWindow::restoreIdleControls()
{
    m_action->setIsErasing(false);
    m_action->setIsDuplicating(false);
    m_action->setTitle(Title::Start);
    m_action->StartBtn->setEnabled(true);
    lockChoices(false);
    disableSlots(false);
    m_runEnclosure.reset();
    m_order.reset();
}

// The run came to no copy; what was erased before it, or could not be, is told all the same.
void MainWindow::finishReportWithoutCopy()
{
    m_runEnclosure.reset();
    m_order.reset();
    m_report->finish(RunOutcome::Finished);
    if (!diskLines(m_report->summary()).empty())
        showLastReport();
    tellOfNoCopy();
}

// Without an erase before it, a run that comes to no copy ends with the click on Start.
void MainWindow::tellOfNoCopy()
{
    if (m_isNotErased)
        tellDesktop(tr("Nothing was duplicated"), tr("There was nothing to copy, or no disk to copy to."));
}

// Nothing can be copied to: the report says why, and no sheet says that all is well.
void MainWindow::endWithoutCopy()
{
    ++m_run;
    m_report->finish(RunOutcome::Finished);
    restoreIdleControls();
    displayDialog(1, true);
    showLastReport();
    tellOfNoCopy();
}

void MainWindow::endRunOfLostEnclosure()
{
    if (!m_runEnclosure || !m_fileCopy->isRunning() || !m_action->isDuplicating())
        return;
    for (const auto &enclosure : m_ScanDevice.tbArray()) {
        if (enclosure->uid() == m_runEnclosure)
            return;
    }
    m_fileCopy->stopCopyThread();
    ++m_run;
    restoreIdleControls();
    displayDialog(0, true);
    showReportOfDisks();
    m_sheets.show(
        {tr("Warning"), tr("The device was removed while files were being duplicated to it. The run "
                           "has ended; its copies are not complete.")});
    tellDesktop(tr("Duplication ended"), tr("The device was removed. The copies are not complete."));
}

void MainWindow::BackupFinish()
{
    later(std::chrono::milliseconds(0), [this, run = m_run.load()] {
        if (run == m_run) // else it was cancelled meanwhile
            runEnded();
    });
}

void MainWindow::runEnded()
{
    m_fileCopy->stopCopyThread();
    m_action->setIsDuplicating(false);
    m_action->setTitle(Title::Start);
    disableSlots(false);
    hiddenPrpgressBar(true);
    m_runEnclosure.reset();
    m_order.reset();
    m_ScanDevice.reGetDiskVolume();
    setTargetDiskInfo();
    displayDialog(1, true);
    m_relay->runFinished();
    m_sheets.show({tr("File Copy Completed"), tr("All files have been copied successfully."), {tr("Done")}});
    const bool isAllDone =
        !m_report || (m_report->allDone() && m_report->isWritten() && !m_logData->hasLostRecords());
    if (!isAllDone)
        showLastReport();
    tellDesktop(tr("Duplication finished"),
                m_report ? shownText(headlineOf(m_report->summary())) : tr("All files have been copied."));
}

void MainWindow::StopDuplicate()
{
    m_relay->userCancelled();
    ++m_run;
    if (m_action->isDuplicating())
        m_fileCopy->stopCopyThread();
    hiddenPrpgressBar(true);
    displayDialog(1, true);
    restoreIdleControls();
    showReportOfDisks();
}

// A disk whose erase failed is reported, also when the run was ended before its copy was done.
void MainWindow::showReportOfDisks()
{
    if (m_report && m_erasedInRun && !diskLines(m_report->summary()).empty())
        showLastReport();
}

} // namespace orvana
