// This file is the part of the production line that obeys people: arming, answers, pauses, the end.

#include "duplicate/run/ProductionLine.h"

#include "platform/Host.h"

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

bool isEndOfDisk(LineBayState state)
{
    return state == LineBayState::Passed || state == LineBayState::NotProven || state == LineBayState::Failed;
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
    m_isArmed = true;
    m_consent = consent;
    for (const auto bay : bays) {
        auto &slot = m_slots[bay];
        if (slot.isInRun)
            continue;
        slot = {};
        slot.isArmed = true;
        if (const auto disk = diskInBay(bay, **enclosure))
            slot.wasThere = disk->fingerprint();
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
    m_view.lineDisarmed(reason);
    m_view.lineChanged();
}

void ProductionLine::agree(Bay bay)
{
    auto &slot = m_slots[bay];
    if (slot.shown.state != LineBayState::Asking || !slot.isArmed || m_store.state() != LineState::Open)
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
        m_slots[bay].isAgreed = false;
        show(bay, LineBayState::Asking, "its countdown was stopped");
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
