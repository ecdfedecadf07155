#include "app/MainWindow.h"

#include "filetree/view/FileListViewController.h"
#include "filetree/view/FileTreeView.h"
#include "foundation/NotificationNames.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/TBDeviceViewController.h"
#include "ui/SystemColor.h"

#include <QFileInfo>

namespace orvana
{

UserHome MainWindow::user() const
{
    return userHomeOf(m_context.host);
}

bool MainWindow::isPlaceholderSelected() const
{
    return m_tbDevice->tbDevicePopup->currentIndex() <= 0;
}

// The picker posts nothing for its placeholder. So the chosen enclosure counts only while it is still
// selected.
ChosenEnclosure MainWindow::chosenNow() const
{
    const bool isSelected = m_tbDevice->tbDevicePopup->currentIndex() == m_chosen.pickerIndex;
    return isSelected ? m_chosen : ChosenEnclosure();
}

// Returns the enclosure at the picker's position if it still is the chosen enclosure, otherwise null.
ORVThunderboltInfo *MainWindow::selectedEnclosure() const
{
    const auto enclosure = chosenEnclosure(devices(), chosenNow());
    return enclosure ? enclosure->get() : nullptr;
}

void MainWindow::rememberEnclosure()
{
    m_chosen = {};
    m_chosen.pickerIndex = std::max(m_tbDevice->tbDevicePopup->currentIndex(), 0);
    const auto place = static_cast<std::size_t>(m_chosen.pickerIndex);
    if (place >= 1 && place <= m_ScanDevice.tbArray().size())
        m_chosen.uid = m_ScanDevice.tbArray()[place - 1]->uid();
}

void MainWindow::scanAll()
{
    m_ScanDevice.scanEverything();
    m_tbDevice->setRemarks(m_ScanDevice.remarks());
}

void MainWindow::rescanDevice()
{
    const auto chosen = chosenNow();
    const bool wasRefused = m_diskInfo->hasBootDisk() || m_diskInfo->has_RAIDDisk();
    scanAll();
    m_tbDevice->updateTBDevPopUp(m_ScanDevice.tbArray());
    if (const int item = itemOfDefined(chosen); item > 0) {
        m_tbDevice->tbDevicePopup->setCurrentIndex(item);
        rememberEnclosure();
        showEnclosureAgain(wasRefused);
        m_run->endIfEnclosureIsLost();
        return;
    }
    rememberEnclosure();
    showSource(nullptr);
    setSourceDiskInfo();
    setTargetDiskInfo();
    m_diskInfo->setSlotAisSource();
    m_diskInfo->changeLocation();
    displayDialog(0, true);
    m_run->endIfEnclosureIsLost();
}

// Disks of a dock come and go one by one. So an enclosure with a definition stays chosen while it is there.
// Returns its item in the picker, or 0 for any other enclosure.
int MainWindow::itemOfDefined(const ChosenEnclosure &chosen) const
{
    const auto &enclosures = m_ScanDevice.tbArray();
    for (std::size_t i = 0; i < enclosures.size(); ++i) {
        if (chosen.uid && enclosures[i]->definition() && enclosures[i]->uid() == chosen.uid)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

void MainWindow::showEnclosureAgain(bool wasRefused)
{
    m_diskInfo->setHasBootDisk(false);
    keepSource(m_diskInfo->SourcePopup->selectedTitle());
    setTargetDiskInfo();
    m_diskInfo->setSlotAisSource();
    m_diskInfo->changeLocation();
    setTargetDiskInfoColor();
    displayDialog(m_run->isOn() ? 2 : 1, true);
    disableSlots(m_run->isOn() || m_diskInfo->hasBootDisk());
    const bool isRefused = m_diskInfo->hasBootDisk() || m_diskInfo->has_RAIDDisk();
    if (isRefused && !wasRefused)
        refuseEnclosure();
    later(std::chrono::milliseconds(0), [this] { offerToGoOn(); });
    if (wasRefused && !isRefused && !m_run->isOn())
        m_action->StartBtn->setEnabled(true);
}

// The source of that title keeps its tree and its check marks, unless it is another volume by now.
void MainWindow::keepSource(const std::string &title)
{
    const auto match = sourceTitled(title, selectedEnclosure(), devices(), user());
    if (!match.root || *match.root != m_source.root || !isStillThere(m_context.host, devices(), m_source)) {
        setSourceDiskInfo();
        m_fileList->startCountThread();
        return;
    }
    const auto plan = planSources(selectedEnclosure(), devices(), user());
    fillSourcePopup(plan);
    auto *popup = m_diskInfo->SourcePopup;
    popup->setCurrentIndex(popup->findData(QByteArray::fromStdString(title)));
    setRow("Source", match.row);
    m_diskInfo->setTextColor("Source", SystemColor::blue());
    m_maySourceBeEjected = match.mayBeEjected;
    m_diskInfo->EjectSourceDiskBtn->setEnabled(m_maySourceBeEjected);
}

void MainWindow::tbDevSelectionChange()
{
    rememberEnclosure();
    if (isPlaceholderSelected()) {
        m_diskInfo->initDiskVolume();
        m_diskInfo->initDiskInfo(std::string());
        m_diskInfo->setHasBootDisk(false);
        showSource(nullptr);
        displayDialog(0, true);
        return;
    }
    m_diskInfo->setHasBootDisk(false);
    setSourceDiskInfo();
    setTargetDiskInfo();
    m_diskInfo->setSlotAisSource();
    m_diskInfo->changeLocation();
    auto *view = m_fileList->sourceFileListView;
    view->setCurrentIndex(view->model()->index(0, 0));
    m_fileList->startCountThread();
    setTargetDiskInfoColor();
    constexpr int NeverReached = 585; // no state is that high, so the layout is always applied again
    if (m_contentHeight != NeverReached)
        displayDialog(m_run->isOn() ? 2 : 1, true);
    disableSlots(m_run->isOn() || m_diskInfo->hasBootDisk());
    refuseEnclosure();
    later(std::chrono::milliseconds(0), [this] { offerToGoOn(); });
}

// The panel enables all its controls. The eject button of the source must stay disabled for the home folder.
void MainWindow::disableSlots(bool disabled)
{
    m_diskInfo->DisabledItem(disabled);
    if (!disabled)
        m_diskInfo->EjectSourceDiskBtn->setEnabled(m_maySourceBeEjected);
}

void MainWindow::refuseEnclosure()
{
    if (!m_diskInfo->hasBootDisk() && !m_diskInfo->has_RAIDDisk())
        return;
    if (!m_run->isOn()) // during a run the button is Cancel
        m_action->StartBtn->setEnabled(false);
    m_sheets.show(
        {tr("Warning"), m_diskInfo->hasBootDisk()
                            ? tr("This device cannot be selected when it's used as a startup disk.")
                            : tr("This device cannot be selected, because it includes a RAID set.")});
}

void MainWindow::setRow(const std::string &name, const DiskRow &row)
{
    m_diskInfo->setDiskInfo(name, row.volume, row.model, row.serial, row.available, row.capacity,
                            row.labelHidden, row.isRaid);
}

void MainWindow::setSourceDiskInfo()
{
    setRow("Source", DiskRow());
    if (isPlaceholderSelected()) {
        showSource(nullptr);
        return;
    }
    const auto plan = planSources(selectedEnclosure(), devices(), user());
    fillSourcePopup(plan);
    if (plan.isFound) {
        setRow("Source", plan.row);
        m_diskInfo->setTextColor("Source", SystemColor::blue());
    }
    m_maySourceBeEjected = plan.mayBeEjected;
    m_diskInfo->EjectSourceDiskBtn->setEnabled(m_maySourceBeEjected);
    showSource(plan.root);
}

// The disks beneath the tree's root are remembered with it, because a volume may get another name or place
// later.
void MainWindow::showSource(const PathObject &root)
{
    m_fileList->showRoot(root);
    m_source = rememberSource(m_context.host, devices(), root ? *root : std::string());
}

void MainWindow::fillSourcePopup(const SourcePlan &plan)
{
    auto *popup = m_diskInfo->SourcePopup;
    popup->clear();
    for (std::size_t i = 0; i < plan.candidates.size(); ++i) {
        if (i > 0 && i == plan.bayCandidates)
            popup->insertSeparator(popup->count());
        popup->addTitle(plan.candidates[i].title, iconOf(plan.candidates[i]));
    }
    if (plan.bayCandidates > 0 && plan.bayCandidates == plan.candidates.size())
        popup->insertSeparator(popup->count());
    popup->setCurrentIndex(popup->count() > 0 ? 0 : -1);
}

QIcon MainWindow::iconOf(const SourceCandidate &candidate)
{
    if (candidate.icon == SourceIcon::Home)
        return m_SysDiskIcon;
    if (candidate.icon == SourceIcon::InternalDisk)
        return m_IntDiskIcon;
    const auto file = QString::fromStdString(candidate.ownIconFile);
    if (!file.isEmpty() && QFileInfo::exists(file)) {
        m_VolumeIcon = QIcon(QPixmap(file));
        if (!m_VolumeIcon.isNull())
            return m_VolumeIcon;
    }
    return m_ExtDiskIcon;
}

void MainWindow::SourceDiskSelectionChange()
{
    const auto match =
        sourceTitled(m_diskInfo->SourcePopup->selectedTitle(), selectedEnclosure(), devices(), user());
    m_maySourceBeEjected = match.mayBeEjected;
    m_diskInfo->EjectSourceDiskBtn->setEnabled(m_maySourceBeEjected);
    setRow("Source", match.row);
    showSource(match.root);
    m_fileList->startCountThread();
}

bool MainWindow::isTBDevDiskArrayVolumes(const std::string &name) const
{
    return orvana::isTBDevDiskArrayVolumes(name, selectedEnclosure());
}

void MainWindow::setTargetDiskInfo()
{
    for (const auto bay : AllBays)
        setRow(slotNameOf(bay), DiskRow());
    m_shown = {};
    const auto *enclosure = isPlaceholderSelected() ? nullptr : selectedEnclosure();
    if (!enclosure) {
        showVerdictsOfPresentDisks();
        return;
    }
    m_shown = shownDisks(*enclosure);
    showVerdictsOfPresentDisks();
    const auto bays = bayRowsOf(*enclosure, user());
    if (bays.hasBootDisk)
        m_diskInfo->setHasBootDisk(*bays.hasBootDisk);
    for (const auto &row : bays.rows)
        setRow(row.slot, row.content);
    if (bays.holdsUnformatted) {
        m_action->EraseDiskCheckBox->setChecked(true);
        m_context.center.post(notification::ClickEraseBtn);
    }
}

} // namespace orvana
