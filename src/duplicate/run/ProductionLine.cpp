#include "duplicate/run/ProductionLine.h"

#include "duplicate/plan/SourcePlan.h"
#include "foundation/DisplayPath.h"
#include "foundation/MainQueue.h"
#include "platform/Host.h"

#include <algorithm>

namespace orvana
{

namespace
{

constexpr std::chrono::milliseconds BetweenLooks{1000};

std::string describe(const ORVHddInfo &disk)
{
    const auto model = displayPath(disk.hddModel().value_or(std::string()));
    const auto serial = displayPath(disk.fingerprint().serial.value_or(std::string()));
    return serial.empty() ? model : model + ", serial number " + serial;
}

std::string warningText(const platform::DiskHealth &health)
{
    const auto verdict = verdictOf(health);
    const bool isWorthTelling =
        verdict == platform::HealthVerdict::Warning || verdict == platform::HealthVerdict::Failing;
    return isWorthTelling ? textOf(health) : std::string();
}

} // namespace

ProductionLine::ProductionLine(const Surroundings &surroundings, LineStore store, LineWork work,
                               LineView &view)
    : m_surroundings(surroundings), m_store(std::move(store)), m_work(std::move(work)), m_view(view),
      m_scanner(surroundings.host.registry(), surroundings.host.launcher()),
      m_user(userHomeOf(surroundings.host))
{
    m_scanner.setDetectOption("Orvana");
}

void ProductionLine::remember(Bay bay, const char *reason)
{
    if (m_slots[bay].disk)
        m_remembered.push_back({*m_slots[bay].disk, reason});
}

ProductionLine::~ProductionLine()
{
    *m_isAlive = false;
    // The thread of a run whose disk does not answer uses the run for as long as the process lives.
    for (auto &run : m_hanging) [[maybe_unused]]
        const auto *left = run.release();
}

ScannedDevices ProductionLine::look()
{
    m_scanner.scanEverything();
    return scannedDevices(m_scanner);
}

void ProductionLine::schedule()
{
    if (m_isScheduled)
        return;
    m_isScheduled = true;
    m_nextLook = std::chrono::steady_clock::now() + BetweenLooks;
    m_surroundings.queue.after(BetweenLooks, [this, isAlive = m_isAlive] {
        if (!*isAlive)
            return;
        m_isScheduled = false;
        tick();
    });
}

// A countdown stands still in the first look after the main thread was held up, as by an erase. So a key that
// was typed meanwhile is heard before the countdown is over.
void ProductionLine::tick()
{
    const bool wasLate = m_isLate;
    m_isLate = !wasLate && std::chrono::steady_clock::now() > m_nextLook + BetweenLooks / 2;
    for (const auto &run : m_runs)
        showRun(*run);
    if (!m_isArmed && isAtWork())
        takeWishes();
    if (m_isArmed) {
        const auto devices = look();
        for (const auto &run : m_runs)
            run->endIfEnclosureIsLost();
        if (const auto reason = reasonToDisarm(devices))
            disarm(*reason);
        else
            takeWishes();
        // The program may have ended between the last disk's row in the ledger and the end of the line.
        if (m_isArmed && !isAtWork() && m_store.counts().passed >= m_store.head().wanted)
            end();
        for (const auto bay : AllBays) {
            if (m_isArmed && m_slots[bay].isArmed && !m_slots[bay].isInRun)
                step(bay, devices);
        }
        if (m_isArmed)
            startWhatIsReady();
    }
    m_view.lineChanged();
    if (m_isArmed || isAtWork())
        schedule();
}

void ProductionLine::takeWishes()
{
    switch (m_store.takeWish()) {
    case LineWish::Pause:
        return pause();
    case LineWish::Resume:
        return resume();
    case LineWish::End:
        return end();
    case LineWish::None:
        return;
    }
}

std::optional<std::string> ProductionLine::reasonToDisarm(const ScannedDevices &devices) const
{
    const auto enclosure = chosenEnclosure(devices, whereItIsNow(devices, m_work.choice.enclosure));
    if (!enclosure)
        return refusalText(enclosure.error());
    if (const auto refusal = refusalOfStart(**enclosure, devices))
        return refusalText(*refusal);
    if (!isStillThere(m_surroundings.host, devices, m_work.source))
        return displayPath(m_work.source.root) + ": the source is not there any more";
    return std::nullopt;
}

std::int64_t ProductionLine::missing() const
{
    const auto counts = m_store.counts();
    return counts.wanted - counts.passed - counts.inWork;
}

void ProductionLine::step(Bay bay, const ScannedDevices &devices)
{
    auto &slot = m_slots[bay];
    const auto enclosure = chosenEnclosure(devices, whereItIsNow(devices, m_work.choice.enclosure));
    const auto disk = enclosure ? diskInBay(bay, **enclosure) : nullptr;
    if (!disk) {
        // The end of the last disk stays to be read until the next disk comes.
        if (slot.shown.state == LineBayState::CountingDown)
            remember(bay, "its countdown was stopped");
        if (slot.disk && !isEndOfDisk(slot.shown.state))
            show(bay, LineBayState::Waiting);
        slot.disk.reset();
        slot.survey.reset();
        return;
    }
    if (slot.disk != disk->fingerprint())
        return begin(bay, disk);
    if (slot.shown.state == LineBayState::Looking && m_store.state() != LineState::Open) {
        slot.disk.reset();
        slot.survey.reset();
        return show(bay, LineBayState::Waiting, "the line is paused");
    }
    if (slot.shown.state == LineBayState::Looking && slot.survey && slot.survey->isOver())
        return decide(bay, disk, devices);
    if (slot.shown.state != LineBayState::CountingDown || m_isLate)
        return;
    if (slot.shown.countdown > 0)
        --slot.shown.countdown;
    else
        ++slot.waited;
}

void ProductionLine::begin(Bay bay, const DiskPtr &disk)
{
    auto &slot = m_slots[bay];
    slot.disk.reset();
    slot.isAgreed = false;
    slot.waited = 0;
    slot.shown = {};
    if (m_store.state() == LineState::Paused)
        return show(bay, LineBayState::Waiting, "the line is paused");
    if (missing() <= 0)
        return show(bay, LineBayState::Waiting, "as many disks as are wanted are done or in work");
    slot.disk = disk->fingerprint();
    slot.shown.disk = describe(*disk);
    slot.health = healthOf(*slot.disk);
    slot.shown.health = warningText(slot.health);
    slot.survey =
        std::make_shared<DiskSurvey>(m_surroundings.host, std::vector<std::shared_ptr<ORVHddInfo>>{disk});
    show(bay, LineBayState::Looking);
}

bool ProductionLine::isSerialInWork(Bay bay, const std::string &serial) const
{
    return std::any_of(AllBays.begin(), AllBays.end(), [&](Bay other) {
        const auto &slot = m_slots[other];
        const bool isBusy = slot.isInRun || slot.shown.state == LineBayState::CountingDown;
        return other != bay && isBusy && slot.disk && !serial.empty() && slot.disk->serial == serial;
    });
}

std::optional<std::string> ProductionLine::reasonNotToTake(Bay bay, const ORVHddInfo &disk,
                                                           const ScannedDevices &devices) const
{
    const auto fingerprint = disk.fingerprint();
    const auto serial = fingerprint.serial.value_or(std::string());
    if (serial.empty() && m_store.head().needsSerial)
        return "it has no serial number";
    if (isSerialInWork(bay, serial))
        return "a disk with its serial number is in another bay";
    if (fingerprint.size && static_cast<double>(m_work.bytes) > 0.99 * static_cast<double>(*fingerprint.size))
        return reasonText(RefusalReason::TooSmall);
    const auto order = orderFor({bay}, devices);
    return order ? std::nullopt : std::optional(order.error());
}

std::string ProductionLine::questionFor(Bay bay, const ORVHddInfo &disk, const DiskContent &content) const
{
    std::string question;
    const auto add = [&](const std::string &text) { question += (question.empty() ? "" : "; ") + text; };
    if (const auto *earlier = m_store.entryOf(disk.fingerprint().serial.value_or(std::string())))
        add("it was number " + std::to_string(earlier->disk.number) + " of this line, " +
            (earlier->result ? wordOf(earlier->result->verdict) : "in work"));
    if (verdictOf(m_slots[bay].health) == platform::HealthVerdict::Failing)
        add("it " + textOf(m_slots[bay].health));
    // A disk that lost its contact for a moment comes back as a new one. One mark that agrees is enough.
    for (const auto &[known, reason] : m_remembered) {
        if (mayBeTheSame(known, disk.fingerprint()) && question.find(reason) == std::string::npos)
            add(reason);
    }
    if (!content.isBlank && m_consent == Consent::AskForContent)
        add("it holds " + contentText(content));
    return question;
}

void ProductionLine::decide(Bay bay, const DiskPtr &disk, const ScannedDevices &devices)
{
    auto &slot = m_slots[bay];
    const auto content = slot.survey->results().front();
    slot.survey.reset();
    if (const auto reason = reasonNotToTake(bay, *disk, devices))
        return show(bay, LineBayState::NotTaken, *reason);
    slot.wasBlank = content.isBlank;
    slot.question = questionFor(bay, *disk, content);
    if (!slot.question.empty())
        return show(bay, LineBayState::Asking, slot.question);
    show(bay, LineBayState::CountingDown);
    slot.shown.countdown = Countdown;
}

void ProductionLine::show(Bay bay, LineBayState state, const std::string &text)
{
    auto &shown = m_slots[bay].shown;
    shown.state = state;
    shown.text = text;
    shown.countdown = 0;
    shown.secondsLeft.reset();
    if (state == LineBayState::Waiting || state == LineBayState::Disarmed)
        shown = {.state = state,
                 .health = {},
                 .text = text,
                 .disk = {},
                 .countdown = 0,
                 .number = {},
                 .fraction = 0,
                 .secondsLeft = {}};
}

} // namespace orvana
