#include "app/MainWindow.h"

#include "duplicate/RunReport.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "panels/ShownText.h"
#include "panels/SystemColor.h"
#include "platform/Host.h"
#include "platform/Workspace.h"

#include <utility>

namespace orvana
{

namespace
{

std::string notEjectedText(const std::vector<DiskRefusal> &refusals)
{
    return "Not ejected:\n" + textOf(refusals);
}

} // namespace

// Between Start and the end of an erase nothing that decides about disks can be changed.
void MainWindow::lockChoices(bool locked)
{
    for (QWidget *view : {TBDeviceView, FileListView, static_cast<QWidget *>(m_action->EraseDiskCheckBox)})
        view->setDisabled(locked);
}

// Waits for a cancelled run that is still writing its last block, and gives the window the time to be
// painted.
void MainWindow::eraseWhenIdle(int looksLeft)
{
    constexpr std::chrono::milliseconds BetweenLooks{100};
    later(BetweenLooks, [this, looksLeft, run = m_run.load()] {
        if (run != m_run)
            return; // it was called off
        if (!m_fileCopy->isRunning()) {
            EraseDisk();
        } else if (looksLeft > 0) {
            eraseWhenIdle(looksLeft - 1);
        } else {
            warn("A disk of the run before does not answer. Nothing was erased.");
            endWithoutCopy();
        }
    });
}

void MainWindow::EraseDisk()
{
    // The records may be old: a disk that was pulled and another one that came tell nobody. Scanning again
    // shows which disks are still those that the bays showed.
    scanAll();
    if (!m_order && !decideOrderNow())
        return;
    const auto devices = scannedDevices(m_ScanDevice);
    auto choice = m_order->choice;
    choice.enclosure = whereItIsNow(devices, choice.enclosure);
    auto plan = planErase(devices, choice, user(), eraseFormat());
    if (!plan && plan.error() != EnclosureRefusal::NoneChosen) {
        warn(refusalText(plan.error()));
        endWithoutCopy();
        return;
    }
    std::vector<DiskUtilInfo> disks;
    if (plan) {
        if (!m_order->erase.disks.empty() && !isStillThere(m_context.host, devices, m_order->source)) {
            warn(refusalText(OrderRefusal::SourceGone));
            endWithoutCopy();
            return;
        }
        plan = eraseWithin(*m_order, std::move(*plan));
        for (const auto &erase : plan->disks)
            disks.push_back(erase.info);
        m_erasePlan = std::move(*plan);
    }
    m_diskTool->setSparedDisks(m_order->choice.sourceDisks);
    m_diskTool->setDiskArray(std::move(disks));
    m_diskTool->startEraseDiskThread();
}

void MainWindow::setEjectButtonsEnabled(bool enabled)
{
    m_diskInfo->EjectTargetDiskBtn->setEnabled(enabled);
    m_diskInfo->EjectSourceDiskBtn->setEnabled(enabled && m_maySourceBeEjected);
}

// A cancelled run may still be writing its last block; the disk is not taken from under it. The disks are
// those of the click, and a run that was started meanwhile keeps them.
void MainWindow::ejectWhenIdle(std::vector<DiskUtilInfo> disks, std::uint64_t run,
                               void (MainWindow::*ejected)())
{
    constexpr std::chrono::milliseconds BetweenLooks{100};
    if (run != m_run)
        return;
    if (m_fileCopy->isRunning()) {
        later(BetweenLooks, [this, disks = std::move(disks), run, ejected]() mutable {
            ejectWhenIdle(std::move(disks), run, ejected);
        });
        return;
    }
    m_diskTool->setDiskArray(std::move(disks));
    m_diskTool->EjectDisks();
    m_diskTool->setDiskArray({});
    setProgressMsg(std::string());
    (this->*ejected)();
    m_action->StartBtn->setEnabled(true);
    setEjectButtonsEnabled(true);
    tellEjects();
}

void MainWindow::EjectTargetDisks()
{
    if (isRunning())
        return;
    setEjectButtonsEnabled(false);
    m_diskTool->setDiskArray({});
    auto choice = choiceNow();
    addDisksOf(m_context.host, scannedDevices(m_ScanDevice), selectionNow(), choice.sourceDisks);
    auto plan = planTargetEject(scannedDevices(m_ScanDevice), choice, user());
    m_diskTool->setSparedDisks(choice.sourceDisks);
    if (plan && !plan->refusals.empty())
        warn(notEjectedText(plan->refusals));
    if (!plan || plan->disks.empty())
        setEjectButtonsEnabled(true);
    else
        ejectWhenIdle(std::move(plan->disks), m_run, &MainWindow::targetsEjected);
}

void MainWindow::targetsEjected()
{
    setSourceDiskInfo();
    setTargetDiskInfo();
    for (const auto bay : AllBays)
        m_diskInfo->setTextColor(slotNameOf(bay), SystemColor::black());
}

void MainWindow::EjectSourceDisk()
{
    if (isRunning())
        return;
    setEjectButtonsEnabled(false);
    m_diskTool->setDiskArray({});
    auto plan = planSourceEject(scannedDevices(m_ScanDevice), choiceNow());
    m_diskTool->setSparedDisks({});
    if (plan && !plan->refusals.empty())
        warn(notEjectedText(plan->refusals));
    if (!plan || plan->disks.empty())
        setEjectButtonsEnabled(true);
    else
        ejectWhenIdle(std::move(plan->disks), m_run, &MainWindow::sourceEjected);
}

void MainWindow::sourceEjected()
{
    setSourceDiskInfo();
}

// A disk that is pulled without having been ejected loses what was still to be written. The message line is
// there during a run only, so a notice says which disks may be taken out.
void MainWindow::tellEjects()
{
    std::string failed;
    QStringList ejected;
    for (const auto &result : m_diskTool->results()) {
        if (result.succeeded)
            ejected << shownText(result.disk.diskVolume);
        else
            failed.append(failed.empty() ? "" : "\n")
                .append(result.disk.diskVolume)
                .append(" was not ejected: ")
                .append(result.reason);
    }
    if (!ejected.isEmpty())
        m_context.host.workspace().notify(
            {tr("Ejected").toStdString(),
             tr("These disks can be taken out: %1").arg(ejected.join(QStringLiteral(", "))).toStdString(),
             {},
             {}});
    if (!failed.empty())
        warn(failed);
}

} // namespace orvana
