#include "enclosures/BayClaims.h"

#include "foundation/DisplayPath.h"

#include <algorithm>
#include <set>

namespace orvana::enclosures
{

namespace
{

bool isLike(const AnchorDevice &device, const Anchor &anchor)
{
    return device.ids.bus == anchor.bus && device.ids.vendor == anchor.vendor &&
           device.ids.product == anchor.product &&
           (anchor.serial.empty() || device.ids.serial == anchor.serial);
}

std::set<Anchor> anchorsOf(const Definition &definition)
{
    std::set<Anchor> anchors;
    for (const auto &[bay, ports] : definition.bays) {
        for (const auto &port : ports) {
            if (port.anchor)
                anchors.insert(*port.anchor);
        }
    }
    return anchors;
}

std::string titleOf(const Definition &definition)
{
    return displayPath(definition.name) + " (" + definition.id + ".json)";
}

class Claims
{
public:
    Claims(const std::vector<Definition> &definitions, const std::vector<AnchorDevice> &devices)
        : m_definitions(definitions), m_devices(devices), m_anchors(definitions.size())
    {
        m_claims.isPresent.resize(definitions.size());
        for (std::size_t i = 0; i < definitions.size(); ++i)
            m_claims.isPresent[i] = findAnchors(i);
    }

    BayClaims of(const std::vector<DiskPlace> &disks) &&
    {
        std::map<std::pair<std::size_t, char>, std::vector<const DiskPlace *>> disksOfBays;
        for (const auto &disk : disks) {
            const auto bays = baysNaming(disk);
            for (const auto &[definition, bay] : bays)
                disksOfBays[{definition, bay}].push_back(&disk);
            if (bays.size() == 1)
                m_claims.bays[disk.disk] = bays.front();
            else if (bays.size() > 1)
                m_claims.unclear[disk.disk] =
                    "its port is " + nameOf(bays[0]) + " and also " + nameOf(bays[1]);
        }
        for (const auto &[bay, all] : disksOfBays) {
            if (all.size() < 2)
                continue;
            for (const auto *disk : all) {
                m_claims.bays.erase(disk->disk);
                m_claims.unclear.try_emplace(
                    disk->disk, "another disk is at " + nameOf(BayClaim{bay.first, bay.second}) + ", too");
            }
        }
        return std::move(m_claims);
    }

private:
    // Finds the devices that the definition counts its ports from. Returns false when the definition cannot
    // be used now.
    bool findAnchors(std::size_t index)
    {
        const auto &definition = m_definitions[index];
        const auto wanted = anchorsOf(definition);
        for (const auto &anchor : wanted) {
            std::vector<const AnchorDevice *> found;
            for (const auto &device : m_devices) {
                if (isLike(device, anchor))
                    found.push_back(&device);
            }
            if (found.size() > 1)
                return remark(definition, nameOf(anchor) + " is there " + std::to_string(found.size()) +
                                              " times and cannot be told apart");
            if (found.empty())
                continue;
            if (!found.front()->disallowed.empty())
                return remark(definition, nameOf(anchor) + " " + found.front()->disallowed);
            m_anchors[index].emplace(anchor, found.front()->key);
        }
        return !m_anchors[index].empty() || hasPaths(definition);
    }

    bool remark(const Definition &definition, const std::string &reason)
    {
        m_claims.remarks.push_back(titleOf(definition) + ": " + reason + "; it has no bays");
        return false;
    }

    static bool hasPaths(const Definition &definition)
    {
        return std::any_of(definition.bays.begin(), definition.bays.end(), [](const auto &bay) {
            return std::any_of(bay.second.begin(), bay.second.end(),
                               [](const Port &port) { return !port.anchor; });
        });
    }

    std::vector<BayClaim> baysNaming(const DiskPlace &disk) const
    {
        std::vector<BayClaim> found;
        for (std::size_t i = 0; i < m_definitions.size(); ++i) {
            if (!m_claims.isPresent[i])
                continue;
            for (const auto &[bay, ports] : m_definitions[i].bays) {
                if (std::any_of(ports.begin(), ports.end(),
                                [&](const Port &port) { return names(port, i, disk); }))
                    found.push_back({i, bay});
            }
        }
        return found;
    }

    bool names(const Port &port, std::size_t definition, const DiskPlace &disk) const
    {
        if (!port.anchor)
            return !port.path.empty() && (port.path == disk.path || port.path == disk.revisedPath);
        const auto anchor = m_anchors[definition].find(*port.anchor);
        if (anchor == m_anchors[definition].end() || (port.lun && port.lun != disk.lun))
            return false;
        return std::any_of(disk.below.begin(), disk.below.end(), [&](const PlaceBelow &place) {
            return place.anchorKey == anchor->second && place.below == port.below;
        });
    }

    std::string nameOf(const Anchor &anchor) const { return enclosures::nameOf(anchor); }
    std::string nameOf(const BayClaim &claim) const
    {
        return slotOf(claim.bay) + " of " + titleOf(m_definitions[claim.definition]);
    }

    const std::vector<Definition> &m_definitions;
    const std::vector<AnchorDevice> &m_devices;
    std::vector<std::map<Anchor, std::string>> m_anchors; // for each definition: keys of the devices
    BayClaims m_claims;
};

} // namespace

BayClaims claimBays(const std::vector<Definition> &definitions, const std::vector<AnchorDevice> &anchors,
                    const std::vector<DiskPlace> &disks)
{
    return Claims(definitions, anchors).of(disks);
}

std::vector<std::string> sharedPorts(const std::vector<Definition> &definitions)
{
    std::map<Port, std::string> owners;
    std::vector<std::string> sentences;
    for (const auto &definition : definitions) {
        for (const auto &[bay, ports] : definition.bays) {
            for (const auto &port : ports) {
                const auto place = slotOf(bay) + " of " + titleOf(definition);
                if (const auto [other, isNew] = owners.emplace(port, place); !isNew)
                    sentences.push_back(nameOf(port) + " is " + other->second + " and also " + place +
                                        "; it is no bay");
            }
        }
    }
    return sentences;
}

} // namespace orvana::enclosures
