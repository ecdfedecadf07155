// This file is the part of the simulated machine that shows its ports and keeps its definitions.

#include "foundation/DisplayPath.h"
#include "platform/simulator/MachinePlaces.h"
#include "platform/simulator/SimulatedMachine.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace orvana::platform::simulator
{

namespace
{

bool isStartup(const Disk &disk)
{
    return std::any_of(disk.volumes.begin(), disk.volumes.end(),
                       [](const Volume &volume) { return volume.isStartup; });
}

} // namespace

enclosures::PortSnapshot SimulatedMachine::ports() const
{
    enclosures::PortSnapshot ports{{}, m_machine.anchors};
    const auto add = [&](const Disk &disk, const Enclosure *enclosure) {
        if (!disk.isAttached)
            return;
        enclosures::PlacedDisk placed;
        placed.arrival = std::to_string(m_numbers.at(disk.where));
        placed.model = disk.model.value_or(disk.product.value_or(""));
        placed.serial = disk.serial.value_or("");
        placed.bytes = static_cast<std::uint64_t>(disk.size);
        if (const auto place = m_machine.places.find(disk.where); place != m_machine.places.end())
            placed.place = place->second;
        if (isStartup(disk))
            placed.refusal = "holds the running system";
        else if (enclosure && enclosure->definition.empty())
            placed.refusal = "is in an enclosure that needs no setup";
        else if (enclosure)
            placed.bay = "Slot-" + disk.bay + " of " + displayPath(enclosure->name);
        ports.disks.push_back(std::move(placed));
    };
    for (const auto &disk : m_machine.disks)
        add(disk, nullptr);
    for (const auto &enclosure : m_machine.enclosures) {
        for (const auto &disk : enclosure.bays) {
            if (enclosure.isAttached)
                add(disk, &enclosure);
        }
    }
    return ports;
}

SimulatedMachine::Outcome SimulatedMachine::addDefinition(const enclosures::Definition &definition)
{
    return change([&](Json &json) {
        auto entry = Json{{"id", definition.id}};
        entry.update(Json::parse(enclosures::textOf(definition)));
        json["definitions"].push_back(std::move(entry));
    });
}

SimulatedMachine::Outcome SimulatedMachine::removeDefinition(const std::string &id)
{
    const auto &all = m_machine.definitions;
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto &one) { return one.id == id; });
    if (found == all.end())
        return tl::unexpected(displayPath(id) + ": no such definition");
    return change([index = static_cast<std::size_t>(found - all.begin())](Json &json) {
        json["definitions"].erase(index);
    });
}

} // namespace orvana::platform::simulator
