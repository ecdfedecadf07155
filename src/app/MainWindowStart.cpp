// The steps between the click on Start and the run: waits, refusals and questions before any disk is touched.

#include "app/MainWindow.h"
#include "app/RunWords.h"

#include "filetree/view/FileListViewController.h"
#include "panels/CopyActionViewController.h"
#include "panels/DiskInfoViewController.h"
#include "platform/Host.h"
#include "ui/ShownText.h"

#include <algorithm>

namespace orvana
{

namespace
{

constexpr std::chrono::milliseconds BetweenLooks{100};
// A wait this short needs no sheet.
constexpr std::chrono::milliseconds UnnoticedWait{200};

std::vector<PlannedErase> erasesOf(const std::vector<DiskAtStake> &disks)
{
    std::vector<PlannedErase> erases;
    erases.reserve(disks.size());
    for (const auto &disk : disks)
        erases.push_back(disk.erase);
    return erases;
}

// A disk that was shown as blank may hold something by now. The user has not agreed to lose that.
bool isAgreedTo(const DiskAtStake &disk, const std::vector<DiskAtStake> &agreed)
{
    return disk.content.isBlank || std::any_of(agreed.begin(), agreed.end(), [&](const DiskAtStake &shown) {
               return shown.erase == disk.erase && !shown.content.isBlank;
           });
}

} // namespace

void MainWindow::Duplicate()
{
    if (m_action->isErasing() || m_action->isDuplicating()) {
        StopDuplicate();
        return;
    }
    if (m_waitingSheet || isStartRefused())
        return;
    m_order.reset();
    m_toldRefusals.clear();
    afterCounting(chosenNow());
}

// Only a finished count shows which bays are too small. An erase waits for it, and so does a run whose
// selection was just made. Without an erase, nothing is lost by an old count.
void MainWindow::afterCounting(const ChosenEnclosure &asked)
{
    const bool isErase = m_action->EraseDiskCheckBox->isChecked();
    if ((isErase || m_settings.resume) && !m_fileList->waitForCount(std::chrono::milliseconds(0))) {
        waitWith(
            tr("The selected files are still being counted. The duplication goes on when that is done."));
        later(BetweenLooks, [this, asked, sheet = m_waitingSheet] {
            if (sheet == m_waitingSheet)
                afterCounting(asked);
        });
        return;
    }
    endWaiting();
    if (isErase)
        colourBays();
    checkSpace(asked);
}

void MainWindow::checkSpace(const ChosenEnclosure &asked)
{
    if (m_diskInfo->isOverSize_AllDisks()) {
        m_sheets.show({tr("Insufficient Disk Space"),
                       tr("There is insufficient free disk space on the destination drive(s)."),
                       {tr("OK")}});
    } else if (m_diskInfo->isOverSize_SomeDisks()) {
        m_sheets.show({.message = tr("Insufficient Disk Space"),
                       .text = tr("There is insufficient free disk space on the destination drive(s)") +
                               shownText(m_diskInfo->OverSizeVolume()) +
                               tr("\n\nPress OK to continue duplicating to the remaining drive(s)."),
                       .buttons = {tr("OK"), tr("Cancel")},
                       .completion = [this, asked](int button) {
                           if (button == 0)
                               startInOrder(asked, {});
                       }});
    } else {
        startInOrder(asked, {});
    }
}

// While a question was on the screen, a device may have been pulled or changed. Shows the user the reason
// before it returns false.
bool MainWindow::isUnchanged(const ChosenEnclosure &asked)
{
    const auto now = chosenNow();
    if (now.pickerIndex == asked.pickerIndex && now.uid == asked.uid)
        return !isStartRefused();
    warn("The device is not the one that was chosen when the start began. Nothing was touched.");
    return false;
}

// `agreed` are the disks that the user was asked about and agreed to lose.
void MainWindow::startInOrder(const ChosenEnclosure &asked, const std::vector<DiskAtStake> &agreed)
{
    m_order.reset();
    if (!isUnchanged(asked) || m_action->isErasing() || m_action->isDuplicating() || !decideOrderNow())
        return;
    if (!agreed.empty() && m_order->erase.disks != erasesOf(agreed)) {
        m_order.reset();
        warn("The disks are not those that were shown any more. Nothing was touched.");
        return;
    }
    if (m_order->erase.disks.empty()) {
        StartDuplicate();
        return;
    }
    m_survey = std::make_unique<DiskSurvey>(m_context.host, disksToErase(m_order->erase, devices()));
    m_survey->waitUntilOver(UnnoticedWait);
    afterSurvey(asked, agreed);
}

// Returns true if there is an order now. Otherwise it has shown the user the reason.
bool MainWindow::decideOrderNow()
{
    const bool isErase = m_action->EraseDiskCheckBox->isChecked();
    scanAll();
    if (isStartRefused())
        return false;
    const auto choice = choiceNow();
    // Without an enclosure or a tree there is no disk to protect. The run reports this and does nothing.
    const bool hasNothingToDo = isPlaceholderSelected() || !hasTree(m_fileList->rows());
    if (hasNothingToDo && (!isErase || isPlaceholderSelected())) {
        m_order.emplace();
        m_order->choice = choice;
        m_order->source = m_source;
        return true;
    }
    auto order = decideOrder(m_context.host, devices(), choice, m_source, selectionNow());
    if (!order) {
        warn(refusalText(order.error()));
        return false;
    }
    if (!order->erase.badNames.empty()) {
        warn(textOf(order->erase.badNames));
        return false;
    }
    disksLeftOut(order->erase.refusals);
    disksLeftOut(order->destinations.refusals);
    m_order = std::move(*order);
    m_order->totalFiles = m_fileList->totalFiles();
    m_order->totalBytes = m_fileList->totalSize();
    if (const auto job = jobNow())
        m_order->job = textOf(*job);
    return true;
}

std::vector<std::string> MainWindow::selectionNow() const
{
    const auto rows = m_fileList->rows();
    return hasTree(rows) ? selectedPaths(rows) : std::vector<std::string>();
}

void MainWindow::afterSurvey(const ChosenEnclosure &asked, const std::vector<DiskAtStake> &agreed)
{
    if (!m_survey->isOver()) {
        waitWith(tr("The destination disks are being looked at."));
        later(BetweenLooks, [this, asked, agreed, sheet = m_waitingSheet] {
            if (sheet == m_waitingSheet)
                afterSurvey(asked, agreed);
        });
        return;
    }
    const bool hasWaited = m_waitingSheet.has_value();
    endWaiting();
    if (hasWaited && !isUnchanged(asked)) {
        m_order.reset();
        return;
    }
    askForErase(asked, agreed);
}

void MainWindow::askForErase(const ChosenEnclosure &asked, const std::vector<DiskAtStake> &agreed)
{
    const auto contents = m_survey->results();
    m_survey.reset();
    if (!m_order || contents.size() != m_order->erase.disks.size())
        return;
    std::vector<DiskAtStake> disks;
    QString text = tr("These disks will lose everything they hold:");
    const auto *enclosure = selectedEnclosure();
    const auto present = enclosure ? volumeNamesOf(*enclosure, user()) : PerBay<std::string>();
    for (std::size_t i = 0; i < contents.size(); ++i) {
        disks.push_back({m_order->erase.disks[i], contents[i]});
        text += QStringLiteral("\n\n") + RunWords::stake(disks.back(), present[disks.back().erase.bay]);
    }
    if (std::all_of(disks.begin(), disks.end(), [&](const auto &disk) { return isAgreedTo(disk, agreed); })) {
        StartDuplicate();
        return;
    }
    m_order.reset();
    m_sheets.show({.message = tr("Erase"),
                   .text = text,
                   .buttons = {tr("Erase"), tr("Cancel")},
                   .defaultButton = 1,
                   .completion = [this, asked, disks = std::move(disks)](int button) {
                       if (button == 0)
                           startInOrder(asked, disks);
                   }});
}

// Shows a sheet while Start waits for something. The sheet's button cancels the whole start.
void MainWindow::waitWith(const QString &text)
{
    if (m_waitingSheet)
        return;
    m_waitingSheet = m_sheets.show(
        {.message = tr("One moment"), .text = text, .buttons = {tr("Cancel")}, .completion = [this](int) {
             m_waitingSheet.reset();
             m_survey.reset();
             m_order.reset();
         }});
}

void MainWindow::endWaiting()
{
    if (m_waitingSheet)
        m_sheets.withdraw(*m_waitingSheet);
    m_waitingSheet.reset();
}

} // namespace orvana
