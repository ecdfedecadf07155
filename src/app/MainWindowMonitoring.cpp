#include "app/MainWindow.h"

#include "duplicate/DiskReport.h"
#include "duplicate/RunReport.h"
#include "filetree/FileListViewController.h"
#include "foundation/MainQueue.h"
#include "foundation/NotificationNames.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/SystemColor.h"

#include <algorithm>

namespace orvana
{

namespace
{

constexpr std::chrono::milliseconds BeforeRescan{500};

} // namespace

void MainWindow::monitorVolumesDevice()
{
    for (const char *name : {notification::DidMount, notification::DidUnmount, notification::DidRenameVolume})
        m_subscriptions.push_back(m_context.volumeCenter.subscribe(
            name, [this](const Notification &note) { devicevolumesChanged(note); }));
}

void MainWindow::monitorEvent()
{
    makeDispatchTable();
    using namespace notification;
    for (const char *name :
         {notification::BackupFinish, FileCopyMessage, DiskMessage, EraseDiskFinish, FileProgress,
          TotalProgress, SelectTBDevice, SelectSourceDisk, notification::EjectSourceDisk,
          notification::EjectTargetDisks, UpdateDiskInfoColor, ClickStartBtn, ClickVerifyBtn, ClickEraseBtn,
          TBDeviceAttached, TBDeviceDeattached})
        m_subscriptions.push_back(
            m_context.center.subscribe(name, [this](const Notification &note) { UserEventChange(note); }));
}

void MainWindow::makeDispatchTable()
{
    using namespace notification;
    const auto add = [this](std::vector<std::string> names,
                            std::function<void(const Notification &)> action) {
        m_dispatchTable.push_back({std::move(names), std::move(action)});
    };
    const auto relay = [this](const Notification &note) { m_relay->relay(note); };
    add({TBDeviceAttached, TBDeviceDeattached}, [this](const auto &) { rescanSoon(); });
    add({SelectTBDevice}, [this](const auto &) { tbDevSelectionChange(); });
    add({SelectSourceDisk}, [this](const auto &) { SourceDiskSelectionChange(); });
    add({notification::EjectTargetDisks}, [this](const auto &) { EjectTargetDisks(); });
    add({notification::EjectSourceDisk}, [this](const auto &) { EjectSourceDisk(); });
    add({UpdateDiskInfoColor}, [this](const auto &) { setTargetDiskInfoColor(); });
    add({ClickStartBtn}, [this](const auto &) { Duplicate(); });
    add({ClickVerifyBtn}, [this](const auto &) { m_fileCopy->setBVerifyFiles(m_action->verifyFiles()); });
    add({ClickEraseBtn}, [this](const auto &) { eraseOptionChanged(); });
    add({FileCopyMessage, FileProgress, TotalProgress, DiskMessage, notification::BackupFinish}, relay);
    add({EraseDiskFinish}, [this](const auto &) { eraseFinished(); });
}

void MainWindow::rescanSoon()
{
    later(BeforeRescan, [this] { rescanDevice(); });
}

void MainWindow::devicevolumesChanged(const Notification &notification)
{
    // Volumes come and go during an erase or a run by design.
    if (m_action->isErasing() || m_action->isDuplicating())
        return;
    using namespace notification;
    if (notification.name == DidMount || notification.name == DidUnmount ||
        notification.name == DidRenameVolume)
        later(BeforeRescan, [this] {
            // A run that began meanwhile is not disturbed.
            if (!m_action->isErasing() && !m_action->isDuplicating())
                rescanDevice();
        });
}

void MainWindow::UserEventChange(const Notification &notification)
{
    // Every entry is tested by itself; none stops the later ones.
    for (const auto &entry : m_dispatchTable) {
        if (std::find(entry.names.begin(), entry.names.end(), notification.name) != entry.names.end())
            entry.action(notification);
    }
}

void MainWindow::eraseOptionChanged()
{
    const bool isOn = m_action->EraseDiskCheckBox->isChecked();
    m_diskInfo->setTargetDiskVolumeEditable(isOn);
    if (!isOn)
        setTargetDiskInfo(); // restores the names that were typed over
    setTargetDiskInfoColor();
}

void MainWindow::eraseFinished()
{
    if (!m_action->isErasing())
        return;
    if (m_report && m_erasePlan) {
        reportErase(*m_report, *m_erasePlan, m_diskTool->results());
        m_erasedInRun = true;
        m_isNotErased = baysNotErased(*m_erasePlan, m_diskTool->results());
    }
    m_erasePlan.reset();
    m_action->setIsErasing(false);
    lockChoices(false);
    setProgressMsg(std::string());
    m_ScanDevice.resetArray("TBBay4");
    m_ScanDevice.scanTBDevice();
    // What was plugged in during the erase was never shown before Start, and is written to by no run of it.
    const auto shown = m_shown;
    setTargetDiskInfo();
    m_shown = shown;
    fileProgress->setKind(ProgressIndicator::Kind::Determinate);
    totalProgress->setKind(ProgressIndicator::Kind::Determinate);
    setFileProgerss(0.0F);
    setTotalProgerss(0.0F);
    m_action->StartBtn->setEnabled(true);
    m_action->setIsDuplicating(true);
    CopyFile();
}

void MainWindow::setTargetDiskInfoColor()
{
    later(std::chrono::milliseconds(0), [this] { colourBays(); });
}

void MainWindow::colourBays()
{
    const auto *enclosure = selectedEnclosure();
    if (!enclosure)
        return;
    const auto erase = m_action->EraseDiskCheckBox->isChecked() ? EraseFirst::Yes : EraseFirst::No;
    for (const auto &bay : fitOfBays(*enclosure, m_fileList->totalSize(), erase))
        m_diskInfo->setTextColor(bay.slot, bay.fits ? SystemColor::black() : SystemColor::red());
}

} // namespace orvana
