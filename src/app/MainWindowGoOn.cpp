// This file is the part of the window that goes on with a run that was broken off.

#include "app/MainWindow.h"
#include "panels/CopyActionViewController.h"
#include "platform/Host.h"
#include "ui/ShownText.h"

namespace orvana
{

std::optional<BrokenOffRun> MainWindow::brokenOffRun() const
{
    const auto *enclosure = selectedEnclosure();
    if (!enclosure)
        return std::nullopt;
    return orvana::brokenOffRun(m_context.host.volumeFiles(), m_run->stateFolder(), devices(), *enclosure);
}

// A user who does not want to go on is not asked again.
void MainWindow::offerToGoOn()
{
    if (!mayUseJobs() || !m_action->StartBtn->isEnabled())
        return;
    const auto run = brokenOffRun();
    if (!run || run->name == m_offered)
        return;
    m_offered = run->name;
    QString text = tr("What it has brought to these disks need not be copied again:");
    for (const auto &disk : run->disks)
        text += QStringLiteral("\n") + shownText(disk);
    m_sheets.show({.message = tr("The last run was broken off"),
                   .text = text,
                   .buttons = {tr("Go on"), tr("Not now")},
                   .completion = [this](int button) {
                       if (button == 0)
                           goOn();
                   }});
}

void MainWindow::goOn()
{
    if (!mayUseJobs())
        return;
    auto run = brokenOffRun();
    if (!run)
        return;
    m_offered = run->name;
    run->job.erase = false;
    run->job.settings.resume = true;
    if (const auto refusal = takeOver(run->job))
        warn(*refusal);
    else
        Duplicate();
}

} // namespace orvana
