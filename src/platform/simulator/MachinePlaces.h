#pragma once

#include "foundation/PathJson.h"
#include "platform/simulator/Machine.h"

#include <optional>
#include <string>

namespace orvana::platform::simulator
{

/// Calls `visit(disk, isAttached)` for every disk of the machine.
template <class Visit>
void visitAllDisks(const Machine &machine, Visit visit)
{
    for (const auto &disk : machine.disks)
        visit(disk, disk.isAttached);
    for (const auto &enclosure : machine.enclosures) {
        for (const auto &disk : enclosure.bays)
            visit(disk, enclosure.isAttached && disk.isAttached);
    }
}

/// Returns the JSON pointer of the entry that a lever's target names: an enclosure's number ("1"), a bay
/// ("1/B"), another disk ("internal/1", "usb/1", "fireWire/1", "backplane/1"), a dock ("dock/1") or a disk in
/// it
/// ("dock/1/2"). Returns nullopt when the machine has no such entry.
std::optional<std::string> placeOfTarget(const Machine &machine, const std::string &target);

/// Returns the entry at the JSON pointer `where`. The entry must exist.
Json &entryAt(Json &json, const std::string &where);

/// Returns the JSON pointer of the first volume of that name, or nullopt when there is no such volume.
std::optional<std::string> placeOfVolume(const Machine &machine, const std::string &name);

} // namespace orvana::platform::simulator
