#include "platform/simulator/MachinePlaces.h"

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>

namespace orvana::platform::simulator
{

namespace
{

// "dock/1" is the dock, "dock/1/2" the second disk in it, "backplane/1" the first disk of the backplane.
std::optional<std::string> placeOfPort(const Machine &machine, const std::string &kind,
                                       const std::string &rest)
{
    const auto slash = rest.find('/');
    const auto index = static_cast<std::size_t>(std::max(0, std::atoi(rest.c_str())));
    const auto count = kind == "dock" ? machine.docks.size() : machine.backplane.size();
    if (index < 1 || index > count)
        return std::nullopt;
    if (kind == "backplane")
        return machine.backplane[index - 1].disk.where;
    const auto &dock = machine.docks[index - 1];
    if (slash == std::string::npos)
        return dock.where;
    const auto disk = static_cast<std::size_t>(std::max(0, std::atoi(rest.c_str() + slash + 1)));
    return disk < 1 || disk > dock.disks.size() ? std::nullopt
                                                : std::optional(dock.disks[disk - 1].disk.where);
}

} // namespace

std::optional<std::string> placeOfTarget(const Machine &machine, const std::string &target)
{
    const auto slash = target.find('/');
    const auto first = target.substr(0, slash);
    if (first == "internal" || first == "usb" || first == "fireWire") {
        if (slash == std::string::npos)
            return std::nullopt;
        const auto where = "/" + first + "Disks/" + std::to_string(std::atoi(target.c_str() + slash + 1) - 1);
        const auto found = std::find_if(machine.disks.begin(), machine.disks.end(),
                                        [&](const Disk &disk) { return disk.where == where; });
        return found == machine.disks.end() ? std::nullopt : std::optional(where);
    }
    if (first == "dock" || first == "backplane")
        return slash == std::string::npos ? std::nullopt
                                          : placeOfPort(machine, first, target.substr(slash + 1));
    const auto number = static_cast<std::size_t>(std::max(0, std::atoi(first.c_str())));
    if (number < 1 || number > machine.enclosures.size())
        return std::nullopt;
    const auto &enclosure = machine.enclosures[number - 1];
    if (slash == std::string::npos)
        return enclosure.where.empty() ? std::nullopt : std::optional(enclosure.where);
    for (const auto &disk : enclosure.bays) {
        if (disk.bay == target.substr(slash + 1))
            return disk.where;
    }
    return std::nullopt;
}

Json &entryAt(Json &json, const std::string &where)
{
    return json.at(Json::json_pointer(where));
}

std::optional<std::string> placeOfVolume(const Machine &machine, const std::string &name)
{
    std::optional<std::string> where;
    visitAllDisks(machine, [&](const Disk &disk, bool) {
        for (const auto &volume : disk.volumes) {
            if (volume.name == name && !where)
                where = volume.where;
        }
    });
    return where;
}

} // namespace orvana::platform::simulator
