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

/// The JSON pointer of what a lever's target names: an enclosure's number ("1"), a bay ("1/B"), or another
/// disk ("internal/1", "usb/1", "fireWire/1"). Nullopt when the machine has none.
std::optional<std::string> placeOfTarget(const Machine &machine, const std::string &target);

/// The entry at that JSON pointer; it must be there.
Json &entryAt(Json &json, const std::string &where);

/// The JSON pointer of the first volume of that name; nullopt when there is none.
std::optional<std::string> placeOfVolume(const Machine &machine, const std::string &name);

} // namespace orvana::platform::simulator
