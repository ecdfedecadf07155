#include "cli/DeviceScan.h"

#include "duplicate/plan/SourcePlan.h"
#include "foundation/DisplayPath.h"
#include "foundation/PlainMainQueue.h"
#include "platform/Host.h"

#include <algorithm>

namespace orvana::cli
{

namespace
{

// Longer than a host waits between two checks for outside changes.
constexpr std::chrono::milliseconds TimeToLook{150};

std::optional<Bay> bayOfLetter(const std::string &word)
{
    return bayNamed("Slot-" + word);
}

} // namespace

DeviceScan::DeviceScan(platform::Host &host, PlainMainQueue &queue)
    : m_queue(queue), m_scanner(host.registry(), host.launcher()), m_user(userHomeOf(host))
{
    m_scanner.setDetectOption("Orvana");
    m_scanner.scanEverything();
}

void DeviceScan::takeUpChanges()
{
    m_queue.after(TimeToLook, [this] { m_queue.quit(); });
    m_queue.run();
}

void DeviceScan::scan()
{
    takeUpChanges();
    m_scanner.scanEverything();
}

void DeviceScan::scanEnclosures()
{
    takeUpChanges();
    m_scanner.scanEnclosuresAnew();
}

tl::expected<ChosenEnclosure, Refusal> DeviceScan::choose(std::optional<int> number) const
{
    const auto &enclosures = m_scanner.tbArray();
    if (enclosures.empty())
        return tl::unexpected(Refusal{NotThere, "there is no enclosure"});
    if (!number && enclosures.size() > 1)
        return tl::unexpected(
            Refusal{WrongUsage, "there are " + std::to_string(enclosures.size()) +
                                    " enclosures; name one with --enclosure, as \"devices\" numbers them"});
    const int index = number.value_or(1);
    if (index < 1 || static_cast<std::size_t>(index) > enclosures.size())
        return tl::unexpected(Refusal{NotThere, "there is no enclosure " + std::to_string(index)});
    return ChosenEnclosure{index, enclosures[static_cast<std::size_t>(index) - 1]->uid()};
}

tl::expected<std::shared_ptr<ORVThunderboltInfo>, Refusal> usableEnclosure(const ScannedDevices &devices,
                                                                           const ChosenEnclosure &chosen)
{
    const auto enclosure = chosenEnclosure(devices, chosen);
    if (!enclosure)
        return tl::unexpected(refusalOf(enclosure.error()));
    if (const auto refusal = refusalOfStart(**enclosure, devices))
        return tl::unexpected(refusalOf(*refusal));
    return *enclosure;
}

Refusal refusalOf(EnclosureRefusal refusal)
{
    const bool isGone = refusal == EnclosureRefusal::NoneChosen || refusal == EnclosureRefusal::NotThere;
    return {isGone ? NotThere : Refused, refusalText(refusal)};
}

tl::expected<std::vector<Bay>, Refusal> parseBays(const std::vector<std::string> &words)
{
    std::vector<Bay> bays;
    for (const auto &word : words) {
        const auto bay = bayOfLetter(word);
        if (!bay)
            return tl::unexpected(
                Refusal{WrongUsage, displayPath(word) + ": no bay; they are A, B, C and D"});
        if (std::find(bays.begin(), bays.end(), *bay) != bays.end())
            return tl::unexpected(Refusal{WrongUsage, "bay " + word + " is given twice"});
        bays.push_back(*bay);
    }
    return bays;
}

tl::expected<PerBay<std::optional<std::string>>, Refusal> parseNames(const std::vector<std::string> &words)
{
    PerBay<std::optional<std::string>> names;
    for (const auto &word : words) {
        const auto equals = word.find('=');
        const auto bay = equals == std::string::npos ? std::nullopt : bayOfLetter(word.substr(0, equals));
        if (!bay)
            return tl::unexpected(
                Refusal{WrongUsage, displayPath(word) + ": give a name as BAY=NAME, with a bay from A to D"});
        if (names[*bay])
            return tl::unexpected(Refusal{WrongUsage, slotNameOf(*bay) + " is given two names"});
        names[*bay] = word.substr(equals + 1);
    }
    return names;
}

} // namespace orvana::cli
