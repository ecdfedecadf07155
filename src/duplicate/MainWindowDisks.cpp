#include "app/MainWindow.h"

#include "duplicate/RunReport.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/SystemColor.h"

#include <utility>

namespace orvana
{

void MainWindow::EraseDisk()
{
    auto plan = planErase(scannedDevices(m_ScanDevice), choiceNow(), user(), eraseFormat());
    // What was typed or plugged since Start may not be erased under; the copy that follows says why.
    std::vector<DiskUtilInfo> disks;
    if (plan && plan->badNames.empty()) {
        for (const auto &erase : plan->disks)
            disks.push_back(erase.info);
    }
    if (plan)
        m_erasePlan = std::move(*plan);
    m_diskTool->setDiskArray(std::move(disks));
    m_diskTool->startEraseDiskThread();
}

void MainWindow::setEjectButtonsEnabled(bool enabled)
{
    m_diskInfo->EjectTargetDiskBtn->setEnabled(enabled);
    m_diskInfo->EjectSourceDiskBtn->setEnabled(enabled && m_maySourceBeEjected);
}

// A cancelled run may still be writing its last block; the disk is not taken from under it.
void MainWindow::ejectWhenIdle(void (MainWindow::*eject)())
{
    constexpr std::chrono::milliseconds BetweenLooks{100};
    if (m_fileCopy->isRunning())
        later(BetweenLooks, [this, eject] { ejectWhenIdle(eject); });
    else
        (this->*eject)();
}

void MainWindow::EjectTargetDisks()
{
    if (m_action->isErasing() || m_action->isDuplicating())
        return;
    setEjectButtonsEnabled(false);
    ejectWhenIdle(&MainWindow::ejectTargetsNow);
}

void MainWindow::ejectTargetsNow()
{
    m_diskTool->setDiskArray({});
    auto plan = planTargetEject(scannedDevices(m_ScanDevice), choiceNow(), user());
    if (!plan || plan->disks.empty()) {
        setEjectButtonsEnabled(true);
        return;
    }
    m_diskTool->setDiskArray(std::move(plan->disks));
    m_diskTool->EjectDisks();
    m_diskTool->setDiskArray({});
    setProgressMsg(std::string());
    setSourceDiskInfo();
    setTargetDiskInfo();
    for (const auto bay : AllBays)
        m_diskInfo->setTextColor(slotNameOf(bay), SystemColor::black());
    m_action->StartBtn->setEnabled(true);
    setEjectButtonsEnabled(true);
    tellFailedEjects();
}

void MainWindow::EjectSourceDisk()
{
    if (m_action->isErasing() || m_action->isDuplicating())
        return;
    setEjectButtonsEnabled(false);
    ejectWhenIdle(&MainWindow::ejectSourceNow);
}

void MainWindow::ejectSourceNow()
{
    m_diskTool->setDiskArray({});
    auto plan = planSourceEject(scannedDevices(m_ScanDevice), choiceNow());
    if (!plan || plan->disks.empty()) {
        setEjectButtonsEnabled(true);
        return;
    }
    m_diskTool->setDiskArray(std::move(plan->disks));
    m_diskTool->EjectDisks();
    m_diskTool->setDiskArray({});
    setProgressMsg(std::string());
    setSourceDiskInfo();
    m_action->StartBtn->setEnabled(true);
    setEjectButtonsEnabled(true);
    tellFailedEjects();
}

// Who pulls a disk that was not ejected loses what it still had to write.
void MainWindow::tellFailedEjects()
{
    std::string text;
    for (const auto &result : m_diskTool->results()) {
        if (!result.succeeded)
            text.append(text.empty() ? "" : "\n")
                .append(result.disk.diskVolume)
                .append(" was not ejected: ")
                .append(result.reason);
    }
    if (!text.empty())
        warn(text);
}

} // namespace orvana
