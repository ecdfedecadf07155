// This file is the part of the production line that obeys people: arming, answers, pauses, the end.

#include "duplicate/run/ProductionLine.h"

#include "platform/Host.h"
#include "platform/posix/PrivateFolder.h"

#include <algorithm>

namespace orvana
{

const char *nameOf(LineBayState state)
{
    switch (state) {
    case LineBayState::Disarmed:
        return "not armed";
    case LineBayState::Waiting:
        return "waiting";
    case LineBayState::Looking:
        return "looking";
    case LineBayState::NotTaken:
        return "not taken";
    case LineBayState::Asking:
        return "asking";
    case LineBayState::CountingDown:
        return "counting down";
    case LineBayState::Erasing:
        return "erasing";
    case LineBayState::Copying:
        return "copying";
    case LineBayState::Verifying:
        return "verifying";
    case LineBayState::Ejecting:
        return "ejecting";
    case LineBayState::Passed:
        return "passed";
    case LineBayState::NotProven:
        return "done, not proven";
    case LineBayState::Failed:
        return "failed";
    }
    return "";
}

const char *signOf(LineBayState state)
{
    switch (state) {
    case LineBayState::Passed:
        return "\u2713 ";
    case LineBayState::Failed:
    case LineBayState::NotProven:
        return "\u2717 ";
    case LineBayState::Asking:
        return "? ";
    case LineBayState::CountingDown:
        return "! ";
    case LineBayState::Disarmed:
    case LineBayState::Waiting:
    case LineBayState::Looking:
    case LineBayState::NotTaken:
    case LineBayState::Erasing:
    case LineBayState::Copying:
    case LineBayState::Verifying:
    case LineBayState::Ejecting:
        return "";
    }
    return "";
}

bool isEndOfDisk(LineBayState state)
{
    return state == LineBayState::Passed || state == LineBayState::NotProven || state == LineBayState::Failed;
}

// Two lines must not write to one bay, whichever programs of this user run them.
tl::expected<void, Refusal> ProductionLine::lockBays(const std::vector<Bay> &bays)
{
    const auto folder = m_surroundings.stateFolder + "/bays";
    const auto enclosure = std::to_string(m_work.choice.enclosure.uid.value_or(0));
    for (const auto bay : bays) {
        auto path = folder;
        path.append("/").append(enclosure).append("-").append(slotNameOf(bay));
        for (const auto &made : {platform::makePrivateFolder(folder), platform::makePrivateFolder(path)}) {
            if (!made)
                return tl::unexpected(Refusal{Refused, made.error()});
        }
        if (m_locks[bay])
            continue;
        auto lock = m_surroundings.host.volumeFiles().lockFolder(path, platform::Sharing::Exclusive);
        if (!lock) {
            releaseLocks();
            return tl::unexpected(Refusal{Refused, slotNameOf(bay) + " is armed for another line"});
        }
        m_locks[bay] = std::move(*lock);
    }
    return {};
}

void ProductionLine::releaseLocks()
{
    for (const auto bay : AllBays) {
        if (!m_slots[bay].isInRun && !m_slots[bay].isArmed)
            m_locks[bay].reset();
    }
}

tl::expected<void, Refusal> ProductionLine::arm(const std::vector<Bay> &bays, Consent consent)
{
    const auto devices = look();
    if (m_store.state() == LineState::Ended)
        return tl::unexpected(Refusal{Refused, "the line has ended"});
    if (const auto reason = reasonToDisarm(devices))
        return tl::unexpected(Refusal{Refused, *reason});
    const auto enclosure = chosenEnclosure(devices, whereItIsNow(devices, m_work.choice.enclosure));
    for (const auto bay : bays) {
        if (m_work.choice.isSourceBay(bay))
            return tl::unexpected(Refusal{Refused, slotNameOf(bay) + " holds the source"});
    }
    if (auto locked = lockBays(bays); !locked)
        return locked;
    m_isArmed = true;
    *m_isStopWanted = false;
    m_consent = consent;
    m_remembered.clear();
    for (const auto bay : bays) {
        auto &slot = m_slots[bay];
        if (slot.isInRun)
            continue;
        slot = {};
        slot.isArmed = true;
        if (const auto disk = diskInBay(bay, **enclosure))
            m_remembered.push_back({disk->fingerprint(), "it was in the bay already"});
        show(bay, LineBayState::Waiting);
    }
    schedule();
    return {};
}

void ProductionLine::disarm(const std::string &reason)
{
    if (!m_isArmed)
        return;
    m_isArmed = false;
    for (const auto bay : AllBays) {
        auto &slot = m_slots[bay];
        slot.isArmed = false;
        slot.survey.reset();
        if (!slot.isInRun && !isEndOfDisk(slot.shown.state))
            show(bay, LineBayState::Disarmed);
    }
    releaseLocks();
    m_view.lineDisarmed(reason);
    m_view.lineChanged();
}

void ProductionLine::agree(Bay bay)
{
    auto &slot = m_slots[bay];
    if (slot.shown.state != LineBayState::Asking || !slot.isArmed || m_store.state() != LineState::Open)
        return;
    if (isSerialInWork(bay, slot.disk ? slot.disk->serial.value_or(std::string()) : std::string()))
        return;
    slot.isAgreed = true;
    slot.waited = 0;
    show(bay, LineBayState::CountingDown);
    slot.shown.countdown = Countdown;
    m_view.lineChanged();
}

bool ProductionLine::stopCountdowns()
{
    bool hasStopped = false;
    for (const auto bay : AllBays) {
        if (m_slots[bay].shown.state != LineBayState::CountingDown)
            continue;
        auto &slot = m_slots[bay];
        constexpr const char *Stopped = "its countdown was stopped";
        slot.isAgreed = false;
        remember(bay, Stopped);
        if (slot.question.find(Stopped) == std::string::npos)
            slot.question += (slot.question.empty() ? "" : "; ") + std::string(Stopped);
        show(bay, LineBayState::Asking, slot.question);
        hasStopped = true;
    }
    if (hasStopped)
        m_view.lineChanged();
    return hasStopped;
}

void ProductionLine::pause()
{
    (void)stopCountdowns();
    if (m_store.state() != LineState::Open)
        return;
    if (const auto noted = m_store.setState(LineState::Paused); !noted)
        disarm(noted.error());
    m_view.lineChanged();
}

void ProductionLine::resume()
{
    if (m_store.state() != LineState::Paused)
        return;
    if (const auto noted = m_store.setState(LineState::Open); !noted)
        disarm(noted.error());
    m_view.lineChanged();
}

void ProductionLine::end()
{
    if (m_store.state() != LineState::Ended) {
        if (const auto noted = m_store.setState(LineState::Ended); !noted)
            return disarm(noted.error());
    }
    disarm("the line has ended");
}

void ProductionLine::cancelRuns()
{
    for (const auto &run : m_runs)
        run->cancel();
}

} // namespace orvana
