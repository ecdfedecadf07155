#include "cli/LineDisplay.h"

#include "cli/Terminal.h"
#include "duplicate/run/RunProgress.h"
#include "foundation/DisplayPath.h"
#include "foundation/PlainMainQueue.h"

#include <cstdlib>
#include <nlohmann/json.hpp>

namespace orvana::cli
{

namespace
{

constexpr std::chrono::milliseconds BetweenKeys{100};
constexpr char Bell = '\a';

std::string letterOf(Bay bay)
{
    return slotNameOf(bay).substr(5);
}

std::string stateText(const LineBay &bay)
{
    auto text = std::string(signOf(bay.state)) + nameOf(bay.state);
    if (bay.state == LineBayState::CountingDown)
        text += bay.countdown > 0 ? " " + std::to_string(bay.countdown) : ", waits for the other bays";
    if (bay.state == LineBayState::Copying || bay.state == LineBayState::Verifying) {
        text += " " + percentText(bay.fraction);
        if (bay.secondsLeft)
            text += ", " + durationText(bay.secondsLeft) + " left";
    }
    return text;
}

std::string rowOf(Bay bay, const LineBay &shown)
{
    auto row = letterOf(bay) + "  " + stateText(shown);
    if (shown.number)
        row += "  number " + std::to_string(*shown.number);
    if (!shown.disk.empty())
        row += "  " + shown.disk;
    if (!shown.health.empty())
        row += "  health: " + shown.health;
    if (!shown.text.empty())
        row += "  (" + shown.text + ")";
    return row;
}

// A countdown and a percentage change all the time; they are no news for a log.
bool isNews(const LineBay &before, const LineBay &now)
{
    return before.state != now.state || before.text != now.text || before.number != now.number;
}

} // namespace

std::string lineBlock(const ProductionLine &line, std::size_t width, bool hasKeys)
{
    const auto &head = line.store().head();
    auto title = displayPath(head.name) + ": " + textOf(line.store().counts());
    if (line.store().state() == LineState::Paused)
        title += ", paused";
    std::string block = fitted(title, width) + "\n";
    for (const auto bay : AllBays) {
        const auto &shown = line.bay(bay);
        const bool isSource = line.work().choice.isSourceBay(bay);
        const auto row = isSource ? letterOf(bay) + "  source" : rowOf(bay, shown);
        block += fitted(row, width) + "\n";
    }
    const auto *keys = "No more disks are taken";
    if (line.isArmed())
        keys = hasKeys ? "Any key stops a countdown; B, C, D (capital): yes to the question; q: no more disks"
                       : "No keys are heard here; \"plurimoctl line pause\" stops a countdown";
    return block + fitted(keys, width) + "\n";
}

LineDisplay::LineDisplay(Terminal &terminal, PlainMainQueue &queue, bool json)
    : m_terminal(terminal), m_queue(queue), m_json(json), m_keys(terminal.keys())
{
}

ExitStatus LineDisplay::run(ProductionLine &line)
{
    m_line = &line;
    m_lineAtWork = &line;
    if (m_isCancelled)
        line.disarm("cancelled");
    lineChanged();
    hearKeys();
    m_queue.run();
    m_lineAtWork = nullptr;
    m_keys.restore();
    if (m_terminal.isScreen() && !m_json)
        m_terminal.showBlock({});
    const auto &store = line.store();
    const auto counts = store.counts();
    if (m_json)
        m_terminal.print(Json{
            {"event", "end"},
            {"reason", m_disarmReason},
            {"wanted", counts.wanted},
            {"passed", counts.passed},
            {"notProven", counts.notProven},
            {"failed",
             counts.failed}}.dump());
    else
        m_terminal.print(displayPath(store.head().name) + ": " + textOf(counts) + "; " + m_disarmReason);
    if (m_isCancelled)
        return Cancelled;
    return counts.passed >= counts.wanted || m_isLeaving || store.state() == LineState::Ended
               ? AllDone
               : SomethingFailed;
}

void LineDisplay::requestCancel()
{
    // The main thread may be within an erase, which goes on to the next disk otherwise.
    if (auto *line = m_lineAtWork.load())
        line->requestStop();
    m_queue.async([this] {
        m_isCancelled = true;
        if (!m_line)
            return;
        m_line->disarm("cancelled");
        m_line->cancelRuns();
        leaveWhenDone();
    });
}

void LineDisplay::hearKeys()
{
    std::string typed;
    while (const auto key = m_keys.next())
        typed += *key;
    if (!typed.empty())
        handle(typed);
    if (m_keys.isGone())
        m_line->disarm("the terminal is gone, so nobody can stop a countdown");
    leaveWhenDone();
    m_queue.after(BetweenKeys, [this] { hearKeys(); });
}

// Only a single key is an answer. Some keys send several characters, the cursor keys with capital letters
// among them, and so does what is pasted, or was typed while the program did not listen.
void LineDisplay::handle(const std::string &typed)
{
    if (m_line->stopCountdowns() || typed.size() != 1)
        return;
    if (typed == "q") {
        m_isLeaving = true;
        m_line->disarm("no more disks were wanted for now");
        return;
    }
    if (const auto bay = bayNamed("Slot-" + typed))
        m_line->agree(*bay);
}

void LineDisplay::leaveWhenDone()
{
    if (m_line->isArmed() || m_line->isAtWork())
        return;
    if (m_line->hasHangingRun()) {
        m_keys.restore();
        m_terminal.printError("plurimoctl: a disk does not answer; leaving without it");
        std::quick_exit(SomethingFailed);
    }
    m_queue.quit();
}

void LineDisplay::lineChanged()
{
    if (!m_line)
        return;
    if (m_terminal.isScreen() && !m_json)
        m_terminal.showBlock(lineBlock(*m_line, m_terminal.width(), m_terminal.keys() != Terminal::NoInput));
    else
        tellChanges();
}

void LineDisplay::tellChanges()
{
    for (const auto bay : AllBays) {
        const auto &now = m_line->bay(bay);
        if (!isNews(m_told[bay], now))
            continue;
        m_told[bay] = now;
        if (!m_json) {
            m_terminal.print(rowOf(bay, now));
            continue;
        }
        Json event{{"event", "bay"}, {"bay", slotNameOf(bay)}, {"state", nameOf(now.state)}};
        event["number"] = now.number ? Json(*now.number) : Json(nullptr);
        event["disk"] = now.disk;
        event["health"] = now.health;
        event["text"] = now.text;
        m_terminal.print(event.dump());
    }
}

void LineDisplay::lineDiskEnded(const LineEntry &entry)
{
    const auto counts = textOf(m_line->store().counts());
    if (m_json) {
        Json event{{"event", "disk"},
                   {"id", idOf(m_line->store().head(), entry.disk.number)},
                   {"number", entry.disk.number},
                   {"bay", entry.disk.bay}};
        putPath(event, "serial", entry.disk.serial);
        event["verdict"] = wordOf(entry.result->verdict);
        event["reason"] = entry.result->reason;
        event["counts"] = counts;
        m_terminal.print(event.dump());
        return;
    }
    auto line = "number " + std::to_string(entry.disk.number) + ": " + wordOf(entry.result->verdict) + ", " +
                displayPath(entry.disk.name) + ", serial number " + displayPath(entry.disk.serial);
    if (!entry.result->reason.empty())
        line += " (" + displayPath(entry.result->reason) + ")";
    m_terminal.print(line + "; " + counts);
    if (m_terminal.isScreen())
        m_terminal.write({&Bell, 1});
}

void LineDisplay::lineDisarmed(const std::string &reason)
{
    m_disarmReason = reason;
    if (!m_json)
        m_terminal.printError("no more disks are taken: " + reason);
}

} // namespace orvana::cli
