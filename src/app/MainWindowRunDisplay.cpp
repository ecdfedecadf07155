// This file is the part of the window that shows a run bay by bay: its erase, its progress and its verdicts.

#include "app/MainWindow.h"
#include "app/RunWords.h"
#include "foundation/SizeText.h"
#include "panels/BayRunView.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "ui/CoreWords.h"

#include <algorithm>

namespace orvana
{

namespace
{

constexpr std::chrono::milliseconds BetweenLooks{200};

QString rateOf(double bytesPerSecond)
{
    return QString::fromStdString(rateText(bytesPerSecond));
}

QString percentOf(double fraction)
{
    return QString::fromStdString(percentText(fraction));
}

} // namespace

void MainWindow::copyStarts(const CopyJob &)
{
    m_monitor = {};
    m_filePace = {};
    later(std::chrono::milliseconds(0), [this, run = m_run->number()] { followRun(run); });
}

// Shows the run that had this number five times a second until it ends.
void MainWindow::followRun(std::uint64_t run)
{
    if (run != m_run->number() || !m_run->isOn())
        return;
    showStatus(m_monitor.look(m_run->progress()));
    later(BetweenLooks, [this, run] { followRun(run); });
}

void MainWindow::showStatus(const RunStatus &status)
{
    const auto &disks = m_run->destinations();
    for (std::size_t i = 0; i < std::min(disks.size(), status.destinations.size()); ++i) {
        const auto &destination = status.destinations[i];
        m_diskInfo->runOf(slotNameOf(disks[i].bay))
            ->showProgress(destination.fraction,
                           destination.failed > 0 ? RunWords::failed(destination.failed)
                                                  : percentOf(destination.fraction),
                           rateOf(destination.bytesPerSecond), RunWords::timeLeft(destination.secondsLeft));
    }
    const bool isWaiting = status.waitingFor && *status.waitingFor < disks.size();
    stageText->setText(isWaiting ? tr("Waiting for bay %1: %2")
                                       .arg(RunWords::letterOf(slotNameOf(disks[*status.waitingFor].bay)),
                                            rateOf(status.destinations[*status.waitingFor].bytesPerSecond))
                                 : RunWords::nameOf(status.stage));
    const auto rate = rateOf(status.bytesPerSecond);
    totalText->setText(RunWords::joined(
        {percentOf(totalProgress->doubleValue()), rate, RunWords::timeLeft(status.secondsLeft)}));
    const auto percent = fileProgress->doubleValue();
    const auto fileLeft = m_filePace.secondsLeft(percent, status.seconds);
    fileText->setText(RunWords::joined(
        {percentOf(percent / 100), rate, fileLeft ? RunWords::timeLeft(fileLeft) : QString()}));
}

// An erase holds the main thread until its end, so the window is painted here, before the disk's command.
void MainWindow::showErase()
{
    if (!m_action->isErasing())
        return;
    const auto &tool = m_run->diskTool();
    const auto &disks = tool.diskArray();
    const auto present = tool.results().size();
    for (const auto bay : AllBays) {
        const auto &shown = m_shown[bay];
        const auto disk = std::find_if(disks.begin(), disks.end(), [&](const DiskUtilInfo &other) {
            return shown && other.diskPath == shown->info.diskPath;
        });
        if (disk == disks.end())
            continue;
        const auto number = static_cast<std::size_t>(disk - disks.begin());
        auto *view = m_diskInfo->runOf(slotNameOf(bay));
        if (number < present)
            view->showVerdict(tool.results()[number].succeeded ? tr("Erased") : tr("Not erased"), QString());
        else
            view->showVerdict(number == present ? tr("Erasing...") : tr("To be erased"), QString());
        if (number == present)
            stageText->setText(tr("Erasing disk %1 of %2: bay %3")
                                   .arg(present + 1)
                                   .arg(disks.size())
                                   .arg(RunWords::letterOf(slotNameOf(bay))));
    }
    repaint();
}

void MainWindow::showVerdicts(const RunSummary &summary)
{
    clearRuns();
    const auto &disks = m_run->destinations();
    for (std::size_t i = 0; i < std::min(disks.size(), summary.destinations.size()); ++i) {
        const auto &destination = summary.destinations[i];
        const auto verdict = verdictOf(destination, summary);
        m_diskInfo->runOf(slotNameOf(disks[i].bay))
            ->showVerdict(RunWords::signAndWord(verdict), RunWords::detailOf(verdict, destination));
        m_judged[disks[i].bay] = disks[i].fingerprint;
    }
    for (const auto &disk : summary.disks) {
        const auto bay = bayNamed(disk.bay);
        if (!bay || disk.outcome == DiskOutcome::Erased || m_judged[*bay] || !m_shown[*bay])
            continue;
        m_diskInfo->runOf(disk.bay)->showVerdict(disk.outcome == DiskOutcome::EraseFailed
                                                     ? QStringLiteral("\u2717 ") + tr("Not erased")
                                                     : QStringLiteral("\u2013 ") + tr("No part"),
                                                 coreWords(disk.reason));
        m_judged[*bay] = m_shown[*bay]->fingerprint;
    }
}

void MainWindow::clearRuns()
{
    m_judged = {};
    stageText->clear();
    totalText->clear();
    fileText->clear();
    for (const auto bay : AllBays)
        m_diskInfo->runOf(slotNameOf(bay))->clear();
}

// A verdict is of a disk, not of a bay.
void MainWindow::showVerdictsOfPresentDisks()
{
    for (const auto bay : AllBays) {
        const auto &judged = m_judged[bay];
        if (judged)
            m_diskInfo->runOf(slotNameOf(bay))
                ->setVisible(m_shown[bay] && *judged == m_shown[bay]->fingerprint);
    }
}

} // namespace orvana
