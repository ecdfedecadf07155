#include "app/MainWindow.h"

#include "filetree/view/FileListViewController.h"
#include "foundation/MainQueue.h"
#include "foundation/NotificationNames.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "ui/SystemColor.h"

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
    const auto ofTheRun = [this](const Notification &note) { m_run->answer(note); };
    add({TBDeviceAttached, TBDeviceDeattached}, [this](const auto &) { rescanSoon(); });
    add({SelectTBDevice}, [this](const auto &) { tbDevSelectionChange(); });
    add({SelectSourceDisk}, [this](const auto &) { SourceDiskSelectionChange(); });
    add({notification::EjectTargetDisks}, [this](const auto &) { EjectTargetDisks(); });
    add({notification::EjectSourceDisk}, [this](const auto &) { EjectSourceDisk(); });
    add({UpdateDiskInfoColor}, [this](const auto &) { setTargetDiskInfoColor(); });
    add({ClickStartBtn}, [this](const auto &) { Duplicate(); });
    add({ClickVerifyBtn},
        [this](const auto &) { m_run->fileCopy().setBVerifyFiles(m_action->verifyFiles()); });
    add({ClickEraseBtn}, [this](const auto &) { eraseOptionChanged(); });
    add({FileCopyMessage, FileProgress, TotalProgress, DiskMessage, notification::BackupFinish}, ofTheRun);
    add({EraseDiskFinish}, ofTheRun);
    add({DiskMessage}, [this](const auto &) { showErase(); });
}

void MainWindow::rescanSoon()
{
    later(BeforeRescan, [this] { rescanDevice(); });
}

void MainWindow::devicevolumesChanged(const Notification &notification)
{
    // During an erase or a run, volumes come and go by design.
    if (m_action->isErasing() || m_action->isDuplicating())
        return;
    using namespace notification;
    if (notification.name == DidMount || notification.name == DidUnmount ||
        notification.name == DidRenameVolume)
        later(BeforeRescan, [this] {
            // Do not disturb a run that has started meanwhile.
            if (!m_action->isErasing() && !m_action->isDuplicating())
                rescanDevice();
        });
}

void MainWindow::UserEventChange(const Notification &notification)
{
    // Every entry is tested. An entry that matches does not stop the later ones.
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
        setTargetDiskInfo(); // restores the names that the user typed over
    setTargetDiskInfoColor();
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
    const auto limit = limitOf(m_action->EraseDiskCheckBox->isChecked(), m_settings);
    for (const auto &bay : fitOfBays(*enclosure, m_fileList->totalSize(), limit))
        m_diskInfo->setTextColor(bay.slot, bay.fits ? SystemColor::black() : SystemColor::red());
}

} // namespace orvana
