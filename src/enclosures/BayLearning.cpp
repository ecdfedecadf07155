#include "enclosures/BayLearning.h"

#include "foundation/DisplayPath.h"
#include "foundation/SizeText.h"

#include <algorithm>

namespace orvana::enclosures
{

namespace
{

/// Returns the place of the disk below that device, or null.
const PlaceBelow *placeBelow(const PlacedDisk &disk, const std::string &anchorKey)
{
    const auto &places = disk.place.below;
    const auto found = std::find_if(places.begin(), places.end(),
                                    [&](const PlaceBelow &place) { return place.anchorKey == anchorKey; });
    return found == places.end() ? nullptr : &*found;
}

bool isSamePort(const PlacedDisk &a, const PlacedDisk &b)
{
    if (!a.place.path.empty() || !b.place.path.empty())
        return a.place.path == b.place.path;
    return !a.place.below.empty() && !b.place.below.empty() && a.place.lun == b.place.lun &&
           a.place.below[0].anchorKey == b.place.below[0].anchorKey &&
           a.place.below[0].below == b.place.below[0].below;
}

std::string joined(const std::vector<const PlacedDisk *> &disks)
{
    std::string text;
    for (const auto *disk : disks)
        text.append(text.empty() ? "" : "; ").append(titleOf(*disk));
    return text;
}

} // namespace

std::string titleOf(const PlacedDisk &disk)
{
    return (disk.model.empty() ? "a disk" : displayPath(disk.model)) + ", " +
           (disk.serial.empty() ? "no serial number" : "serial number " + displayPath(disk.serial)) + ", " +
           sizeText(disk.bytes);
}

BayLearning::BayLearning(const PortSnapshot &start)
{
    for (const auto &disk : start.disks)
        m_known.insert(disk.arrival);
}

BayLearning::Answer BayLearning::look(const PortSnapshot &now)
{
    m_anchors = now.anchors;
    std::vector<const PlacedDisk *> fresh;
    for (const auto &disk : now.disks) {
        if (m_known.insert(disk.arrival).second)
            fresh.push_back(&disk);
    }
    if (fresh.empty() || !bay())
        return {};
    if (fresh.size() > 1)
        return refuse("Several disks came at once: " + joined(fresh) +
                      ". Which of them is in the bay cannot be told; take all of them out, and put one in");
    const auto &disk = *fresh.front();
    if (const auto reason = reasonAgainst(disk); !reason.empty())
        return refuse(titleOf(disk) + ": " + reason);
    const char bay = m_bay;
    m_learned[bay] = disk;
    skip();
    const auto &where = disk.place.path.empty() ? disk.place.below[0].below : disk.place.path;
    return {Answer::Kind::Learned, bay, titleOf(disk) + ", at " + displayPath(where)};
}

std::string BayLearning::reasonAgainst(const PlacedDisk &disk) const
{
    if (!disk.refusal.empty())
        return "it " + disk.refusal + "; take another one";
    if (!disk.bay.empty())
        return "its port is " + disk.bay + " already";
    if (disk.place.path.empty() && disk.place.below.empty())
        return "it is connected in a way that no bay can be";
    for (const auto &[bay, other] : m_learned) {
        if (isSamePort(other, disk))
            return "its port is the one of bay " + std::string(1, bay);
    }
    return {};
}

// The nearest device above all disks that can be told from all others. Docks are plugged in here and there,
// so it is better than paths.
std::optional<AnchorDevice> BayLearning::commonAnchor() const
{
    const auto &first = m_learned.begin()->second;
    for (const auto &place : first.place.below) {
        const bool isCommon = std::all_of(m_learned.begin(), m_learned.end(), [&](const auto &learned) {
            return placeBelow(learned.second, place.anchorKey) != nullptr;
        });
        const auto device = std::find_if(m_anchors.begin(), m_anchors.end(),
                                         [&](const auto &anchor) { return anchor.key == place.anchorKey; });
        if (!isCommon || device == m_anchors.end() || !device->canMove || !device->disallowed.empty())
            continue;
        const auto alike = std::count_if(m_anchors.begin(), m_anchors.end(),
                                         [&](const auto &anchor) { return anchor.ids == device->ids; });
        if (alike == 1)
            return *device;
    }
    return std::nullopt;
}

// A path has the number of a PCI bus, and that number is another one wherever a Thunderbolt device is plugged
// in.
bool BayLearning::isOnSomethingThatMoves() const
{
    return std::any_of(m_learned.begin(), m_learned.end(), [&](const auto &learned) {
        return std::any_of(m_anchors.begin(), m_anchors.end(), [&](const AnchorDevice &device) {
            return device.ids.bus == Bus::Pci && device.canMove && placeBelow(learned.second, device.key);
        });
    });
}

Port BayLearning::portBelow(const AnchorDevice &anchor, const PlacedDisk &disk) const
{
    Port port{{}, anchor.ids, placeBelow(disk, anchor.key)->below, {}};
    const auto atSamePlace = std::count_if(m_learned.begin(), m_learned.end(), [&](const auto &learned) {
        return placeBelow(learned.second, anchor.key)->below == port.below;
    });
    if (anchor.ids.bus == Bus::Usb &&
        (atSamePlace > 1 || disk.place.lun.value_or(0) > 0 || port.below.empty()))
        port.lun = disk.place.lun;
    return port;
}

tl::expected<Definition, std::string> BayLearning::finish(const std::string &name,
                                                          const DefinitionSet &existing) const
{
    Definition definition{idOfName(name), name, {}};
    if (!isUtf8(name))
        return tl::unexpected(std::string("the name must be UTF-8"));
    if (definition.id.empty())
        return tl::unexpected("the name \"" + displayPath(name) + "\" needs a letter or a digit");
    if (m_learned.size() < 2)
        return tl::unexpected(std::string("an enclosure needs two to four bays"));
    for (const auto &other : existing.definitions) {
        if (other.id == definition.id)
            return tl::unexpected("there is an enclosure \"" + displayPath(other.name) + "\" (" + other.id +
                                  ".json) already");
    }
    const auto anchor = commonAnchor();
    if (!anchor && isOnSomethingThatMoves())
        return tl::unexpected(
            std::string("the disks are behind a device of PCI that can be plugged in elsewhere, and "
                        "it cannot be told from another one that is there, or the disks are behind "
                        "several; unplug the others while it is learned"));
    for (const auto &[bay, disk] : m_learned) {
        if (!anchor && disk.place.path.empty())
            return tl::unexpected("the port of bay " + std::string(1, bay) + " has no name of its own");
        const auto &path = disk.place.revisedPath.empty() ? disk.place.path : disk.place.revisedPath;
        definition.bays[bay] = {anchor ? portBelow(*anchor, disk) : Port{path, {}, {}, {}}};
    }
    // Whatever is written must be read again as the same.
    return readDefinition(definition.id, textOf(definition));
}

} // namespace orvana::enclosures
