#include "app/MainWindow.h"

#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "platform/Host.h"
#include "platform/Workspace.h"
#include "ui/ShownText.h"
#include "ui/SystemColor.h"

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

// Locks the controls that decide about disks, from Start to the end of an erase.
void MainWindow::lockChoices(bool locked)
{
    for (QWidget *view : {TBDeviceView, FileListView, static_cast<QWidget *>(m_action->EraseDiskCheckBox)})
        view->setDisabled(locked);
}

void MainWindow::lookAtAllDevices()
{
    scanAll();
}

// Shows that the erase has ended and that the copy follows.
void MainWindow::lookAtEnclosures()
{
    m_action->setIsErasing(false);
    lockChoices(false);
    setProgressMsg(std::string());
    m_ScanDevice.scanEnclosuresAnew();
    // A disk that was plugged in during the erase was never shown before Start. No run writes to it until its
    // enclosure is chosen again.
    const auto shown = m_shown;
    setTargetDiskInfo();
    m_shown = shown;
    fileProgress->setKind(ProgressIndicator::Kind::Determinate);
    totalProgress->setKind(ProgressIndicator::Kind::Determinate);
    setFileProgerss(0.0F);
    setTotalProgerss(0.0F);
    m_action->StartBtn->setEnabled(true);
    m_action->setIsDuplicating(true);
}

void MainWindow::setEjectButtonsEnabled(bool enabled)
{
    m_diskInfo->EjectTargetDiskBtn->setEnabled(enabled);
    m_diskInfo->EjectSourceDiskBtn->setEnabled(enabled && m_maySourceBeEjected);
}

// A cancelled run may still be writing its last block, so this waits until the copy thread has ended. `disks`
// are the disks at the time of the click. If another run starts meanwhile, nothing is ejected.
void MainWindow::ejectWhenIdle(std::vector<DiskUtilInfo> disks, std::uint64_t run,
                               void (MainWindow::*ejected)())
{
    constexpr std::chrono::milliseconds BetweenLooks{100};
    if (run != m_run->number())
        return;
    if (m_run->fileCopy().isRunning()) {
        later(BetweenLooks, [this, disks = std::move(disks), run, ejected]() mutable {
            ejectWhenIdle(std::move(disks), run, ejected);
        });
        return;
    }
    m_run->diskTool().setDiskArray(std::move(disks));
    m_run->diskTool().EjectDisks();
    m_run->diskTool().setDiskArray({});
    setProgressMsg(std::string());
    (this->*ejected)();
    m_action->StartBtn->setEnabled(true);
    setEjectButtonsEnabled(true);
    tellEjects();
}

void MainWindow::eject(tl::expected<EjectPlan, EnclosureRefusal> plan, std::vector<DiskFingerprint> spared,
                       void (MainWindow::*ejected)())
{
    setEjectButtonsEnabled(false);
    m_run->diskTool().setDiskArray({});
    m_run->diskTool().setSparedDisks(std::move(spared));
    if (plan && !plan->refusals.empty())
        warn(notEjectedText(plan->refusals));
    if (!plan || plan->disks.empty())
        setEjectButtonsEnabled(true);
    else
        ejectWhenIdle(std::move(plan->disks), m_run->number(), ejected);
}

void MainWindow::EjectTargetDisks()
{
    if (m_run->isOn())
        return;
    auto choice = choiceNow();
    addDisksOf(m_context.host, devices(), selectionNow(), choice.sourceDisks);
    eject(planTargetEject(devices(), choice, user()), choice.sourceDisks, &MainWindow::targetsEjected);
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
    if (!m_run->isOn())
        eject(planSourceEject(devices(), choiceNow()), {}, &MainWindow::sourceEjected);
}

void MainWindow::sourceEjected()
{
    setSourceDiskInfo();
}

// A disk that is pulled before it is ejected loses the data that was not written yet. The message line is
// visible during a run only, so a desktop notice says which disks can be taken out.
void MainWindow::tellEjects()
{
    std::string failed;
    QStringList ejected;
    for (const auto &result : m_run->diskTool().results()) {
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

bool MainWindow::mayMountDisks() const
{
    return !isBusy() && chosenEnclosure(devices(), chosenNow());
}

// The rescan that a mount sets off shows the volumes.
void MainWindow::mountDisks()
{
    const auto enclosure = chosenEnclosure(devices(), chosenNow());
    if (isBusy() || !enclosure)
        return;
    auto disks = planMount(**enclosure);
    if (disks.empty()) {
        m_sheets.show(
            {tr("Nothing to mount"), tr("No disk in a bay has a volume that is not mounted."), {tr("OK")}});
        return;
    }
    m_run->diskTool().setSparedDisks({});
    m_run->diskTool().setDiskArray(std::move(disks));
    m_run->diskTool().MountDisks();
    m_run->diskTool().setDiskArray({});
    setProgressMsg(std::string());
    tellMounts();
}

void MainWindow::tellMounts()
{
    QStringList failed;
    for (const auto &result : m_run->diskTool().results()) {
        if (!result.succeeded)
            failed << tr("%1, serial number %2, was not mounted: %3")
                          .arg(shownText(result.disk.diskModule), shownText(result.disk.diskSN),
                               shownText(result.reason));
    }
    if (!failed.isEmpty())
        m_sheets.show({tr("Warning"), failed.join(QLatin1Char('\n'))});
}

} // namespace orvana
