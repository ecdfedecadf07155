// This file is the part of the production line that starts runs and takes up their results.

#include "duplicate/report/RunReport.h"
#include "duplicate/run/LineCertificate.h"
#include "duplicate/run/ProductionLine.h"
#include "foundation/Clock.h"
#include "foundation/DisplayPath.h"
#include "platform/Host.h"

#include <algorithm>

namespace orvana
{

namespace
{

LineBayState stateOf(LineVerdict verdict)
{
    switch (verdict) {
    case LineVerdict::Passed:
        return LineBayState::Passed;
    case LineVerdict::NotProven:
        return LineBayState::NotProven;
    case LineVerdict::Failed:
        return LineBayState::Failed;
    }
    return LineBayState::Failed;
}

LineBayState stateOf(RunStage stage)
{
    return stage == RunStage::Verifying ? LineBayState::Verifying : LineBayState::Copying;
}

// Why the plan has no place for the disk in this bay.
template <class Plan>
std::string reasonIn(const Plan &plan, Bay bay)
{
    for (const auto &refusal : plan.refusals) {
        if (refusal.bay == slotNameOf(bay))
            return reasonText(refusal.reason);
    }
    if (std::find(plan.tooSmall.begin(), plan.tooSmall.end(), bay) != plan.tooSmall.end())
        return reasonText(RefusalReason::TooSmall);
    return "it has no volume that can be written to";
}

std::string reasonFor(const RunOrder &order, Bay bay)
{
    for (const auto &bad : order.erase.badNames) {
        if (bad.bay == slotNameOf(bay))
            return displayPath(bad.name) + ": " + reasonText(bad.reason, bad.format);
    }
    return order.choice.erase ? reasonIn(order.erase, bay) : reasonIn(order.destinations, bay);
}

bool isIn(const RunOrder &order, Bay bay)
{
    const auto isOfBay = [&](const auto &disk) { return disk.bay == bay; };
    const auto &erased = order.erase.disks;
    const auto &written = order.destinations.destinations;
    return order.choice.erase
               ? order.erase.badNames.empty() && std::any_of(erased.begin(), erased.end(), isOfBay)
               : std::any_of(written.begin(), written.end(), isOfBay);
}

// The name that the disk's volume will have.
std::string nameIn(const RunOrder &order, Bay bay)
{
    for (const auto &disk : order.erase.disks) {
        if (disk.bay == bay)
            return disk.info.diskVolume;
    }
    return order.choice.names[bay];
}

} // namespace

// The numbers are those that the disks will get when all of them are begun in this order.
tl::expected<RunOrder, std::string> ProductionLine::orderFor(const std::vector<Bay> &bays,
                                                             const ScannedDevices &devices) const
{
    auto choice = m_work.choice;
    choice.enclosure = whereItIsNow(devices, choice.enclosure);
    const auto enclosure = chosenEnclosure(devices, choice.enclosure);
    if (!enclosure)
        return tl::unexpected(refusalText(enclosure.error()));
    choice.names = volumeNamesOf(**enclosure, m_user);
    choice.shown = shownDisks(**enclosure);
    choice.selectedBytes = m_work.bytes;
    for (const auto bay : AllBays)
        choice.isLeftAlone[bay] = std::find(bays.begin(), bays.end(), bay) == bays.end();
    NameValues values{.number = m_store.nextNumber(),
                      .serial = {},
                      .bay = {},
                      .date = localTime(m_surroundings.clock.now(), "%Y-%m-%d")};
    for (const auto bay : bays) {
        const auto &shown = (*choice.shown)[bay];
        values.serial = shown ? shown->fingerprint.serial.value_or(std::string()) : std::string();
        values.bay = slotNameOf(bay).substr(5);
        choice.insisted.push_back(values.serial); // one that calls itself failing was asked about
        choice.names[bay] = nameOn(m_work, bay, values, choice.names[bay]);
        ++values.number;
    }
    for (const auto &[slot, isFit] :
         fitOfBays(**enclosure, m_work.bytes, limitOf(choice.erase, choice.settings))) {
        if (const auto bay = bayNamed(slot))
            choice.isOverSize[*bay] = !isFit;
    }
    auto order = decideOrder(m_surroundings.host, devices, choice, m_work.source, m_work.selection);
    if (!order)
        return tl::unexpected(refusalText(order.error()));
    for (const auto bay : bays) {
        if (!isIn(*order, bay))
            return tl::unexpected(reasonFor(*order, bay));
    }
    order->totalFiles = m_work.files;
    order->totalBytes = m_work.bytes;
    return std::move(*order);
}

// Bays that are about to be ready are waited for a while, because those that start together share the reading
// of the source.
void ProductionLine::startWhatIsReady()
{
    if (m_isLate || m_store.state() != LineState::Open)
        return;
    std::vector<Bay> ready;
    bool isWorthWaiting = false;
    bool hasWaitedEnough = false;
    for (const auto bay : AllBays) {
        const auto &slot = m_slots[bay];
        const auto state = slot.shown.state;
        // A person may have agreed just before a look, so the whole of the last second counts as well.
        const bool isReady =
            state == LineBayState::CountingDown && slot.shown.countdown == 0 && slot.waited > 0;
        if (isReady)
            ready.push_back(bay);
        isWorthWaiting = isWorthWaiting || state == LineBayState::Looking ||
                         (state == LineBayState::CountingDown && !isReady);
        hasWaitedEnough = hasWaitedEnough || (isReady && slot.waited >= LongestWait);
    }
    if (ready.empty() || (isWorthWaiting && !hasWaitedEnough))
        return;
    while (static_cast<std::int64_t>(ready.size()) > std::max<std::int64_t>(missing(), 0)) {
        m_slots[ready.back()].disk.reset();
        show(ready.back(), LineBayState::Waiting, "as many disks as are wanted are done or in work");
        ready.pop_back();
    }
    if (!ready.empty())
        start(std::move(ready));
}

// Another program may have written to a disk that was blank when it was looked at. Who agreed to it then did
// not agree to lose that.
bool ProductionLine::isStillBlank(Bay bay, const DiskPtr &disk) const
{
    const auto &slot = m_slots[bay];
    if (m_consent == Consent::EraseWhateverComes || (slot.isAgreed && !slot.wasBlank))
        return true;
    const DiskSurvey survey(m_surroundings.host, {disk});
    return survey.waitUntilOver(DiskSurvey::TimeToCount) && survey.results().front().isBlank;
}

void ProductionLine::start(std::vector<Bay> bays)
{
    const auto devices = look();
    const auto enclosure = chosenEnclosure(devices, whereItIsNow(devices, m_work.choice.enclosure));
    std::erase_if(bays, [&](Bay bay) {
        const auto &disks = enclosure ? (*enclosure)->hddArray() : std::vector<DiskPtr>();
        const auto found = std::find_if(disks.begin(), disks.end(), [&](const auto &disk) {
            return bayOfDisk(*disk) == bay && m_slots[bay].disk == disk->fingerprint();
        });
        const bool isSame = found != disks.end() && isStillBlank(bay, *found);
        if (!isSame) {
            m_slots[bay].disk.reset(); // it is looked at again
            show(bay, LineBayState::Waiting);
        } else if (const auto alone = orderFor({bay}, devices); !alone) {
            show(bay, LineBayState::NotTaken, alone.error());
            return true;
        }
        return !isSame;
    });
    if (bays.empty())
        return;
    auto order = orderFor(bays, devices);
    if (!order) {
        for (const auto bay : bays)
            show(bay, LineBayState::NotTaken, order.error());
        return;
    }
    if (!note(bays, *order))
        return;
    std::vector<LineRun::Disk> disks;
    for (const auto bay : bays) {
        disks.push_back({bay, *m_slots[bay].shown.number, *m_slots[bay].disk});
        m_slots[bay].isInRun = true;
    }
    const LineRun::Surroundings surroundings{.host = m_surroundings.host,
                                             .queue = m_surroundings.queue,
                                             .clock = m_surroundings.clock,
                                             .logFolder = m_surroundings.logFolder,
                                             .stateFolder = m_surroundings.stateFolder,
                                             .patience = m_surroundings.patience,
                                             .isStopWanted = m_isStopWanted,
                                             .look = [this] { return look(); },
                                             .devices = [this] { return scannedDevices(m_scanner); }};
    m_runs.push_back(
        std::make_unique<LineRun>(surroundings, std::move(disks), [this](LineRun &run) { ended(run); }));
    auto &run = *m_runs.back();
    run.start(std::move(*order));
}

// The numbers are on the station's disk before anything is written to the disks.
bool ProductionLine::note(const std::vector<Bay> &bays, const RunOrder &order)
{
    for (const auto bay : bays) {
        auto &slot = m_slots[bay];
        const auto &shown = (*order.choice.shown)[bay];
        const LineDisk disk{.number = m_store.nextNumber(),
                            .bay = slotNameOf(bay),
                            .name = nameIn(order, bay),
                            .serial = slot.disk->serial.value_or(std::string()),
                            .model = shown ? shown->info.diskModule : std::string(),
                            .size = slot.disk->size.value_or(0),
                            .began = localTime(m_surroundings.clock.now(), "%Y-%m-%dT%H:%M:%S%z")};
        if (const auto noted = m_store.begin(disk); !noted) {
            disarm(noted.error());
            return false;
        }
        slot.shown.number = disk.number;
        show(bay, order.choice.erase ? LineBayState::Erasing : LineBayState::Copying);
    }
    return true;
}

void ProductionLine::showRun(LineRun &run)
{
    const auto status = run.status();
    for (const auto &disk : run.disks()) {
        auto &shown = m_slots[disk.bay].shown;
        if (run.phase() == RunPhase::Erasing)
            shown.state = LineBayState::Erasing;
        if (!status)
            continue;
        shown.state = stateOf(status->stage);
        const auto place = run.destinationIn(disk.bay);
        if (place && *place < status->destinations.size()) {
            shown.fraction = status->destinations[*place].fraction;
            shown.secondsLeft = status->destinations[*place].secondsLeft;
        }
    }
}

void ProductionLine::ended(LineRun &run)
{
    const auto found =
        std::find_if(m_runs.begin(), m_runs.end(), [&](const auto &other) { return other.get() == &run; });
    auto mine = std::move(*found);
    m_runs.erase(found);
    const auto summary = mine->summary();
    for (const auto &disk : mine->disks())
        noteEnd(disk, *mine, summary);
    if (!mine->hasWorkerEnded())
        m_hanging.push_back(std::move(mine));
    if (m_store.counts().passed >= m_store.head().wanted)
        end();
    m_view.lineChanged();
}

void ProductionLine::noteEnd(const LineRun::Disk &disk, const LineRun &run, const RunSummary &summary)
{
    auto &slot = m_slots[disk.bay];
    slot.isInRun = false;
    releaseLocks();
    LineEntry entry;
    for (const auto &known : m_store.entries()) {
        if (known.disk.number == disk.number)
            entry = known;
    }
    auto result = resultOf(summary, disk.bay, m_store.entries());
    const auto health = healthOf(disk.fingerprint);
    result.health = textOf(health, &slot.health);
    for (const auto &erased : summary.disks) {
        if (erased.bay == slotNameOf(disk.bay) && erased.outcome == DiskOutcome::Erased &&
            !erased.reason.empty())
            result.health += "; " + erased.reason; // its size was not probed
    }
    if (result.verdict == LineVerdict::Passed && verdictOf(health) == platform::HealthVerdict::Failing) {
        result.verdict = LineVerdict::NotProven;
        result.reason = "the disk " + textOf(health);
    }
    const auto certificate =
        writeLineCertificate(m_surroundings.host.volumeFiles(), m_store.head(), disk.number, result, summary,
                             disk.bay, run.problems().groups());
    if (certificate)
        result.certificate = *certificate;
    else if (result.verdict == LineVerdict::Passed) {
        result.verdict = LineVerdict::NotProven;
        result.reason = certificate.error();
    }
    const auto noted = m_store.end(disk.number, result);
    show(disk.bay, stateOf(result.verdict), result.reason);
    slot.shown.number = disk.number;
    if (!noted) {
        removeCertificate(m_store.head(), disk.number); // it may say more than the ledger
        show(disk.bay, LineBayState::NotProven, noted.error());
        return disarm(noted.error());
    }
    entry.result = result;
    // A disk that is ejected has passed, and is in the ledger.
    if (result.verdict == LineVerdict::Passed)
        eject(disk);
    m_view.lineDiskEnded(entry);
}

// A disk is asked before and after its run, never during it.
platform::DiskHealth ProductionLine::healthOf(const DiskFingerprint &disk) const
{
    return m_surroundings.host.health().healthOf(disk.device);
}

void ProductionLine::eject(const LineRun::Disk &disk)
{
    show(disk.bay, LineBayState::Ejecting);
    m_view.lineChanged();
    NotificationCenter center;
    DiskUtil tool(m_surroundings.host.launcher(), center);
    std::vector<DiskUtilInfo> disks;
    for (const auto &present : look().allDisks()) {
        if (bayOfDisk(*present) == disk.bay && present->fingerprint() == disk.fingerprint)
            disks.push_back(
                diskUtilInfo(*present, present->bsdPathArray().empty()
                                           ? std::string()
                                           : displayName(*present->bsdPathArray().front(), m_user)));
    }
    tool.setSparedDisks(m_work.choice.sourceDisks);
    tool.setDiskArray(std::move(disks));
    (void)tool.EjectDisks();
    const auto &results = tool.results();
    const bool isOut = !results.empty() && results.front().succeeded;
    show(disk.bay, LineBayState::Passed,
         isOut
             ? std::string()
             : "it could not be ejected" + (results.empty() ? std::string() : ": " + results.front().reason));
}

} // namespace orvana
